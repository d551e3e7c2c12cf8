#include "Phone/Outline.h"
#include "Phone/Profile.h"
#include "Phone/Triangulation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <numbers>
#include <random>
#include <stdexcept>

namespace tavix::phone {

namespace {

using std::numbers::pi;

double areaOf(const std::vector<Vec2>& loop) {
    double twice = 0;
    for (std::size_t i = 0; i < loop.size(); ++i) twice += cross(loop[i], loop[(i + 1) % loop.size()]);
    return std::abs(twice) / 2;
}

std::vector<Vec2> star(std::mt19937& random, Vec2 centre, double radius, int points) {
    std::uniform_real_distribution<double> reach(0.4, 1);
    std::vector<Vec2> loop;
    for (int i = 0; i < points; ++i) {
        const double angle = 2 * pi * i / points;
        loop.push_back(centre + Vec2{std::cos(angle), std::sin(angle)} * (radius * reach(random)));
    }
    return loop;
}

// The triangles cover the region once: areas add up, each turns left, and edges within are shared by two.
void expectCovered(const std::vector<std::vector<Vec2>>& loops) {
    std::vector<Vec2> points;
    double area = 0;
    for (std::size_t i = 0; i < loops.size(); ++i) {
        points.insert(points.end(), loops[i].begin(), loops[i].end());
        area += (i == 0 ? 1 : -1) * areaOf(loops[i]);
    }
    double sum = 0;
    std::map<std::pair<std::uint32_t, std::uint32_t>, int> edges;
    const auto triangles = triangulated(loops);
    for (const Triangle& t : triangles) {
        const double twice = cross(points[t[1]] - points[t[0]], points[t[2]] - points[t[0]]);
        EXPECT_GT(twice, 0);
        sum += twice / 2;
        for (std::size_t i = 0; i < 3; ++i) ++edges[{t[i], t[(i + 1) % 3]}];
    }
    EXPECT_NEAR(sum, area, 1e-9 * area);
    EXPECT_EQ(triangles.size(), points.size() + 2 * (loops.size() - 1) - 2);   // Euler
    std::size_t borders = 0;
    for (const auto& [edge, count] : edges) {
        EXPECT_EQ(count, 1);
        borders += !edges.contains({edge.second, edge.first});
    }
    EXPECT_EQ(borders, points.size());
}

TEST(Triangulation, CoversAnyRegionOnce) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        std::vector<std::vector<Vec2>> loops{star(random, {0, 0}, 40, 20 + int(seed) * 5)};
        const int holes = int(seed % 5);
        for (int i = 0; i < holes; ++i)
            loops.push_back(star(random, Vec2{std::cos(i * 1.3), std::sin(i * 1.3)} * 9, 4.5, 9 + i));
        expectCovered(loops);
    }
}

TEST(Triangulation, KeepsPointsOnStraightBorders) {
    expectCovered({{{0, 0}, {1, 0}, {2, 0}, {3, 0}, {3, 1}, {3, 2}, {0, 2}, {0, 1}},
        {{1, 0.5}, {2, 0.5}, {2, 1.5}, {1.5, 1.5}, {1, 1.5}}});
}

TEST(Triangulation, ReachesAHoleBehindAnother) {
    expectCovered({{{0, 0}, {10, 0}, {10, 10}, {0, 10}}, {{8, 4.8}, {8.6, 4.8}, {8.6, 5.2}, {8, 5.2}},
        {{8.8, 0.5}, {9, 0.5}, {9, 9.5}, {8.8, 9.5}}, {{7.5, 0.5}, {7.6, 0.5}, {7.6, 9.5}, {7.5, 9.5}}});
}

TEST(Triangulation, RefusesLoopsThatCross) {
    EXPECT_THROW(triangulated({{{0, 0}, {2, 2}, {2, 0}, {0, 2}}}), std::invalid_argument);
    EXPECT_THROW(
        triangulated({{{0, 0}, {1, 0}, {1, 1}, {0, 1}}, {{5, 5}, {6, 5}, {6, 6}}}), std::invalid_argument);
}

// Curvature by the turn between chords. It starts near nothing, where a circle's would jump to its full.
TEST(Outline, TurnsItsCornersWithoutAJumpInCurvature) {
    const Outline outline = continuousRectangle({60, 100}, 20, 60);
    double largest = 0, largestStep = 0, before = 0;
    for (std::size_t i = 1; i < 60; ++i) {
        const Vec2 in = outline[i].at - outline[i - 1].at, out = outline[i + 1].at - outline[i].at;
        const double curvature = 2 * std::atan2(cross(in, out), dot(in, out)) / (length(in) + length(out));
        largest = std::max(largest, curvature);
        largestStep = std::max(largestStep, std::abs(curvature - before));
        before = curvature;
    }
    EXPECT_LT(largestStep, largest / 12);
    EXPECT_GT(1 / largest, 20 * 0.4);   // room for parallel curves within
}

TEST(Outline, IsSymmetricalToTheLastBitWithNormalsAcrossIt) {
    const Outline outline = continuousRectangle({60, 100}, 20, 16);
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const Station &station = outline[i], &next = outline[(i + 1) % outline.size()];
        const auto mirrored = [&](double x, double y) {
            return std::any_of(outline.begin(), outline.end(), [&](const Station& s) {
                return s.at == Vec2{x, y};
            });
        };
        EXPECT_TRUE(mirrored(-station.at.x, station.at.y));
        EXPECT_TRUE(mirrored(station.at.x, -station.at.y));
        EXPECT_NEAR(length(station.outward), 1, 1e-12);
        const Vec2 chord = normalized(next.at - station.at),
                   across = normalized(station.outward + next.outward);
        EXPECT_NEAR(dot(chord, across), 0, 5e-3);
        EXPECT_GT(dot(across, rightOf(chord)), 0.99);   // outwards of a counterclockwise curve
    }
}

TEST(Profile, RoundsCornersOnBothSidesOfAWay) {
    // Up, right, up again: a right turn, then a left one.
    const Profile profile = section({{{0, 0}}, {{0, 2}, 0.5, 8}, {{4, 2}, 0.5, 8}, {{4, 4}}});
    for (const ProfilePoint& point : profile) EXPECT_NEAR(length(point.facing), 1, 1e-12);
    for (std::size_t i = 0; i + 1 < profile.size(); ++i) {
        const Vec2 way = profile[i + 1].at - profile[i].at;
        if (length(way) < 1e-9) continue;
        EXPECT_GT(dot(rightOf(normalized(way)), profile[i].facing), 0.98) << i;
    }
    EXPECT_EQ(profile.front().at, (Vec2{0, 0}));
    EXPECT_EQ(profile.back().at, (Vec2{4, 4}));
}

}   // namespace

}   // namespace tavix::phone
