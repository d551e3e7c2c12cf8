#include "TavixRender/Compositor/TransitionBlend.h"
#include "RenderTestKit.h"
#include "TavixCore/Support/Names.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

using imaging::Image;
using testing::Picture;
using testing::Pixel;

constexpr imaging::Size size{64, 36};
constexpr imaging::Rect rect{0, 0, 64, 36};

Image blended(const Image& from, const Image& to, double eased, TransitionStyle style,
    const std::optional<TransitionParams>& params = {}) {
    return TransitionBlend::blend({from, to, rect}, eased, style, params);
}

TEST(TransitionBlend, ShowsOnlyTheOutgoingPictureAtItsStartAndOnlyTheIncomingAtItsEnd) {
    const Image from = testing::testCard(size, 1), to = testing::testCard(size, 2);
    for (const TransitionStyle style : allCases<TransitionStyle>()) {
        SCOPED_TRACE(nameOf(style));
        EXPECT_EQ(Picture(blended(from, to, 0, style), size), Picture(from, size));
        EXPECT_EQ(Picture(blended(from, to, 1, style), size), Picture(to, size));
    }
}

TEST(TransitionBlend, FillsItsRectangleWhateverTheProgress) {
    const Image from = testing::testCard(size, 1), to = testing::testCard(size, 2);
    for (const TransitionStyle style : allCases<TransitionStyle>()) {
        SCOPED_TRACE(nameOf(style));
        for (const double eased : {0.0, 0.13, 0.5, 0.77, 1.0}) {
            SCOPED_TRACE(eased);
            const Image image = blended(from, to, eased, style);
            EXPECT_EQ(image.extent(), rect);
            const Picture picture(image, size);
            for (int y = 0; y < size.height; ++y)
                for (int x = 0; x < size.width; ++x) ASSERT_EQ(picture.at(x, y).a, 255) << x << ", " << y;
        }
        for (const double overshoot : {-0.2, 1.2})
            EXPECT_EQ(blended(from, to, overshoot, style).extent(), rect);
    }
}

TEST(TransitionBlend, NeverReachesBeyondItsRectangle) {
    const Image red = Image::solid({1, 0, 0, 1}), blue = Image::solid({0, 0, 1, 1});
    for (const TransitionStyle style : allCases<TransitionStyle>()) {
        SCOPED_TRACE(nameOf(style));
        EXPECT_EQ(blended(red, blue, 0.4, style).extent(), rect);
    }
}

TEST(TransitionBlend, PushesWithoutAGapBetweenThePictures) {
    const Image white = Image::solid({1, 1, 1, 1}), alsoWhite = Image::solid({1, 1, 1, 1});
    for (double eased = 0; eased <= 1; eased += 0.0371) {
        const Picture picture(blended(white, alsoWhite, eased, TransitionStyle::push), size);
        for (int x = 0; x < size.width; ++x) ASSERT_GE(picture.at(x, 18).g, 254) << eased << " at " << x;
    }
}

TEST(TransitionBlend, PushesByWholePicturesWidths) {
    const Image from = testing::testCard(size, 1), to = testing::testCard(size, 2);
    const Picture half(blended(from, to, 0.5, TransitionStyle::push), size);
    const Picture before(from, size), after(to, size);
    for (int x = 0; x < size.width / 2; ++x) {
        EXPECT_EQ(half.at(x, 7), before.at(x + size.width / 2, 7));
        EXPECT_EQ(half.at(x + size.width / 2, 7), after.at(x, 7));
    }
}

TEST(TransitionBlend, WipesFromLeftToRightAndDrawsAFlipTheSame) {
    const Image from = Image::solid({0, 0, 0, 1}), to = Image::solid({1, 1, 1, 1});
    const Picture picture(blended(from, to, 0.5, TransitionStyle::wipe), size);
    EXPECT_EQ(picture.at(2, 5), (Pixel{255, 255, 255, 255}));
    EXPECT_EQ(picture.at(61, 5), (Pixel{0, 0, 0, 255}));
    for (int x = 1; x < size.width; ++x) ASSERT_LE(picture.at(x, 5).g, picture.at(x - 1, 5).g);
    EXPECT_EQ(blended(from, to, 0.3, TransitionStyle::flip).hash(),
        blended(from, to, 0.3, TransitionStyle::wipe).hash());
}

TEST(TransitionBlend, FadesInProportion) {
    const Image from = Image::solid({0, 0, 0, 1}), to = Image::solid({1, 1, 1, 1});
    for (const double eased : {0.25, 0.5, 0.8})
        EXPECT_NEAR(
            Picture(blended(from, to, eased, TransitionStyle::fade), size).at(9, 9).r, 255 * eased, 1);
}

TEST(TransitionBlend, FlashesWhiteInTheMiddleOfADreamyZoom) {
    const Image from = Image::solid({0, 0, 0, 1}), to = Image::solid({0, 0, 0, 1});
    const Picture middle(blended(from, to, 0.5, TransitionStyle::dreamyZoom), size);
    EXPECT_EQ(middle.at(0, 0), (Pixel{255, 255, 255, 255}));
    // Past the end the strength is negative and there is no white.
    const Picture overshoot(blended(from, to, 1.05, TransitionStyle::dreamyZoom), size);
    EXPECT_EQ(overshoot.at(32, 18), (Pixel{0, 0, 0, 255}));
}

TEST(TransitionBlend, FillsInEachMissingParameterByItself) {
    const Image from = testing::testCard(size, 1), to = testing::testCard(size, 2);
    const struct {
        TransitionStyle style;
        TransitionParams written, meant;
    } cases[] = {
        {TransitionStyle::crossZoom, {}, {{}, {}, {}, 1.4}},
        {TransitionStyle::dreamyZoom, {}, {{}, {}, 6, 1.2}},
        {TransitionStyle::dreamyZoom, {{}, {}, 11, {}}, {{}, {}, 11, 1.2}},
        {TransitionStyle::dreamyZoom, {{}, {}, {}, 2}, {{}, {}, 6, 2}},
        {TransitionStyle::ripple, {}, {30, 30, {}, {}}},
        {TransitionStyle::ripple, {90, {}, {}, {}}, {90, 30, {}, {}}},
        {TransitionStyle::ripple, {{}, 9, {}, {}}, {30, 9, {}, {}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(nameOf(c.style));
        EXPECT_EQ(blended(from, to, 0.3, c.style, c.written).hash(),
            blended(from, to, 0.3, c.style, c.meant).hash());
        EXPECT_NE(blended(from, to, 0.3, c.style, c.meant).hash(),
            blended(from, to, 0.3, c.style, TransitionParams{6, 6, 1, 1.1}).hash());
    }
    EXPECT_EQ(blended(from, to, 0.3, TransitionStyle::crossZoom).hash(),
        blended(from, to, 0.3, TransitionStyle::crossZoom, TransitionParams{}).hash());
}

}   // namespace
}   // namespace tavix
