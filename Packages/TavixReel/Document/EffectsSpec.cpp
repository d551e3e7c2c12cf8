#include "TavixReel/Document/EffectsSpec.h"

#include "TavixCore/Device/ChoreographyAuthor.h"
#include "TavixCore/Document/TransitionMath.h"
#include "TavixCore/Support/FieldTables.h"

#include <algorithm>
#include <utility>

namespace tavix {
namespace {

constexpr double leastResponseSec = 0.001;

// When a transition that starts here has settled, whatever the document says.
double leastRevealSec(const ScreenTransition& transition) {
    double reveal = transition.atSec + ScreenTransition::usualLengthSec;
    const auto& timing = transition.timing;
    if (timing && timing->kind == TransitionTimingSpec::Kind::spring)
        reveal = std::max(reveal, transition.atSec + TransitionMath::springSettleDurationSec(
                                                         timing->response.value_or(timing->defaultResponse),
                                                         timing->damping.value_or(timing->defaultDamping)));
    return reveal;
}

void fixWindows(std::vector<ScreenTransition>& sorted) {
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        double reveal = std::max(sorted[i].revealSec, leastRevealSec(sorted[i]));
        if (i + 1 < sorted.size()) reveal = std::min(reveal, sorted[i + 1].atSec);
        sorted[i].revealSec = reveal;
    }
}

void mirrorFlips(const std::vector<ScreenTransition>& transitions, DeviceScene& scene) {
    scene.flips.clear();
    std::vector<double> timesSec;
    for (const ScreenTransition& transition : transitions)
        if (transition.style == TransitionStyle::flip) {
            scene.flips.push_back({transition.atSec, transition.revealSec});
            timesSec.push_back(transition.atSec);
        }
    scene.poseTrack = ChoreographyAuthor::flipTrack(std::move(timesSec), scene.tiltDegrees);
}

}   // namespace

std::vector<ScreenTransition> flipMirror(const std::optional<DeviceScene>& scene) {
    std::vector<ScreenTransition> transitions;
    if (!scene) return transitions;
    for (const CardFlip& flip : scene->flips) {
        ScreenTransition& transition = transitions.emplace_back();
        transition.atSec = flip.atSec;
        transition.revealSec = std::max(flip.revealSec, flip.atSec + ScreenTransition::leastLengthSec);
        transition.style = TransitionStyle::flip;
    }
    return transitions;
}

std::optional<DevicePlacementSpec> placementMirror(const std::optional<DeviceScene>& scene) {
    if (!scene || scene->placementTrack.empty()) return std::nullopt;
    return DevicePlacementSpec{scene->placementTrack, std::max(scene->placementResponseSec, leastResponseSec),
        scene->placementDamping};
}

void EffectsSpec::setTransitions(std::vector<ScreenTransition> transitions) {
    std::ranges::stable_sort(transitions, {}, &ScreenTransition::atSec);
    fixWindows(transitions);
    transitions_ = std::move(transitions);
    if (deviceScene) mirrorFlips(transitions_, *deviceScene);
}

void EffectsSpec::setDevicePlacement(std::optional<DevicePlacementSpec> placement) {
    if (placement && placement->track.empty()) placement.reset();
    if (placement) {
        std::ranges::stable_sort(placement->track, {}, &DevicePlacementKeyframe::tSec);
        placement->responseSec = std::max(placement->responseSec, leastResponseSec);
    }
    devicePlacement_ = std::move(placement);
    if (!deviceScene) return;
    const DevicePlacementSpec mirrored = devicePlacement_.value_or(DevicePlacementSpec{});
    deviceScene->placementTrack = mirrored.track;
    deviceScene->placementResponseSec = mirrored.responseSec;
    deviceScene->placementDamping = mirrored.damping;
}

const Fields<EffectsSpec>& fieldsOf(std::type_identity<EffectsSpec>) {
    using E = EffectsSpec;
    // Older documents say transitions and places in the scene.
    const auto readScene = [](const Json& json, void* record, const KeyPath& at) {
        auto& into = *static_cast<E*>(record);
        readValue(typeOf<DeviceScene>(), json, &into.deviceScene.emplace(), at);
        into.transitions_ = flipMirror(into.deviceScene);
        into.devicePlacement_ = placementMirror(into.deviceScene);
    };
    static const Fields<E> table{"Effects",
        {field<&E::schemaVersion>("schemaVersion", "The version of the format."),
            field<&E::output>("output", "The frame of the finished reel.").required(),
            field<&E::background>("background", "What is behind the recording."),
            field<&E::cameraTrack>("cameraTrack", "What the camera looks at, in time."),
            field<&E::motion>("motion", "How the camera moves."),
            field<&E::cuts>("cuts", "What is left out."),
            field<&E::retimeTrack>("retimeTrack", "What is played at another pace."),
            field<&E::retimeFrames>("retimeFrames",
                "What frames of it show: the picture of their time, or a mix of those that pass in it.")
                .unlessDefault(),
            field<&E::narration>("narration", "The captions."),
            field<&E::brand>("brand", "The look of the application."),
            // The scene stands before what it mirrors, so that a key of their own wins.
            field<&E::deviceScene>("deviceScene", "The device as a model in space.").readBy(readScene),
            field<&E::titleCards>("titleCards", "Cards between the footage.").unlessDefault(),
            field<&E::transitions_>("transitions", "Moments at which one screen gives way to another.")
                .writtenIf([](const E& e) {
                    return !e.transitions().empty() && e.transitions() != flipMirror(e.deviceScene);
                }),
            field<&E::devicePlacement_>("devicePlacement", "Where the device stands, in time.")
                .writtenIf([](const E& e) {
                    return e.devicePlacement() && !e.devicePlacement()->track.empty() &&
                           e.devicePlacement() != placementMirror(e.deviceScene);
                }),
            field<&E::soundCues>("soundCues", "Sounds at their moments.").unlessDefault(),
            field<&E::cutDressing>("cutDressing", "Light on the seams of cuts."),
            field<&E::sideCaptions>("sideCaptions", "How the device makes room for captions.")}};
    return table;
}

}   // namespace tavix
