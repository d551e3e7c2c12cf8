#include "TavixCore/Time/CompositionBeats.h"

#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Time/BeatResolver.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixCore/Time/TimedRows.h"

#include <utility>

namespace tavix::CompositionBeats {

std::optional<BeatGrid> grid(const CompositionSpec& spec) {
    const MusicBed* const music = spec.audio && spec.audio->music ? &*spec.audio->music : nullptr;
    if (!music || !music->bpm || !(*music->bpm > 0)) return std::nullopt;
    return BeatGrid{.bpm = *music->bpm, .offsetSec = music->firstBeatSec - music->startAtSec};
}

bool containsBeatRefs(const CompositionSpec& spec) {
    static const RowFilter timed(typeOf<CompositionSpec>(), isInBeats);
    return containsRow(typeOf<CompositionSpec>(), &spec, timed);
}

CompositionResolution resolve(CompositionSpec spec) {
    const std::optional<BeatGrid> beats = grid(spec);
    if (!beats || !containsBeatRefs(spec)) return {std::move(spec), {}};
    BeatResolver resolver(*beats);
    resolver.resolveLengths(typeOf<CompositionSpec>(), &spec);
    // A scene starts where the lengths before it say, so its start is known only now.
    resolver.resolveMoments(typeOf<CompositionSpec>(), &spec, CompositionTimeline(spec).startSec);
    return {std::move(spec), std::move(resolver).findings()};
}

}   // namespace tavix::CompositionBeats
