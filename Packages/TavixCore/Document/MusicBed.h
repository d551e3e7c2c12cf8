// The music under a composition, and the grid of its beats.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <optional>
#include <string>
#include <type_traits>

namespace tavix {

struct MusicBed {
    std::string path;
    double gain = 0.7;       // 1 is as recorded
    double startAtSec = 0;   // where in the file it begins
    double fadeInSec = 0;
    double fadeOutSec = 1.5;
    std::optional<double> bpm;   // beats per minute; absent: there is no grid
    double firstBeatSec = 0;
    bool operator==(const MusicBed&) const = default;
};

const Fields<MusicBed>& fieldsOf(std::type_identity<MusicBed>);

}   // namespace tavix
