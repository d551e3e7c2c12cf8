#include "TavixReel/Camera/EffectsAuthor.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tavix::EffectsAuthor {
namespace {

using Event = Timeline::Event;

std::vector<Event> sortedEvents(const Timeline& timeline) {
    std::vector<Event> events = timeline.events;
    std::ranges::stable_sort(events, {}, &Event::tSec);
    return events;
}

bool isSwipe(const Event& event) { return event.type == "swipe"; }

// Follows the steps one by one and writes down where the camera goes.
class Director {
public:
    Director(const Timeline::Video& video, const MotionSpec& motion)
        : widthPx_(double(video.widthPx)), heightPx_(double(video.heightPx)),
          motion_(motion), frameCenter_{widthPx_ / 2, heightPx_ / 2}, scale_(motion.restZoom),
          center_(frameCenter_) {
        add(0, motion.restZoom, frameCenter_);
    }

    // `nextSec`: when the following step starts, if there is one.
    void follow(const Event& event, std::optional<double> nextSec) {
        if (motion_.minBeatSpacingSec > event.tSec - lastBeatSec_) return;
        if (isSwipe(event))
            showWhole(event.tSec);
        else if (!event.regionPx || !(event.regionPx->width > 0) || !(event.regionPx->height > 0))
            pulse(event.tSec, nextSec.value_or(event.tSec + 2 * motion_.settleHoldSec));
        else
            approach(event, *event.regionPx);
        lastBeatSec_ = event.tSec;
    }

    Plan plan;

private:
    bool isZoomed() const { return motion_.restZoom + 0.000001 < scale_; }

    void add(double tSec, double scale, const PixelPoint& center) {
        plan.keyframes.push_back({tSec, scale, center, Easing::easeInOut});
    }

    void settle(double scale, const PixelPoint& center) {
        scale_ = scale;
        center_ = center;
    }

    void rest(double tSec) {
        add(tSec, motion_.restZoom, frameCenter_);
        settle(motion_.restZoom, frameCenter_);
    }

    // A swipe moves the whole page, so the camera is back before it.
    void showWhole(double tSec) {
        if (isZoomed())
            add(std::max(plan.keyframes.back().tSec, tSec - motion_.pushInSec), motion_.restZoom,
                frameCenter_);
        rest(tSec);
    }

    // A step without a place: into the middle of the screen and, when there is time, out again.
    void pulse(double tSec, double nextSec) {
        constexpr double leastPulseSec = 0.8;
        add(tSec, std::min(motion_.targetZoom, motion_.maxZoom), frameCenter_);
        const double backSec =
            std::min(tSec + std::max(motion_.settleHoldSec, leastPulseSec), nextSec - motion_.pushInSec);
        if (tSec < backSec) add(backSec, motion_.restZoom, frameCenter_);
        settle(motion_.restZoom, frameCenter_);
    }

    // How far the camera may go in with the target, its ring and a margin still in the picture.
    double zoomOn(const PixelRect& target) const {
        constexpr double wideFraction = 0.6;   // of the frame: what is wider is shown by its height
        const double room =
            2 * std::min(widthPx_, heightPx_) * motion_.safeMarginFraction + 2 * motion_.touchRingPadPx;
        const double byWidth = widthPx_ / (room + target.width),
                     byHeight = heightPx_ / (room + target.height);
        const bool isByHeight = byHeight < byWidth || target.width > wideFraction * widthPx_;
        return std::max(
            std::min({isByHeight ? byHeight : byWidth, motion_.targetZoom, motion_.maxZoom}), 1.0);
    }

    void approach(const Event& event, const PixelRect& target) {
        const double zoom = zoomOn(target);
        if (zoom < motion_.minZoomFactor) {
            if (isZoomed()) rest(event.tSec);
            return;
        }
        const PixelPoint center = target.center();
        const double wayPx = std::hypot(center.x - center_.x, center.y - center_.y);
        if (std::abs(zoom - scale_) < motion_.minScaleDelta && wayPx < motion_.minReframeFraction * heightPx_)
            return;
        if (wayPx > motion_.farPanFraction * heightPx_ && isZoomed()) pullBack(event.tSec, center);
        add(event.tSec, zoom, center);
        plan.heroBeats.push_back({event.index, event.tSec, zoom});
        settle(zoom, center);
    }

    // Over the midpoint, rather than across the screen at full zoom.
    void pullBack(double tSec, const PixelPoint& towards) {
        const double holdSec = plan.keyframes.back().tSec + motion_.settleHoldSec;
        if (holdSec < tSec - motion_.pushInSec)
            add(holdSec, motion_.restZoom, {(center_.x + towards.x) / 2, (center_.y + towards.y) / 2});
    }

    double widthPx_, heightPx_;
    const MotionSpec& motion_;
    PixelPoint frameCenter_;
    double lastBeatSec_ = -std::numeric_limits<double>::infinity();
    double scale_;
    PixelPoint center_;
};

}   // namespace

Plan plan(const Timeline& timeline, const MotionSpec& motion) {
    const std::vector<Event> events = sortedEvents(timeline);
    Director director(timeline.video, motion);
    for (std::size_t i = 0; i < events.size(); ++i)
        director.follow(events[i], i + 1 < events.size() ? std::optional(events[i + 1].tSec) : std::nullopt);
    director.plan.deadAir = deadAirEdits(events, motion);
    return std::move(director.plan);
}

std::vector<HeroBeat> heroBeats(const Timeline& timeline, const MotionSpec& motion) {
    return plan(timeline, motion).heroBeats;
}

DeadAirEdits deadAirEdits(std::span<const Event> events, const MotionSpec& motion) {
    DeadAirEdits edits;
    for (std::size_t i = 0; i + 1 < events.size(); ++i) {
        const double fromSec = events[i].tSec, toSec = events[i + 1].tSec;
        if (isSwipe(events[i]) || !(toSec - fromSec > motion.deadAirThresholdSec)) continue;
        const TimeRangeSec middle{fromSec + motion.deadAirHoldSec, toSec - motion.deadAirHoldSec};
        if (!(middle.startSec < middle.endSec)) continue;
        if (motion.deadAirRampSpeed > 1)
            edits.retimes.push_back({middle, motion.deadAirRampSpeed});
        else
            edits.cuts.push_back({Cut::Kind::trim, middle});
    }
    return edits;
}

MotionSpring springOf(const MotionSpec& motion) {
    return {motion.zoomResponseSec, motion.panResponseSec, motion.dampingRatio};
}

EffectsSpec author(
    const Timeline& timeline, const Background& background, const MotionSpec& motion, ReelFormat format) {
    constexpr double highestFps = 1e9;   // so that whatever a sidecar says can be held
    const double fps = std::clamp(std::round(timeline.video.fps), 1.0, highestFps);
    Plan planned = plan(timeline, motion);
    EffectsSpec spec;
    spec.schemaVersion = EffectsSpec::authoredSchemaVersion;
    spec.output = outputOf(format, timeline.video.widthPx, timeline.video.heightPx, std::int64_t(fps));
    spec.background = background;
    spec.cameraTrack = std::move(planned.keyframes);
    spec.motion = springOf(motion);
    spec.cuts = std::move(planned.deadAir.cuts);
    spec.retimeTrack = std::move(planned.deadAir.retimes);
    return spec;
}

}   // namespace tavix::EffectsAuthor
