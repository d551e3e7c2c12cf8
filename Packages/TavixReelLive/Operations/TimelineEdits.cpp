#include "TavixReelLive/Operations/TimelineEdits.h"

#include <algorithm>
#include <utility>

namespace tavix {

namespace {

constexpr double newKeyframeScale = 1.2, newRetimeSpeed = 2;
constexpr double cutReachSec = 0.25, retimeReachSec = 0.5, newTransitionSec = 1;

template <class T> T* at(std::vector<T>& list, std::size_t index) {
    return index < list.size() ? &list[index] : nullptr;
}

template <class T> void removeAt(std::vector<T>& list, std::size_t index) {
    if (index < list.size()) list.erase(list.begin() + static_cast<std::ptrdiff_t>(index));
}

TimeRangeSec around(double reachSec, const ReelClock& clock) {
    return {
        std::max(clock.playheadSec - reachSec, 0.0), std::min(clock.playheadSec + reachSec, clock.lengthSec)};
}

double heldIn(double startSec, double lengthSec, const ReelClock& clock) {
    return std::clamp(startSec, 0.0, std::max(clock.lengthSec - lengthSec, 0.0));
}

void move(TimeRangeSec& range, double toStartSec, const ReelClock& clock) {
    const double lengthSec = range.endSec - range.startSec;
    range.startSec = heldIn(toStartSec, lengthSec, clock);
    range.endSec = range.startSec + lengthSec;
}

// Of the list that `change` makes of the transitions.
template <class Change> void changeTransitions(EffectsSpec& spec, const Change& change) {
    std::vector<ScreenTransition> all = spec.transitions();
    change(all);
    spec.setTransitions(std::move(all));
}

template <class Change> void changeTransition(EffectsSpec& spec, std::size_t index, const Change& change) {
    if (index < spec.transitions().size())
        changeTransitions(spec, [&](std::vector<ScreenTransition>& all) { change(all[index]); });
}

}   // namespace

ReelClock ReelClock::of(double trimStartSec, double trimEndSec, double playheadSec) {
    return {std::max(trimEndSec - trimStartSec, leastLengthSec), playheadSec};
}

namespace TimelineEdits {

namespace {

void sort(std::vector<CameraKeyframe>& track) { std::ranges::stable_sort(track, {}, &CameraKeyframe::tSec); }

}   // namespace

void addKeyframe(EffectsSpec& spec, const ReelClock& clock, PixelPoint middleOfVideoPx) {
    spec.cameraTrack.push_back({clock.playheadSec, newKeyframeScale, middleOfVideoPx, Easing::easeInOut});
    sort(spec.cameraTrack);
}

void moveKeyframe(EffectsSpec& spec, std::size_t index, double toSec, const ReelClock& clock) {
    CameraKeyframe* const keyframe = at(spec.cameraTrack, index);
    if (!keyframe) return;
    keyframe->tSec = std::clamp(toSec, 0.0, clock.lengthSec);
    sort(spec.cameraTrack);
}

void removeKeyframe(EffectsSpec& spec, std::size_t index) { removeAt(spec.cameraTrack, index); }

void addCut(EffectsSpec& spec, const ReelClock& clock) {
    spec.cuts.push_back({Cut::Kind::trim, around(cutReachSec, clock)});
}

void moveCut(EffectsSpec& spec, std::size_t index, double toStartSec, const ReelClock& clock) {
    if (Cut* const cut = at(spec.cuts, index)) move(cut->dropRange, toStartSec, clock);
}

void removeCut(EffectsSpec& spec, std::size_t index) { removeAt(spec.cuts, index); }

void addRetime(EffectsSpec& spec, const ReelClock& clock) {
    spec.retimeTrack.push_back({around(retimeReachSec, clock), newRetimeSpeed});
}

void moveRetime(EffectsSpec& spec, std::size_t index, double toStartSec, const ReelClock& clock) {
    if (RetimeSegment* const retime = at(spec.retimeTrack, index)) move(retime->range, toStartSec, clock);
}

void setRetimeSpeed(EffectsSpec& spec, std::size_t index, double speedFactor) {
    RetimeSegment* const retime = at(spec.retimeTrack, index);
    if (retime && speedFactor > 0) retime->speedFactor = speedFactor;
}

void removeRetime(EffectsSpec& spec, std::size_t index) { removeAt(spec.retimeTrack, index); }

void addTransition(EffectsSpec& spec, const ReelClock& clock) {
    const double atSec = clock.playheadSec;
    ScreenTransition transition;
    transition.atSec = atSec;
    transition.revealSec = std::max(
        atSec + ScreenTransition::leastLengthSec, std::min(atSec + newTransitionSec, clock.lengthSec));
    changeTransitions(spec, [&](std::vector<ScreenTransition>& all) { all.push_back(transition); });
}

void moveTransition(EffectsSpec& spec, std::size_t index, double toSec, const ReelClock& clock) {
    changeTransition(spec, index, [&](ScreenTransition& transition) {
        const double lengthSec = transition.revealSec - transition.atSec;
        transition.atSec = heldIn(toSec, lengthSec, clock);
        transition.revealSec = transition.atSec + lengthSec;
    });
}

void setTransitionReveal(EffectsSpec& spec, std::size_t index, double toSec, const ReelClock& clock) {
    changeTransition(spec, index, [&](ScreenTransition& transition) {
        const double leastSec = transition.atSec + ScreenTransition::leastLengthSec;
        transition.revealSec = std::clamp(toSec, leastSec, std::max(leastSec, clock.lengthSec));
    });
}

void setTransitionStyle(EffectsSpec& spec, std::size_t index, TransitionStyle style) {
    changeTransition(spec, index, [&](ScreenTransition& transition) { transition.style = style; });
}

void setTransitionTiming(
    EffectsSpec& spec, std::size_t index, const std::optional<TransitionTimingSpec>& timing) {
    changeTransition(spec, index, [&](ScreenTransition& transition) { transition.timing = timing; });
}

void removeTransition(EffectsSpec& spec, std::size_t index) {
    changeTransitions(spec, [&](std::vector<ScreenTransition>& all) { removeAt(all, index); });
}

}   // namespace TimelineEdits

}   // namespace tavix
