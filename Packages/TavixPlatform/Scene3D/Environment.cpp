#include "TavixPlatform/Scene3D/EnvironmentLight.h"
#include "TavixPlatform/Scene3D/OctahedralMap.h"
#include "TavixPlatform/Scene3D/Sampling.h"
#include "TavixPlatform/Scene3D/SceneError.h"

#include "TavixPlatform/Imaging/StopScope.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace tavix::scene3d {

namespace {

constexpr int mostSidePx = 8192;
constexpr int baseSidePx = 256;

void requireUsable(const EquirectangularImage& picture) {
    const auto size = std::to_string(picture.width) + " x " + std::to_string(picture.height);
    if (picture.width < 2 || picture.height < 2 || picture.width > mostSidePx || picture.height > mostSidePx)
        throw SceneError("A picture of the surroundings must have 2 to " + std::to_string(mostSidePx) +
                         " pixels on a side, but has " + size + ".");
    if (picture.pixels.size() != std::size_t(picture.width) * std::size_t(picture.height))
        throw SceneError(
            "The picture of the surroundings does not hold the pixels of its size, " + size + ".");
    for (const Vec3& pixel : picture.pixels)
        if (!isFinite(pixel) || std::min({pixel.x, pixel.y, pixel.z}) < 0)
            throw SceneError("The picture of the surroundings holds light that is negative or not finite.");
}

// Half the size, while it is much finer than the maps that are made of it.
EquirectangularImage reduced(const EquirectangularImage& picture) {
    EquirectangularImage result = picture;
    while (result.width > 6 * baseSidePx && result.width % 2 == 0 && result.height % 2 == 0) {
        EquirectangularImage half{result.width / 2, result.height / 2, {}};
        for (int y = 0; y < half.height; ++y) {
            for (int x = 0; x < half.width; ++x) {
                const Vec3* p =
                    &result.pixels[std::size_t(2 * y) * std::size_t(result.width) + std::size_t(2 * x)];
                half.pixels.push_back((p[0] + p[1] + p[result.width] + p[result.width + 1]) * 0.25f);
            }
        }
        result = std::move(half);
    }
    return result;
}

// The picture through a cubic B-spline: smooth, so that a coarse picture's soft edges stay clean in a mirror.
Vec3 smoothAt(const EquirectangularImage& picture, Vec3 direction) {
    const double turns = turnsOf(double(direction.x), -double(direction.z));
    const double across =
        std::sqrt(double(direction.x) * double(direction.x) + double(direction.z) * double(direction.z));
    const double u = (turns + 0.5) * picture.width - 0.5;
    const double v = 2 * turnsOf(across, double(direction.y)) * picture.height - 0.5;
    const double wholeU = std::floor(u), wholeV = std::floor(v);
    const auto weights = [](double t, float(&w)[4]) {
        const double s = 1 - t;
        w[0] = float(s * s * s / 6);
        w[1] = float((4 - 6 * t * t + 3 * t * t * t) / 6);
        w[2] = float((4 - 6 * s * s + 3 * s * s * s) / 6);
        w[3] = float(t * t * t / 6);
    };
    float wu[4], wv[4];
    weights(u - wholeU, wu);
    weights(v - wholeV, wv);
    Vec3 sum;
    for (int j = 0; j < 4; ++j) {
        const int y = std::clamp(int(wholeV) + j - 1, 0, picture.height - 1);
        for (int i = 0; i < 4; ++i) {
            const int x = (int(wholeU) + i - 1 + 2 * picture.width) % picture.width;
            sum = sum + picture.pixels[std::size_t(y) * std::size_t(picture.width) + std::size_t(x)] *
                            (wu[i] * wv[j]);
        }
    }
    return sum;
}

// What a mirror lobe looks at, around (0, 0, 1): where, how much it counts, and on which reduced map.
struct LobeSample {
    Vec3 direction;
    float weight;
    std::size_t map;
};

// GGX seen straight on (Karis, 2013), with each sample as wide as its share of the lobe (Křivánek and
// Colbert, 2008).
std::vector<LobeSample> lobeOf(double roughness, int count, std::size_t mapCount) {
    const double alpha = roughness * roughness, alpha2 = alpha * alpha;
    constexpr double pi = 3.14159265358979324;
    std::vector<LobeSample> lobe;
    double total = 0;
    for (int i = 0; i < count; ++i) {
        const FacetSample h = facetSample(i, count, alpha);
        const double cosine = 2 * h.z * h.z - 1;
        if (cosine <= 0) continue;
        const double base = h.z * h.z * (alpha2 - 1) + 1;
        const double density = alpha2 / (pi * base * base) / 4;
        const double solidAngle = 1 / (count * density), texel = 4 * pi / (baseSidePx * baseSidePx);
        std::size_t map = 0;   // one level blurrier than the share, so that samples overlap
        for (double area = texel; area < solidAngle * 2 && map + 1 < mapCount; area *= 4) ++map;
        lobe.push_back({{float(2 * h.z * h.x), float(2 * h.z * h.y), float(cosine)}, float(cosine), map});
        total += cosine;
    }
    for (LobeSample& sample : lobe) sample.weight = float(double(sample.weight) / total);
    return lobe;
}

OctahedralMap filteredMap(
    imaging::ParallelLoop& loop, const std::vector<OctahedralMap>& maps, int sidePx, double roughness) {
    const std::vector<LobeSample> lobe = lobeOf(roughness, sidePx >= 128 ? 40 : 96, maps.size());
    OctahedralMap result(sidePx);
    result.fill(loop, [&](Vec3 n) {
        imaging::checkStop();
        const Vec3 side = normalized(cross(std::abs(n.y) < 0.99f ? Vec3{0, 1, 0} : Vec3{1, 0, 0}, n));
        const Vec3 other = cross(n, side);
        Vec3 sum;
        for (const LobeSample& s : lobe) {
            const Vec3 d = side * s.direction.x + other * s.direction.y + n * s.direction.z;
            sum = sum + maps[s.map].at(d) * s.weight;
        }
        return sum;
    });
    return result;
}

std::array<Vec3, 9> irradianceOf(const OctahedralMap& map) {
    std::array<Vec3, 9> sums{};
    float total = 0;
    map.forEach([&](Vec3 d, Vec3 light, float solidAngle) {
        const float basis[9] = {
            1, d.y, d.z, d.x, d.x * d.y, d.y * d.z, 3 * d.z * d.z - 1, d.x * d.z, d.x * d.x - d.y * d.y};
        for (std::size_t i = 0; i < 9; ++i) sums[i] = sums[i] + light * (basis[i] * solidAngle);
        total += solidAngle;
    });
    // The squares of the harmonics' constants times 4 pi, and the cosine lobe's share of each band over pi.
    constexpr float factors[9] = {1, 3 * 2 / 3.0f, 3 * 2 / 3.0f, 3 * 2 / 3.0f, 15 / 4.0f, 15 / 4.0f,
        5 / 4.0f / 4, 15 / 4.0f, 15 / 4.0f / 4};
    for (std::size_t i = 0; i < 9; ++i) sums[i] = sums[i] * (factors[i] / total);
    return sums;
}

int sideOf(int level) { return level < 5 ? 256 : level < 12 ? 128 : 64; }
std::size_t texelsOf(int sidePx) { return std::size_t(sidePx + 2) * std::size_t(sidePx + 2); }

}   // namespace

