#include "TavixCore/Judge/LintRules.h"

#include <algorithm>
#include <limits>

namespace tavix::CompositionLint {
namespace {

bool hasTrack(const CompositionLayer& layer, std::initializer_list<AnimProperty> properties) {
    return std::ranges::any_of(layer.tracks, [&](const PropertyTrack& track) {
        return std::ranges::find(properties, track.property) != properties.end();
    });
}

// A time that waits for its mark has no place in the order yet.
template <class Keyframe> bool isOpen(const Keyframe& keyframe) {
    if constexpr (requires { keyframe.atMark; })
        return keyframe.atMark.has_value();
    else
        return false;
}

struct AscendingTimes {
    double previous = -std::numeric_limits<double>::infinity();

    // Whether this keyframe comes after those seen before it.
    template <class Keyframe> bool accepts(const Keyframe& keyframe, double timeSec) {
        if (isOpen(keyframe)) return true;
        const bool ascends = timeSec > previous;
        previous = timeSec;
        return ascends;
    }
};

template <class Keyframe>
void timesAscend(const std::vector<Keyframe>& track, const KeyPath& trackAt, std::string_view message,
    LintReport& report) {
    AscendingTimes times;
    for (std::size_t k = 0; k < track.size(); ++k)
        if (!times.accepts(track[k], track[k].tSec)) {
            const KeyPath keyframeAt(trackAt, k);
            report.tell(Rule::keyframeOrder, KeyPath(keyframeAt, "tSec"), std::string(message));
        }
}

void screenHasAPath(const DeviceContent& device, const KeyPath& at, LintReport& report) {
    if (std::visit([](const auto& screen) { return screen.path.empty(); }, device.screen))
        report.tell(Rule::screenPath, KeyPath(at, "screen"), "Device screen needs a still or video path.");
}

// A formation gives each of its devices one, and is gone by now.
void screensHaveDevices(const DeviceContent& device, const KeyPath& at, LintReport& report) {
    if (!device.screens.empty())
        report.tell(Rule::screensAlone, KeyPath(at, "screens"),
            "screens are for the devices of a formation, one each; without a choreographyPreset only screen is shown.");
}

void judgePlacement(
    const LayerScope& scope, const DeviceContent& device, const KeyPath& at, LintReport& report) {
    if (!device.placement) return;
    const KeyPath placementAt(at, "placement");
    if (!device.placement->track.empty() &&
        hasTrack(scope.layer, {AnimProperty::x, AnimProperty::y, AnimProperty::scale}))
        report.tell(Rule::twoMotions, placementAt,
            "Device has both a placement track and x/y/scale keyframes — pick one motion system (placement = baked springs, tracks = generic keyframes).");
    timesAscend(device.placement->track, KeyPath(placementAt, "track"),
        "Placement times must be strictly ascending.", report);
}

void screenOpacityIsSound(const DeviceContent& device, const KeyPath& at, LintReport& report) {
    const KeyPath opacityAt(at, "screenOpacity");
    AscendingTimes times;
    for (std::size_t k = 0; k < device.screenOpacity.size(); ++k) {
        const CompositionKeyframe& keyframe = device.screenOpacity[k];
        const KeyPath keyframeAt(opacityAt, k);
        if (!(keyframe.value >= 0 && keyframe.value <= 1))
            report.tell(Rule::screenOpacityRange, KeyPath(keyframeAt, "value"),
                worded("screenOpacity {} is outside 0…1 — clamped at render.", {keyframe.value}));
        if (!times.accepts(keyframe, keyframe.t))
            report.tell(Rule::keyframeOrder, KeyPath(keyframeAt, "t"),
                "screenOpacity times must be strictly ascending.");
    }
}

void posesLieInTheWindow(
    const LayerScope& scope, const DeviceScene3D& model, const KeyPath& poseAt, LintReport& report) {
    if (model.poseTrack.empty()) return;
    const double lastSec = std::ranges::max(model.poseTrack, {}, &DevicePoseKeyframe::tSec).tSec;
    const double windowSec = writtenWindow(scope.layer, scope.in.scene()).lengthSec();
    if (windowSec + windowSlackSec(scope.in.spec) < lastSec)
        report.tell(Rule::poseLate, poseAt,
            worded(
                "Last pose keyframe at {}s is past the layer's {}s window — scene3D pose times are LAYER-LOCAL (0 = the layer's start), not the reel clock.",
                {apart(lastSec, windowSec), apart(windowSec, lastSec)}));
}

void judgeModel(const LayerScope& scope, const DeviceContent& device, const KeyPath& at, LintReport& report) {
    if (!device.scene3D) return;
    const KeyPath modelAt(at, "scene3D"), poseAt(modelAt, "poseTrack"), depthAt(modelAt, "depthTrack");
    if (hasTrack(scope.layer, {AnimProperty::rotationDeg}))
        report.tell(Rule::flatTurn, modelAt,
            "A 3D device layer owns the phone's rotation (tilt/poseTrack) — a flat rotationDeg keyframe track would spin the finished 3D render. Drop the track or scene3D.");
    timesAscend(device.scene3D->poseTrack, poseAt, "Pose times must be strictly ascending.", report);
    timesAscend(device.scene3D->depthTrack, depthAt, "Depth times must be strictly ascending.", report);
    posesLieInTheWindow(scope, *device.scene3D, poseAt, report);
}

}   // namespace

void checkContent(const LayerScope& scope, const DeviceContent& device, LintReport& report) {
    const KeyPath at(scope.at, "device");
    screenHasAPath(device, at, report);
    screensHaveDevices(device, at, report);
    judgePlacement(scope, device, at, report);
    screenOpacityIsSound(device, at, report);
    judgeModel(scope, device, at, report);
}

}   // namespace tavix::CompositionLint
