// Records of the program in the short forms of the frozen files.
#pragma once

#include "TavixCore/Animation/PropertyTrack.h"
#include "TavixCore/Animation/TimingCurve.h"
#include "TavixCore/Device/DevicePlacement.h"
#include "TavixCore/Device/DeviceScene.h"
#include "TavixCore/Support/Json.h"
#include "TavixCore/Typography/KineticStyle.h"

#include <initializer_list>
#include <optional>
#include <vector>

namespace tavix::frozen {

Json numbers(std::initializer_list<double> values);

// "linear", the four numbers of a bezier, or a spring's {"response", "damping"}.
Json curveForm(const TimingCurve& curve);
TimingCurve curveIn(const Json& form);

// [[t, value], ...]
Json scalarsForm(const std::vector<DeviceScalarKeyframe>& keyframes);
// [[t, pitch, yaw, roll], ...]
Json posesForm(const std::vector<DevicePoseKeyframe>& keyframes);
// [[t, x, y, scale], ...], a named move behind its numbers.
Json placesForm(const std::vector<DevicePlacementKeyframe>& keyframes);
// [[property, curve, [[t, value], ...]], ...]; a list of curves where keyframes differ.
Json tracksForm(const std::vector<PropertyTrack>& tracks);

// Where a device goes and, when it is one in space, how it turns and is lit.
JsonObject deviceForm(const DevicePlacementSpec& placement, const std::optional<DeviceScene3D>& scene);

// Length and curve, and all in which the phase differs from rest.
Json phaseForm(const KineticPhase& phase);

}   // namespace tavix::frozen
