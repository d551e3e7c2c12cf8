// Lights, surroundings and surfaces as the shading kernels want them. Inside the library only.
#pragma once

#include "TavixPlatform/Scene3D/EnvironmentLight.h"
#include "TavixPlatform/Scene3D/Frame.h"

#include <cstdint>
#include <vector>

namespace tavix::scene3d {

// Depths seen from a light: 1 over the distance along its axis, 0 where nothing stands. Row 0 at the bottom.
struct ShadowMap {
    static constexpr int sidePx = 1024;
    static constexpr int marginPx = 4;   // empty texels around, so that a filter needs no limits
    static constexpr int stridePx = sidePx + 2 * marginPx;
    View view;
    std::vector<float> inverseDepths;   // stridePx rows of stridePx
};

struct PreparedLight {
    enum class Kind { directional, point, spot };
    Kind kind = Kind::directional;
    Vec3 position;
    Vec3 axis;    // unit; the way the light goes
    Vec3 power;   // radiance units: irradiance at distance 1, or of a directional light anywhere
    float unitsPerLength = 1;   // from world space to the light's own
    float inverseRadius = 0;
    float halfExponent = 1;   // of the square of the distance
    float outerCosine = -1, inverseConeWidth = 1;
    const ShadowMap* shadow = nullptr;
};

struct PreparedEnvironment {
    const Environment* environment = nullptr;
    float intensity = 1;
};

// How much light from everywhere a microfacet surface sends back, split as F0 * scale + bias (Karis, 2013).
// By roughness (rows) and the cosine towards the eye (columns, one more repeated at the end).
struct ReflectanceTable {
    static constexpr int roughnessCount = Environment::levelCount, cosineCount = 64;
    struct Entry {
        float scale, bias;
    };
    Entry entries[roughnessCount][cosineCount + 1];
};
const ReflectanceTable& reflectanceTable();

struct Illumination {
    View camera;
    std::vector<PreparedLight> lights;
    PreparedEnvironment environment;
    const ReflectanceTable* reflectance = nullptr;
    float environmentSides[Environment::levelCount] = {};
    std::int32_t environmentFirst[Environment::levelCount] = {};
};

// A physically based material with its dependent terms worked out.
struct Surface {
    Vec3 reflectance;     // towards the normal, of metal and what is not metal together
    Vec3 diffuse;         // what is left of the base colour for matte reflection
    float metallic = 0;   // share of the metal
    Vec3 metalReflectance;
    float plainReflectance = 0;   // of what is not metal: it keeps light from the matte part below
    float roughness = 0.5f;
    float clearcoat = 0, clearcoatRoughness = 0;
};

}   // namespace tavix::scene3d
