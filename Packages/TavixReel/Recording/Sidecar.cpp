#include "TavixReel/Recording/Sidecar.h"

#include "TavixReel/Recording/TimeMapping.h"
#include "TavixReel/Recording/TimelineBuilder.h"

namespace tavix::Sidecar {

std::optional<Made> of(const DoneReport& report, const VideoProbe& probe) {
    if (!probe.syncSeconds) return std::nullopt;
    const double rate = TimeMapping::recorderRate(probe.flashSpanSec(), report.flowEnd - report.flowStart);
    const Timeline built =
        TimelineBuilder::build(report, *probe.syncSeconds, {probe.widthPx, probe.heightPx, probe.fps}, rate);
    return Made{
        PixelMarkAlignment::align(built, probe.markBlipSeconds, PixelMarkAlignment::usualTolerance), rate};
}

}   // namespace tavix::Sidecar
