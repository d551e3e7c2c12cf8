#include "TavixCore/Document/BeatGrid.h"

#include "TavixCore/Support/FieldTables.h"

#include <algorithm>
#include <cmath>

namespace tavix {

double BeatGrid::beatDuration() const { return 60 / std::max(bpm, 1.0); }

double BeatGrid::timeOfBeat(double beat) const { return beatDuration() * beat + offsetSec; }

double BeatGrid::nearestBeat(double toSec) const {
    return timeOfBeat(std::floor((toSec - offsetSec) / beatDuration() + 0.5));
}

const Fields<BeatGrid>& fieldsOf(std::type_identity<BeatGrid>) {
    static const Fields<BeatGrid> table{
        "BeatGrid", {field<&BeatGrid::bpm>("bpm", "The tempo.").measuredIn(Unit::beatsPerMinute),
                        field<&BeatGrid::offsetSec>("offsetSec", "When the first beat falls.")
                            .measuredIn(Unit::seconds)}};
    return table;
}

}   // namespace tavix
