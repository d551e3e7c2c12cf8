#include "TavixReel/Recording/TimelineBuilder.h"

#include "TavixReel/Recording/TimeMapping.h"

#include <algorithm>

namespace tavix::TimelineBuilder {

Timeline build(const DoneReport& report, double syncPixelTimeSec, const Timeline::Video& video, double rate) {
    const auto inVideo = [&](double deviceSec) {
        return TimeMapping::outputSeconds(deviceSec, report.flowStart, syncPixelTimeSec, rate);
    };
    const auto inVideoIfSet = [&](const std::optional<double>& deviceSec) {
        return deviceSec ? std::optional(inVideo(*deviceSec)) : std::nullopt;
    };
    std::vector<DoneReport::StepMark> marks = report.steps;
    std::ranges::stable_sort(marks, {}, &DoneReport::StepMark::index);

    Timeline timeline{.video = video, .events = {}};
    timeline.events.reserve(marks.size());
    for (DoneReport::StepMark& mark : marks) {
        Timeline::Event& event = timeline.events.emplace_back();
        event.index = mark.index;
        event.type = mark.type.value_or("tap");
        event.tSec = inVideo(mark.startedAt);
        if (mark.rect) event.regionPx = PixelRect::of(*mark.rect, report.displayScale.value_or(1));
        event.label = std::move(mark.label);
        event.actionSec = inVideoIfSet(mark.actionAt);
        event.endSec = inVideoIfSet(mark.motionEndAt);
    }
    return timeline;
}

}   // namespace tavix::TimelineBuilder
