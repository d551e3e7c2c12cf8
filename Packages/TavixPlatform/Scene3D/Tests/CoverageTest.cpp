#include "TavixPlatform/Scene3D/Geometry.h"
#include "TavixPlatform/Scene3D/Tests/Frames.h"
#include "TavixPlatform/Scene3D/Tests/SampleScenes.h"

#include <cmath>
#include <map>
#include <numbers>
#include <random>

#include <gtest/gtest.h>

namespace tavix::scene3d {
namespace {

constexpr int sidePx = 96;   // of the field, in whole tiles

// A disc of rings of points, shaken, with the diagonal of each cell thrown by a coin.
std::vector<Triangle> shakenDisc(std::mt19937& random, Sides sides, bool isTurned) {
    constexpr int around = 40, rings = 12;
    constexpr double radius = 44, middle = sidePx / 2.0;
    std::uniform_real_distribution<double> shake(-0.2, 0.2), depth(0.2, 2);
    std::vector<Corner> points;
    for (int ring = 0; ring <= rings; ++ring) {
        for (int i = 0; i < around; ++i) {
            const bool isRim = ring == rings || ring == 0;
            const double angle = 2 * std::numbers::pi * (i + (isRim ? 0 : shake(random))) / around;
            const double r = radius * (ring + (isRim ? 0 : shake(random))) / rings;
            points.push_back({std::int32_t(std::lround(256 * (middle + r * std::cos(angle)))),
                std::int32_t(std::lround(256 * (middle + r * std::sin(angle)))),
                {0, 0, 1, float(depth(random))}, {}});
        }
    }
    TriangleGroup group;
    TriangleMaker maker(group, {sidePx, sidePx, sidePx / tilePx, false, 0, 0, sides, false});
    const auto add = [&](int a, int b, int c) {
        const auto at = [&](int i) { return points[std::size_t(i)]; };
        isTurned ? maker.add(at(a), at(c), at(b)) : maker.add(at(a), at(b), at(c));
    };
    for (int ring = 0; ring < rings; ++ring) {
        for (int i = 0; i < around; ++i) {
            const int a = ring * around + i, b = ring * around + (i + 1) % around, c = a + around,
                      d = b + around;
            if (random() % 2) {
                add(a, c, b);
                add(b, c, d);
            } else {
                add(a, c, d);
                add(a, d, b);
            }
        }
    }
    return group.triangles;
}

// How often each sample of the field is covered, by position in eighths of a pixel.
std::map<std::pair<int, int>, int> coverageOf(
    const std::vector<Triangle>& triangles, const SamplePattern& pattern) {
    const SceneKernels kernels = bestSceneKernels();
    std::map<std::pair<int, int>, int> counts;
    alignas(64) static float depths[mostTileSamples];
    alignas(64) static std::uint32_t ids[mostTileSamples];
    for (int tile = 0; tile < (sidePx / tilePx) * (sidePx / tilePx); ++tile) {
        const int x0 = tile % (sidePx / tilePx) * tilePx, y0 = tile / (sidePx / tilePx) * tilePx;
        for (const Triangle& triangle : triangles) {
            std::fill_n(depths, pattern.entryCount(), 0.0f);
            std::fill_n(ids, pattern.entryCount(), 0u);
            const Triangle* one = &triangle;
            kernels.rasterise({x0, y0, depths, ids}, pattern, &one, 1);
            for (int i = 0; i < pattern.entryCount(); ++i) {
                const int block = i / samplesPerVector, entry = i % samplesPerVector;
                const int blockX = block % pattern.blocksAcross() << pattern.blockBits;
                const int blockY = block / pattern.blocksAcross() << pattern.blockBits;
                counts[{8 * (x0 + blockX) + pattern.x[std::size_t(entry)],
                    8 * (y0 + blockY) + pattern.y[std::size_t(entry)]}] += ids[i] != 0;
            }
        }
    }
    return counts;
}

// The neighbours of a triangle share its edges, so no sample may be missed or hit twice.
TEST(Coverage, CoversEachSampleOfATriangulatedDiscOnce) {
    std::mt19937 random(7);
    for (const bool isTurned : {false, true}) {
        for (const SamplePattern* pattern : {&onePerPixel(), &fourPerPixel()}) {
            const auto triangles = shakenDisc(random, isTurned ? Sides::both : Sides::front, isTurned);
            int wrong = 0, covered = 0;
            for (const auto& [place, count] : coverageOf(triangles, *pattern)) {
                const double x = place.first / 8.0 - sidePx / 2.0, y = place.second / 8.0 - sidePx / 2.0;
                const double distance = std::sqrt(x * x + y * y);
                if (distance < 43.5) wrong += count != 1;
                if (distance > 44.1) wrong += count != 0;
                wrong += count > 1;
                covered += count;
            }
            EXPECT_EQ(wrong, 0);
            EXPECT_NEAR(covered / double(pattern->samplesPerPixel()), std::numbers::pi * 44 * 44, 40);
        }
    }
}

TEST(Coverage, TurnsAwayWhatIsSeenFromBehind) {
    std::mt19937 random(3);
    EXPECT_TRUE(shakenDisc(random, Sides::front, true).empty());
}

// A floor that passes under the camera and behind it fills the picture below the horizon and nothing above.
TEST(Coverage, ClipsWhatPassesTheCamera) {
    Renderer renderer({.threadCount = 1});
    for (const double yawDeg : {0.0, 37.0, 90.0, 200.0}) {
        Scene scene{Entity::make(), samples::cameraAt(0, 70), {}};
        EntityRef floor = samples::entityOf(samples::quad(5000, 5000), Unlit{});
        floor->transform.orientation = Rotation::about({0, 1, 0}, yawDeg) * Rotation::about({1, 0, 0}, -90);
        floor->transform.position = {3, -1, 2};
        scene.root->add(floor);
        const samples::Picture picture = samples::linear(renderer, scene, {{64, 48}});
        for (int y = 0; y < 48; ++y)
            for (int x = 0; x < 64; ++x)
                ASSERT_EQ(picture.at(x, y)[3], y < 24 ? 1 : 0) << yawDeg << " " << x << " " << y;
    }
}

}   // namespace
}   // namespace tavix::scene3d
