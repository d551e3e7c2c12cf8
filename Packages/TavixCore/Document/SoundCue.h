// A sound at a moment: one of the catalog by its name, or a file.
#pragma once

#include "TavixCore/Document/SFXCatalog.h"
#include "TavixCore/Support/Tables.h"

#include <optional>
#include <string>
#include <type_traits>

namespace tavix {

struct SoundCue {
    double atSec = 0;
    std::optional<double> atBeat;   // symbolic: resolved into `atSec`, then cleared
    std::string sound = "whoosh";
    double gain = 1;

    // Of the catalog; a negative gain becomes 0.
    static SoundCue of(double atSec, SFXCatalog::Sound sound, double gain = 1);

    std::optional<SFXCatalog::Sound> resolvedSound() const;   // nothing when it names none of the catalog
    bool operator==(const SoundCue&) const = default;
};

const Fields<SoundCue>& fieldsOf(std::type_identity<SoundCue>);

}   // namespace tavix
