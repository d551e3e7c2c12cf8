// Light from all around: a picture of the surroundings, prepared for surfaces of every roughness.
#pragma once

#include "TavixPlatform/Scene3D/Vectors.h"

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::scene3d {

// An equirectangular picture in linear light: the top row first, the middle column in the direction -z, a
// quarter to the right of it +x. Values may pass 1.
struct EquirectangularImage {
    int width = 0, height = 0;
    std::vector<Vec3> pixels;
};

class Environment;
using EnvironmentRef = std::shared_ptr<const Environment>;

struct EnvironmentLight {
    EnvironmentRef environment;
    float intensityExponent = 0;   // light is multiplied by 2 to this power
};

// Immutable. Making one takes some tenths of a second.
class Environment {
public:
    // Throws SceneError when the picture is empty, larger than 8192 pixels on a side, or not finite.
    static EnvironmentRef make(const EquirectangularImage& picture);

    // What was made, as a file keeps it. Read back it is the same to the last bit; bytes that are
    // damaged, or of another version of this class, give nothing.
    std::string bytes() const;
    static EnvironmentRef fromBytes(std::string_view bytes);
    static std::size_t byteCount();   // of any

    // Mirror directions of surfaces, by roughness: level i serves roughness i / (levelCount - 1). Each is an
    // octahedral map (Engelhardt and Dachsbacher, 2008) with a border of one texel, four floats a texel.
    static constexpr int levelCount = 32;
    struct Level {
        int sidePx = 0;                 // without the border
        std::uint32_t firstTexel = 0;   // of the border's corner
    };
    std::span<const Level, levelCount> levels() const { return levels_; }
    std::span<const float> texels() const { return texels_; }
    // Irradiance over pi by direction, in nine spherical harmonics (Ramamoorthi and Hanrahan, 2001) with
    // their constants multiplied in: 1, y, z, x, xy, yz, 3z² - 1, xz, x² - y².
    const std::array<Vec3, 9>& irradiance() const { return irradiance_; }

private:
    Environment() = default;
    static std::size_t texelCount();   // of all levels with their borders
    void layOutLevels();               // and room for their texels
    std::array<Level, levelCount> levels_{};
    std::vector<float> texels_;
    std::array<Vec3, 9> irradiance_{};
};

}   // namespace tavix::scene3d
