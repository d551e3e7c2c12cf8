// The music of the example that is cut on the beat: nine bars of four at 120 beats a minute. Two bars of
// chords, a drop with drums, bass and arpeggio for six, and a last chord that rings out.
#pragma once

#include "Sounds/Sound.h"

namespace tavix::sounds {

constexpr double tuneBpm = 120;
constexpr double tuneFirstBeatSec = 0.2;
constexpr int tuneDropBeat = 8;    // the first with drums
constexpr int tuneLastBeat = 32;   // the one that rings out

Sound tune();

}   // namespace tavix::sounds
