#include "DeviceFrames/FramePainter.h"
#include "DeviceFrames/Outline.h"
#include "DeviceFrames/Phones.h"

#include "TavixPlatform/Media/StillImages.h"
#include "TavixRender/Assets/AlphaCutout.h"
#include "TavixRender/Assets/BundledFrames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <ostream>

namespace tavix::deviceframes {

// Names the case in test reports.
// NOLINTNEXTLINE(readability-identifier-naming): the name that GoogleTest looks for
void PrintTo(const Phone& phone, std::ostream* out) { *out << phone.device->id; }

namespace {

using imaging::Bitmap;

int alphaAt(const Bitmap& picture, int x, int y) { return picture.view().row(y)[x * 4 + 3]; }

class EveryFrame : public testing::TestWithParam<Phone> {
protected:
    // As the build made it and the program finds it.
    Bitmap built() const {
        const auto file = BundledFrames::url(*GetParam().device);
        return file ? media::loadStillImage(*file) : Bitmap();
    }
};

TEST_P(EveryFrame, HasItsScreenWhereTheCatalogSays) {
    const BundledDevice& device = *GetParam().device;
    const auto file = BundledFrames::url(device);
    ASSERT_TRUE(file);
    const AlphaCutout::Result found = DeviceFrameCutoutService::detect(*file);
    EXPECT_EQ(found.frameWidth, device.pictureWidthPx);
    EXPECT_EQ(found.frameHeight, device.pictureHeightPx);
    EXPECT_NEAR(double(found.frameWidth) / found.frameHeight, device.frameAspect, 0.006);
    EXPECT_NEAR(found.screen.x * found.frameWidth, device.screen.x * found.frameWidth, 1);
    EXPECT_NEAR(found.screen.y * found.frameHeight, device.screen.y * found.frameHeight, 1);
    EXPECT_NEAR(found.screen.width * found.frameWidth, device.screen.width * found.frameWidth, 1);
    EXPECT_NEAR(found.screen.height * found.frameHeight, device.screen.height * found.frameHeight, 1);
    const double sidePx = device.screen.width * found.frameWidth;
    EXPECT_NEAR(found.cornerRadiusFraction * sidePx, device.screenCornerRadiusFraction * sidePx, 1);
}

// A screen is masked with round corners of the catalog's radius. Where that mask ends, the frame must be
// solid, or the background would shine through between the two.
TEST_P(EveryFrame, LeavesNoGapAroundAMaskedScreen) {
    const BundledDevice& device = *GetParam().device;
    const Bitmap picture = built();
    const float width = float(picture.size().width), height = float(picture.size().height);
    const Box screen{float(device.screen.x) * width, float(device.screen.y) * height,
        float(device.screen.x + device.screen.width) * width,
        float(device.screen.y + device.screen.height) * height};
    const float radius = float(device.screenCornerRadiusFraction) * screen.width();
    int thinnest = 255;
    for (int y = int(screen.top) - 4; y < int(screen.bottom) + 4; ++y)
        for (int x = int(screen.left) - 4; x < int(screen.right) + 4; ++x) {
            const float distance = roundBoxDistance(screen, radius, float(x) + 0.5f, float(y) + 0.5f);
            const int masked = int(255 * std::clamp(0.5f - distance, 0.0f, 1.0f));
            if (masked < 255 && distance < 4) thinnest = std::min(thinnest, alphaAt(picture, x, y) + masked);
        }
    EXPECT_GE(thinnest, 250);
}

TEST_P(EveryFrame, StandsFreeInItsPicture) {
    const Bitmap picture = built();
    const int width = picture.size().width, height = picture.size().height;
    for (int x = 0; x < width; ++x) ASSERT_EQ(alphaAt(picture, x, 0) + alphaAt(picture, x, height - 1), 0);
    for (int y = 0; y < height; ++y) ASSERT_EQ(alphaAt(picture, 0, y) + alphaAt(picture, width - 1, y), 0);
    // A cut through the middle: rim and glass, the open screen, glass and rim, each without a hole.
    int changes = 0;
    for (int x = 1; x < width; ++x)
        changes += (alphaAt(picture, x, height / 2) >= 128) != (alphaAt(picture, x - 1, height / 2) >= 128);
    EXPECT_EQ(changes, 4);
}

INSTANTIATE_TEST_SUITE_P(
    DeviceFrames, EveryFrame, testing::ValuesIn(phones().begin(), phones().end()), [](const auto& phone) {
        std::string name = phone.param.device->id;
        std::replace(name.begin(), name.end(), '-', '_');
        return name;
    });

// The colour of the rim in the middle of its flat part, halfway down the left side.
std::array<double, 3> rimColor(const Phone& phone, const Bitmap& picture) {
    const Outline outline(phone);
    const int x = int(outline.body().left + phone.build.rim.widthPx * 0.6f);
    std::array<double, 3> sum{};
    constexpr int rows = 40;
    const int middle = picture.size().height / 2;
    for (int y = middle; y < middle + rows; ++y)
        for (std::size_t c = 0; c < 3; ++c) sum[c] += picture.view().row(y)[x * 4 + int(c)];
    for (double& channel : sum) channel /= rows;
    return sum;
}

TEST(DeviceFrames, ShowTheColourOfTheirName) {
    const auto color = [](const char* name) { return rimColor(*phoneNamed(name), paint(*phoneNamed(name))); };
    const auto [pinkB, pinkG, pinkR] = color("iPhone16-Pink");
    EXPECT_GT(pinkR, pinkB);
    EXPECT_GT(pinkB, pinkG + 15);
    const auto [blueB, blueG, blueR] = color("iPhone17Pro-DeepBlue");
    EXPECT_GT(blueB, blueR + 20);
    const auto [orangeB, orangeG, orangeR] = color("iPhone17Pro-CosmicOrange");
    EXPECT_GT(orangeR, orangeB + 80);
    const auto [whiteB, whiteG, whiteR] = color("iPhone16-White");
    EXPECT_NEAR(whiteB, whiteR, 6);
    EXPECT_GT(whiteG, color("iPhone16-Black")[1] + 80);
}

TEST(DeviceFrames, ArePaintedTheSameEveryTime) {
    const Phone& phone = *phoneNamed("iPhoneAir-LightGold");
    const Bitmap one = paint(phone), other = paint(phone);
    for (int y = 0; y < one.size().height; ++y)
        ASSERT_TRUE(
            std::equal(one.view().row(y), one.view().row(y) + one.size().width * 4, other.view().row(y)));
    EXPECT_EQ(phoneNamed("iPhone17Pro-Plaid"), nullptr);
}

TEST(Corner, KeepsItsDistancesAndItsRadius) {
    const Corner corner(190);
    const float reach = float(corner.reachPx());
    for (int step = 1; step < 40; ++step) {
        const double turn = step / 40.0 * 1.5707963;
        const float x = reach * float(std::pow(std::cos(turn), 2 / Corner::exponent)),
                    y = reach * float(std::pow(std::sin(turn), 2 / Corner::exponent));
        const Offset on = corner.offsetAt(x, y);
        EXPECT_NEAR(on.distance, 0, 0.02);
        // Stepping out along its normal changes the distance by the step, and not the direction.
        const Offset out = corner.offsetAt(x + 50 * on.outX, y + 50 * on.outY);
        EXPECT_NEAR(out.distance, 50, 0.05);
        EXPECT_NEAR(out.outX, on.outX, 0.01);
    }
    // It goes on from the straight edges.
    EXPECT_NEAR(corner.offsetAt(0.01f, reach + 7).distance, 7, 0.05);
    EXPECT_NEAR(corner.offsetAt(reach - 3, 0.01f).distance, -3, 0.05);
}

}   // namespace
}   // namespace tavix::deviceframes
