// Times in beats of the music, turned into seconds. Pure functions of the document.
#pragma once

#include "TavixCore/Document/BeatGrid.h"
#include "TavixCore/Time/CompositionResolution.h"

#include <optional>

namespace tavix::CompositionBeats {

// Nothing without music that states a tempo.
std::optional<BeatGrid> grid(const CompositionSpec& spec);

bool containsBeatRefs(const CompositionSpec& spec);

// With every time in beats replaced by seconds. Without a grid nothing changes, and lint speaks of what
// stays. Device animations are already tracks: their ends are measured. Runs before marks are resolved, which
// need to know the layers that already have a start.
CompositionResolution resolve(CompositionSpec spec);

}   // namespace tavix::CompositionBeats
