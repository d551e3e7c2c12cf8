// Makes the sidecar of a recording from what its driver reported.
#pragma once

#include "TavixCore/Timeline/Timeline.h"
#include "TavixReel/Recording/DoneReport.h"

namespace tavix::TimelineBuilder {

// `syncPixelTimeSec`: when the sync flash shows in the video. `rate`: picture seconds per device second.
Timeline build(const DoneReport& report, double syncPixelTimeSec, const Timeline::Video& video, double rate);

}   // namespace tavix::TimelineBuilder
