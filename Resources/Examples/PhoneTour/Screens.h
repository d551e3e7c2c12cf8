// The two screens of an imaginary app for walkers, called Kestrel.
#pragma once

#include "Canvas.h"

namespace tavix::phonetour {

struct JournalState {
    double scrolledPt = 0;
    double pressed = 0;   // of the row that is opened, 0 to 1
};
// The middle of the row that is opened, once the list is scrolled to its end.
constexpr double openedRowY = 479, journalScrollPt = 300;
void journal(Canvas& canvas, const JournalState& state);

struct WalkState {
    double drawn = 0;       // how much of the chart and the numbers has arrived, 0 to 1
    double toPulse = 0;     // from the climb to the pulse, 0 to 1
    double scrubbed = -1;   // where a finger reads the chart, 0 to 1 along it; below 0 nowhere
    double scrubStrength = 0;
};
constexpr double segmentY = 474, pulseSegmentX = 319, chartLeft = 40, chartWidth = 322, chartY = 650;
void walk(Canvas& canvas, const WalkState& state);

}   // namespace tavix::phonetour
