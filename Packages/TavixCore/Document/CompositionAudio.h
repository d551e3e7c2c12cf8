// All that is heard.
#pragma once

#include "TavixCore/Document/MusicBed.h"
#include "TavixCore/Document/SoundCue.h"
#include "TavixCore/Support/Tables.h"

#include <optional>
#include <type_traits>
#include <vector>

namespace tavix {

struct CompositionAudio {
    std::optional<MusicBed> music;
    std::vector<SoundCue> cues;
    bool operator==(const CompositionAudio&) const = default;
};

const Fields<CompositionAudio>& fieldsOf(std::type_identity<CompositionAudio>);

}   // namespace tavix
