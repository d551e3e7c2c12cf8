// From the clock of a screen recorder to the seconds of the finished video.
#pragma once

#include <optional>

namespace tavix::TimeMapping {

// When a recorded step shows in the output: its distance from the "go" signal on the recorder's clock,
// stretched by the recorder's rate, after the instant at which the sync pixel appears in the picture.
double outputSeconds(double stepMediaTimeSec, double goMediaTimeSec, double syncPixelTimeSec, double rate);

// Picture seconds per device second. A measurement outside 0.85 to 1.05 is not believed, and gives 1.
double recorderRate(std::optional<double> pixelSpanSec, double deviceSpanSec);

}   // namespace tavix::TimeMapping
