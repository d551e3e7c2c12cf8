// What a surface is made of. Colours are linear light, Rec. 709 primaries, 0 to 1.
#pragma once

#include "TavixPlatform/Scene3D/Texture.h"
#include "TavixPlatform/Scene3D/Vectors.h"

#include <string>
#include <variant>

namespace tavix::scene3d {

struct LinearColor {
    float r = 1, g = 1, b = 1;
    bool operator==(const LinearColor&) const = default;
};
// From sRGB-encoded components (IEC 61966-2-1), 0 to 1.
LinearColor linearFromEncoded(double r, double g, double b);

enum class Sides { front, both };   // which sides of a triangle are seen

// Metal or not, with a clearcoat over it. Fractions are 0 to 1 and limited to that when drawn.
struct PhysicallyBased {
    std::string name;
    LinearColor baseColor;
    float metallicFraction = 0;
    float roughness = 0.5f;          // perceptual: the square root of GGX's alpha
    float specularFraction = 0.5f;   // reflectance of what is not metal: 0.5 is 4 %, 1 is 8 % (Burley, 2012)
    float clearcoatFraction = 0;
    float clearcoatRoughness = 0.01f;
    Sides sides = Sides::front;
    bool operator==(const PhysicallyBased&) const = default;
};

// Shows its colour as it stands, whatever the light.
struct Unlit {
    std::string name;
    LinearColor tint;     // times the texture
    TextureRef texture;   // may be empty; opaque wherever the mesh is
    Sides sides = Sides::front;
    bool operator==(const Unlit&) const = default;
};

// Shows nothing and hides what is behind it: the picture is clear where it is nearest.
struct Cutout {
    std::string name;
    Sides sides = Sides::front;
    bool operator==(const Cutout&) const = default;
};

using Material = std::variant<PhysicallyBased, Unlit, Cutout>;

}   // namespace tavix::scene3d
