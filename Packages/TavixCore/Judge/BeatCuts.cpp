#include "TavixCore/Judge/BeatCuts.h"

#include <algorithm>
#include <cmath>

namespace tavix::CompositionLint {

double BeatCut::offSec() const { return std::abs(startSec - nearestSec); }

std::optional<BeatCut> beatCut(
    const CompositionSpec& spec, const CompositionTimeline& timeline, std::size_t scene) {
    if (!spec.audio || !spec.audio->music || !(spec.audio->music->bpm > 0)) return std::nullopt;
    const MusicBed& music = *spec.audio->music;
    const double beatSec = 60 / std::max(*music.bpm, 1.0);
    const double offsetSec = music.firstBeatSec - music.startAtSec;
    const double startSec = timeline.startSec[scene];
    const double nearestSec = offsetSec + beatSec * std::floor((startSec - offsetSec) / beatSec + 0.5);
    return BeatCut{startSec, nearestSec, spec.scenes[scene - 1].durationSec + nearestSec - startSec};
}

}   // namespace tavix::CompositionLint
