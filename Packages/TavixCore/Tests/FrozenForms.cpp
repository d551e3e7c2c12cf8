#include "TavixCore/Tests/FrozenForms.h"

#include "TavixCore/Animation/AnimationEnums.h"
#include "TavixCore/Device/DeviceFinish.h"
#include "TavixCore/Support/Names.h"
#include "TavixCore/Tests/FrozenTable.h"

#include <algorithm>
#include <variant>

namespace tavix::frozen {
namespace {

template <class Keyframes, class Form> Json formOfEach(const Keyframes& keyframes, Form form) {
    JsonArray forms;
    for (const auto& keyframe : keyframes) forms.push_back(form(keyframe));
    return forms;
}

Json vectorForm(const Vector3& vector) { return numbers({vector.x, vector.y, vector.z}); }

Json easeForm(const std::vector<CompositionKeyframe>& keyframes) {
    JsonArray eases;
    for (const CompositionKeyframe& keyframe : keyframes) eases.push_back(curveForm(keyframe.ease));
    const bool areAlike = std::ranges::all_of(eases, [&](const Json& ease) { return ease == eases.front(); });
    return areAlike && !eases.empty() ? eases.front() : Json(eases);
}

}   // namespace

Json numbers(std::initializer_list<double> values) { return JsonArray(values.begin(), values.end()); }

Json curveForm(const TimingCurve& curve) {
    if (const auto* bezier = std::get_if<BezierCurve>(&curve))
        return numbers({bezier->x1, bezier->y1, bezier->x2, bezier->y2});
    if (const auto* spring = std::get_if<SpringCurve>(&curve))
        return JsonObject{{"response", spring->responseSec}, {"damping", spring->damping}};
    return "linear";
}

TimingCurve curveIn(const Json& form) {
    if (form.object()) return SpringCurve{number(form, "response"), number(form, "damping")};
    if (const JsonArray* points = form.array())
        return BezierCurve{points->at(0).doubleValue().value(), points->at(1).doubleValue().value(),
            points->at(2).doubleValue().value(), points->at(3).doubleValue().value()};
    return LinearCurve{};
}

Json scalarsForm(const std::vector<DeviceScalarKeyframe>& keyframes) {
    return formOfEach(keyframes, [](const DeviceScalarKeyframe& k) { return numbers({k.tSec, k.value}); });
}

Json posesForm(const std::vector<DevicePoseKeyframe>& keyframes) {
    return formOfEach(keyframes, [](const DevicePoseKeyframe& k) {
        return numbers({k.tSec, k.tiltDegrees.x, k.tiltDegrees.y, k.tiltDegrees.z});
    });
}

Json placesForm(const std::vector<DevicePlacementKeyframe>& keyframes) {
    return formOfEach(keyframes, [](const DevicePlacementKeyframe& k) {
        JsonArray place{k.tSec, k.offset.x, k.offset.y, k.scale};
        if (k.move) place.emplace_back(*k.move);
        return Json(place);
    });
}

Json tracksForm(const std::vector<PropertyTrack>& tracks) {
    return formOfEach(tracks, [](const PropertyTrack& track) {
        const Json values = formOfEach(track.keyframes, [](const CompositionKeyframe& k) {
            return numbers({k.t, k.value});
        });
        return Json(JsonArray{nameOf(track.property), easeForm(track.keyframes), values});
    });
}

JsonObject deviceForm(const DevicePlacementSpec& placement, const std::optional<DeviceScene3D>& scene) {
    JsonObject form{{"places", placesForm(placement.track)},
        {"placeSpring", numbers({placement.responseSec, placement.damping})}};
    if (!scene) return form;
    form.merge({{"finish", nameOf(scene->finish)}, {"tilt", vectorForm(scene->tiltDegrees)},
        {"drift", numbers({scene->driftDegrees, scene->driftPeriodSec})}, {"distance", scene->cameraDistance},
        {"light", scene->lightIntensity}, {"keyLight", vectorForm(scene->keyLightDegrees)},
        {"fov", scene->fovDegrees}, {"blur", scene->motionBlur},
        {"poseSpring", numbers({scene->poseResponseSec, scene->poseDamping})},
        {"poses", posesForm(scene->poseTrack)}, {"depths", scalarsForm(scene->depthTrack)}});
    return form;
}

Json phaseForm(const KineticPhase& phase) {
    JsonObject form{{"seconds", phase.durationSec}, {"curve", curveForm(phase.curve)}};
    const auto add = [&](std::string_view key, bool isAtRest, const Json& value) {
        if (!isAtRest) form.set(key, value);
    };
    add("opacity", phase.opacity == 1, phase.opacity);
    add("offset", phase.offset == NormalizedVec2{}, numbers({phase.offset.x, phase.offset.y}));
    add("scale", phase.scale == 1, phase.scale);
    add("rotation", phase.rotationDeg == Vector3{}, vectorForm(phase.rotationDeg));
    add("skew", phase.skewXDeg == 0 && phase.skewYDeg == 0, numbers({phase.skewXDeg, phase.skewYDeg}));
    add("tracking", phase.trackingEm == 0, phase.trackingEm);
    add("blur", phase.blurRadiusFraction == 0, phase.blurRadiusFraction);
    add("clip", phase.clipToBounds == ClipMask::none, nameOf(phase.clipToBounds));
    add("motionBlur", phase.motionBlur == 0, phase.motionBlur);
    if (const auto& c = phase.color) form.set("color", numbers({c->r, c->g, c->b, c->a}));
    return form;
}

}   // namespace tavix::frozen