std::size_t Environment::texelCount() {
    std::size_t texels = 0;
    for (int i = 0; i < levelCount; ++i) texels += texelsOf(sideOf(i));
    return texels;
}

void Environment::layOutLevels() {
    std::size_t first = 0;
    for (int i = 0; i < levelCount; first += texelsOf(sideOf(i)), ++i)
        levels_[std::size_t(i)] = {sideOf(i), std::uint32_t(first)};
    texels_.resize(texelCount() * 4);
}

EnvironmentRef Environment::make(const EquirectangularImage& picture) {
    requireUsable(picture);
    const EquirectangularImage source = reduced(picture);
    std::vector<OctahedralMap> maps;
    imaging::ParallelLoop loop(0);
    maps.emplace_back(baseSidePx).fill(loop, [&](Vec3 d) { return smoothAt(source, d); });
    while (maps.back().sidePx() > 8) maps.push_back(maps.back().halved());

    const std::shared_ptr<Environment> result(new Environment());
    result->layOutLevels();
    for (int i = 0; i < levelCount; ++i) {
        const double roughness = double(i) / (levelCount - 1);
        const Level& level = result->levels_[std::size_t(i)];
        const OctahedralMap map = i == 0 ? maps[0] : filteredMap(loop, maps, level.sidePx, roughness);
        std::ranges::copy(map.texels(), result->texels_.begin() + std::ptrdiff_t(level.firstTexel) * 4);
    }
    result->irradiance_ = irradianceOf(maps[2]);
    return result;
}

}   // namespace tavix::scene3d
