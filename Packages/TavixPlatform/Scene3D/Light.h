// Lights and cameras. Both look along the -z axis of their entity.
//
// Light is photometric and divided by 683 lm/W, so a white matte surface that faces a directional light of
// 683 pi lux (2146) shows as 1.
#pragma once

#include "TavixPlatform/Scene3D/Material.h"

#include <variant>

namespace tavix::scene3d {

// Distances are measured in the light's own units: a rig that is scaled as a whole looks the same.
struct Attenuation {
    float radius = 10;           // nothing is lit beyond; the last part fades smoothly
    float falloffExponent = 2;   // light falls with distance to this power
    bool operator==(const Attenuation&) const = default;
};

struct SpotLight {
    LinearColor color;
    float intensityLumen = 6741;   // pi times the candela along the axis
    float innerAngleDeg = 45,
          outerAngleDeg = 60;   // from the axis: full light up to the inner, none beyond the outer
    Attenuation attenuation;
    bool castsShadow = false;
    bool operator==(const SpotLight&) const = default;
};

struct PointLight {
    LinearColor color;
    float intensityLumen = 26964;   // 4 pi times the candela
    Attenuation attenuation;
    bool operator==(const PointLight&) const = default;
};

struct DirectionalLight {
    LinearColor color;
    float intensityLux = 2146;
    bool operator==(const DirectionalLight&) const = default;
};

using Light = std::variant<SpotLight, PointLight, DirectionalLight>;

// The field of view is vertical.
struct PerspectiveCamera {
    float fieldOfViewDeg = 60;
    float near = 0.01f, far = 100;
    bool operator==(const PerspectiveCamera&) const = default;
};

}   // namespace tavix::scene3d
