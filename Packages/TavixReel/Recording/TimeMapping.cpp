#include "TavixReel/Recording/TimeMapping.h"

namespace tavix::TimeMapping {

double outputSeconds(double stepMediaTimeSec, double goMediaTimeSec, double syncPixelTimeSec, double rate) {
    return (stepMediaTimeSec - goMediaTimeSec) * rate + syncPixelTimeSec;
}

double recorderRate(std::optional<double> pixelSpanSec, double deviceSpanSec) {
    constexpr double slowest = 0.85, fastest = 1.05;
    if (!pixelSpanSec || !(*pixelSpanSec > 0) || !(deviceSpanSec > 0)) return 1;
    const double rate = *pixelSpanSec / deviceSpanSec;
    return rate >= slowest && rate <= fastest ? rate : 1;
}

}   // namespace tavix::TimeMapping
