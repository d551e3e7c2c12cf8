#include "TavixPlatform/Scene3D/Geometry.h"
#include "TavixPlatform/Scene3D/Tests/Frames.h"
#include "TavixPlatform/Scene3D/Tests/SampleScenes.h"
#include "TavixPlatform/Scene3D/TileStage.h"

#include <cmath>
#include <numbers>
#include <random>
#include <span>

#include <gtest/gtest.h>

namespace tavix::scene3d {
namespace {

constexpr int sidePx = 96;   // of the field, in whole tiles
const SamplePattern* const patterns[] = {
    &onePerPixel(), &fourPerPixel(), &sixteenPerPixel(), &sixtyFourPerPixel()};

// A disc of rings of points, shaken, with the diagonal of each cell thrown by a coin.
std::vector<Triangle> shakenDisc(std::mt19937& random, Sides sides, bool isTurned, int unitBits) {
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
    TriangleMaker maker(group, {sidePx, sidePx, sidePx / tilePx, unitBits, 0, 0, sides, false});
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

// The samples of a tile after the triangles.
struct DrawnTile {
    DrawnTile(int x0, int y0, const SamplePattern& pattern, std::span<const Triangle* const> triangles)
        : grid(clearedGrid(x0, y0, pattern, scratch)),
          count(std::size_t(pattern.cellCount()) * samplesPerCell) {
        const SceneKernels kernels = bestSceneKernels();
        kernels.rasterise(grid, pattern, triangles.data(), triangles.size());
        kernels.spread(grid, pattern, triangles.data());
    }
    imaging::Scratch scratch;
    CellGrid grid;
    std::size_t count;
};

bool mayTouch(const Triangle& t, int x0, int y0) {
    const auto [left, right] = std::minmax({t.x[0], t.x[1], t.x[2]});
    const auto [low, high] = std::minmax({t.y[0], t.y[1], t.y[2]});
    const auto within = [](int least, int most, int tile) {
        return most >= tile * 256 && least <= (tile + tilePx) * 256;
    };
    return within(left, right, x0) && within(low, high, y0);
}

struct SampleCount {
    double x, y;   // pixels
    int triangles;
};
// How many triangles cover each sample of the field.
std::vector<SampleCount> coverageOf(const std::vector<Triangle>& triangles, const SamplePattern& pattern) {
    const double unitPx = double(1 << pattern.unitBits) / 256, cellPx = double(1 << pattern.cellBits()) / 256;
    std::vector<SampleCount> counts;
    for (int tile = 0; tile < (sidePx / tilePx) * (sidePx / tilePx); ++tile) {
        const int x0 = tile % (sidePx / tilePx) * tilePx, y0 = tile / (sidePx / tilePx) * tilePx;
        const std::size_t first = counts.size();
        for (int i = 0; i < pattern.cellCount() * samplesPerCell; ++i) {
            const int cell = i / samplesPerCell, across = pattern.cellsAcross();
            const auto sample = std::size_t(i % samplesPerCell);
            counts.push_back({x0 + cell % across * cellPx + pattern.x[sample] * unitPx,
                y0 + cell / across * cellPx + pattern.y[sample] * unitPx, 0});
        }
        for (const Triangle& triangle : triangles) {
            if (!mayTouch(triangle, x0, y0)) continue;
            const Triangle* one = &triangle;
            const DrawnTile drawn(x0, y0, pattern, {&one, 1});
            for (std::size_t i = 0; i < drawn.count; ++i)
                counts[first + i].triangles += drawn.grid.ids[i] != 0;
        }
    }
    return counts;
}

// Triangles of all sizes at all depths, many of them through each other.
std::vector<Triangle> heap(std::mt19937& random, int count, int unitBits) {
    TriangleGroup group;
    TriangleMaker maker(group, {sidePx, sidePx, sidePx / tilePx, unitBits, 0, 0, Sides::both, false});
    std::uniform_real_distribution<double> place(-20, sidePx + 20), depth(0.2, 2), size(0.5, 3);
    for (int i = 0; i < count; ++i) {
        const double x = place(random), y = place(random), reach = std::pow(5, size(random));
        std::uniform_real_distribution<double> offset(-reach, reach);
        const float common = float(depth(random));
        const auto corner = [&] {
            const float own = i % 3 ? common : float(depth(random));   // many are parallel, some even equal
            return Corner{std::int32_t(256 * (x + offset(random))), std::int32_t(256 * (y + offset(random))),
                {0, 0, 1, i % 5 ? own : 1}, {}};
        };
        maker.add(corner(), corner(), corner());
    }
    return group.triangles;
}

// The neighbours of a triangle share its edges, so no sample may be missed or hit twice.
TEST(Coverage, CoversEachSampleOfATriangulatedDiscOnce) {
    std::mt19937 random(7);
    for (const bool isTurned : {false, true}) {
        for (const SamplePattern* pattern : patterns) {
            const auto triangles =
                shakenDisc(random, isTurned ? Sides::both : Sides::front, isTurned, pattern->unitBits);
            int wrong = 0, covered = 0;
            for (const auto& [x, y, count] : coverageOf(triangles, *pattern)) {
                const double distance = std::hypot(x - sidePx / 2.0, y - sidePx / 2.0);
                if (distance < 43.5) wrong += count != 1;
                if (distance > 44.1) wrong += count != 0;
                wrong += count > 1;
                covered += count;
            }
            EXPECT_EQ(wrong, 0);
            EXPECT_NEAR(covered / double(pattern->samplesPerPixel), std::numbers::pi * 44 * 44, 40);
        }
    }
}

TEST(Coverage, TurnsAwayWhatIsSeenFromBehind) {
    std::mt19937 random(3);
    EXPECT_TRUE(shakenDisc(random, Sides::front, true, fourPerPixel().unitBits).empty());
}

// Drawn together, triangles give each sample what each of them gives alone where it is nearest: cells that
// are known whole, taken over or hidden never change that.
TEST(Coverage, KeepsTheNearestOfAllAtEverySample) {
    std::mt19937 random(11);
    for (const SamplePattern* pattern : patterns) {
        const std::vector<Triangle> triangles = heap(random, 150, pattern->unitBits);
        std::vector<const Triangle*> all;
        for (const Triangle& triangle : triangles) all.push_back(&triangle);
        for (const int x0 : {0, 32, 64}) {
            const DrawnTile together(x0, 32, *pattern, all);
            std::vector<float> depths(together.count, 0.0f);
            std::vector<std::uint32_t> ids(together.count, 0u);
            for (std::size_t t = 0; t < all.size(); ++t) {
                const DrawnTile alone(x0, 32, *pattern, {&all[t], 1});
                for (std::size_t i = 0; i < together.count; ++i)
                    if (alone.grid.inverseDepths[i] > depths[i]) {
                        depths[i] = alone.grid.inverseDepths[i];
                        ids[i] = std::uint32_t(t + 1);
                    }
            }
            EXPECT_TRUE(std::equal(ids.begin(), ids.end(), together.grid.ids)) << pattern->samplesPerPixel;
            EXPECT_TRUE(std::equal(depths.begin(), depths.end(), together.grid.inverseDepths));
            EXPECT_LT(std::size_t(std::ranges::count(ids, 0u)), 2 * together.count / 3);
        }
    }
}

// A line thinner than a pixel is as bright all along: its light does not gather in beads where samples happen
// to lie in it.
TEST(Coverage, DrawsAThinLineEvenly) {
    const struct {
        Samples samples;
        double mostUneven;   // by how much a column may pass the mean
    } cases[] = {{Samples::sixteen, 0.45}, {Samples::sixtyFour, 0.15}};
    Renderer renderer({.threadCount = 1});
    for (const auto& [samples, mostUneven] : cases) {
        for (const double slope : {2.0, 7.0, 21.0}) {
            Scene scene{Entity::make(), samples::cameraAt(3, 30), {}};
            constexpr int side = 120;
            const double unitsPerPx = 2 * 3 * std::tan(15 * std::numbers::pi / 180) / side;
            EntityRef line = samples::entityOf(samples::quad(4, float(0.4 * unitsPerPx)), Unlit{});
            line->transform.orientation = Rotation::about({0, 0, 1}, slope);
            scene.root->add(line);
            const samples::Picture picture = samples::linear(renderer, scene, {{side, side}, samples});
            const double expected = 0.4 / std::cos(slope * std::numbers::pi / 180);
            for (int x = 10; x < side - 10; ++x) {
                double sum = 0;
                for (int y = 0; y < side; ++y) sum += double(picture.at(x, y)[3]);
                ASSERT_NEAR(sum, expected, expected * mostUneven) << slope << " degrees, column " << x;
            }
        }
    }
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
