#include "Icons/Icons.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

namespace tavix::icons {
namespace {

int partAt(const imaging::Bitmap& picture, double across, double down, int part) {
    const int sidePx = picture.size().width;
    return picture.view().row(int(down * sidePx))[4 * int(across * sidePx) + part];
}

TEST(Rounded, TellsDistancesOfABoxWithRoundCorners) {
    const Rounded box = roundedBox(0, 0, 10, 6, 2, {{}, {}, {{0, {}}}});
    const struct {
        Point at;
        double distance;
    } cases[] = {{{5, 3}, -3}, {{5, -1}, 1}, {{12, 3}, 2}, {{2, 2}, -2}, {{-1, -2}, 3}, {{0, 3}, 0}};
    for (const auto& c : cases) EXPECT_NEAR(box.distance(c.at), c.distance, 1e-12) << c.at.x << " " << c.at.y;
}

TEST(Rounded, OfALineIsAllThatLiesNearIt) {
    const Rounded bar = roundedBox(0, 0, 10, 2, 1, {{}, {}, {{0, {}}}});
    EXPECT_NEAR(bar.distance({5, 1}), -1, 1e-12);
    EXPECT_NEAR(bar.distance({20, 1}), 10, 1e-12) << "beyond its end, on the same line";
}

TEST(Ramp, IsItsStopsAndLevelBetweenThem) {
    const Ramp ramp{{0, 0}, {10, 0}, {{0, {0, 0, 0}}, {0.5, {1, 0, 0}}, {1, {1, 1, 0}}}};
    EXPECT_NEAR(ramp.at({-5, 3}).red, 0, 1e-12);
    EXPECT_NEAR(ramp.at({2.5, 9}).red, 0.5, 1e-12);
    EXPECT_NEAR(ramp.at({7.5, 0}).green, 0.5, 1e-12);
    EXPECT_NEAR(ramp.at({99, 0}).green, 1, 1e-12);
}

TEST(Icons, ShowTheMarkInEverySizeOnClearGround) {
    for (const Icon& icon : all())
        for (const int sidePx : sidesPx) {
            SCOPED_TRACE(std::string(icon.name) + " " + std::to_string(sidePx));
            const imaging::Bitmap picture = icon.drawing(sidePx).drawn(sidePx);
            ASSERT_EQ(picture.size(), (imaging::Size{sidePx, sidePx}));
            EXPECT_LT(partAt(picture, 0, 0, 3), 128) << "the corner is cut";
            // In the middle stands the button; beside it the ground, with enough between them to be told
            // apart.
            const auto light = [&](double across) {
                return (partAt(picture, across, 0.55, 1) + partAt(picture, across, 0.55, 2)) / 2;
            };
            EXPECT_EQ(partAt(picture, 0.5, 0.55, 3), 255);
            EXPECT_GT(std::abs(light(0.5) - light(0.2)), 70);
            // Premultiplied pixels have no more colour than they are there.
            for (int y = 0; y < sidePx; ++y)
                for (int x = 0; x < sidePx; ++x)
                    for (int part = 0; part < 3; ++part)
                        ASSERT_LE(picture.view().row(y)[4 * x + part], picture.view().row(y)[4 * x + 3]);
        }
}

TEST(Icons, AreTheSameShapesInEverySizeThatIsLarge) {
    for (const Icon& icon : all()) {
        const imaging::Bitmap large = icon.drawing(512).drawn(512), half = icon.drawing(256).drawn(256);
        double most = 0;
        for (int y = 0; y < 256; y += 3)
            for (int x = 0; x < 256; x += 3) {
                double mean = 0;
                for (const int k : {0, 1, 2, 3})
                    mean += large.view().row(2 * y + k / 2)[4 * (2 * x + k % 2) + 3] / 4.0;
                most = std::max(most, std::abs(mean - half.view().row(y)[4 * x + 3]));
            }
        EXPECT_LT(most, 24);
    }
}

}   // namespace
}   // namespace tavix::icons
