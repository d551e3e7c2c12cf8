#include "TavixRender/Compositor/CanvasDrawing.h"
#include "RenderTestKit.h"
#include "TavixPlatform/Media/StillImages.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace tavix {
namespace {

using imaging::Image;
using imaging::Rect;
using testing::Picture;
using testing::Pixel;

LinearGradient gradientOf(
    double angleDegrees, std::vector<GradientStop> stops = {{{0, 0, 0, 1}, 0}, {{1, 1, 1, 1}, 1}}) {
    LinearGradient gradient;
    gradient.stops = std::move(stops);
    gradient.angleDegrees = angleDegrees;
    return gradient;
}

Picture drawn(const LinearGradient& gradient, imaging::Size size) {
    return Picture(
        CanvasDrawing::gradientAcross(gradient, {0, 0, double(size.width), double(size.height)}), size);
}

TEST(Gradient, RunsAlongItsAngle) {
    const struct {
        double angleDegrees;
        int darkX, darkY, lightX, lightY;   // corners or edge middles, in ninths from the top left
    } cases[] = {
        {0, 4, 8, 4, 0},
        {90, 0, 4, 8, 4},
        {180, 4, 0, 4, 8},
        {270, 8, 4, 0, 4},
        {-90, 8, 4, 0, 4},
        {45, 0, 8, 8, 0},
        {135, 0, 0, 8, 8},
        {405, 0, 8, 8, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.angleDegrees);
        const Picture picture = drawn(gradientOf(c.angleDegrees), {9, 9});
        EXPECT_LT(picture.at(c.darkX, c.darkY).r, 20);
        EXPECT_GT(picture.at(c.lightX, c.lightY).r, 235);
        EXPECT_NEAR(picture.at(4, 4).r, 127.5, 1);
    }
}

TEST(Gradient, IsMirroredByHalfATurn) {
    for (const double angle : {0.0, 17.0, 90.0, 133.0}) {
        const Picture one = drawn(gradientOf(angle), {31, 17}),
                      other = drawn(gradientOf(angle + 180), {31, 17});
        for (int y = 0; y < 17; ++y)
            for (int x = 0; x < 31; ++x) ASSERT_NEAR(one.at(x, y).g, other.at(30 - x, 16 - y).g, 1) << angle;
    }
}

TEST(Gradient, SortsAndHoldsItsStops) {
    const GradientStop red{{1, 0, 0, 1}, 0.25}, blue{{0, 0, 1, 1}, 0.75}, farGreen{{0, 1, 0, 1}, 7};
    const Picture sorted = drawn(gradientOf(90, {red, blue}), {8, 1});
    EXPECT_EQ(sorted, drawn(gradientOf(90, {blue, red}), {8, 1}));
    EXPECT_EQ(sorted.at(0, 0), (Pixel{255, 0, 0, 255}));
    EXPECT_EQ(sorted.at(7, 0), (Pixel{0, 0, 255, 255}));
    // A location is held to 0 to 1, so this one ends at the edge.
    EXPECT_GT(drawn(gradientOf(90, {red, farGreen}), {8, 1}).at(7, 0).g, 220);
    EXPECT_EQ(drawn(gradientOf(0, {}), {4, 4}).at(1, 1), (Pixel{0, 0, 0, 255}));
    EXPECT_EQ(drawn(gradientOf(0, {red}), {4, 4}).at(1, 1), (Pixel{255, 0, 0, 255}));
    EXPECT_EQ(drawn(gradientOf(90, {{{1, 1, 1, 0.5}, 0}}), {2, 1}).at(0, 0), (Pixel{128, 128, 128, 128}));
}

TEST(Gradient, ChangesAtOnceWhereTwoStopsMeet) {
    const Picture picture = drawn(
        gradientOf(90, {{{1, 0, 0, 1}, 0}, {{1, 0, 0, 1}, 0.5}, {{0, 0, 1, 1}, 0.5}, {{0, 0, 1, 1}, 1}}),
        {8, 1});
    EXPECT_EQ(picture.at(3, 0), (Pixel{255, 0, 0, 255}));
    EXPECT_EQ(picture.at(4, 0), (Pixel{0, 0, 255, 255}));
}

TEST(Place, MapsTheExtentOntoTheRectangle) {
    const Rect bounds{0, 0, 200, 100};
    const Image source = testing::testCard({20, 10}, 3).translated(-7, 31);
    const PixelRect rects[] = {{0, 0, 200, 100}, {30, 20, 40, 20}, {-50, 60, 20, 10}, {10, 10, 5, 80}};
    for (const PixelRect& rect : rects)
        for (const auto resampling : {CanvasDrawing::Resampling::live, CanvasDrawing::Resampling::still}) {
            const Rect extent = CanvasDrawing::place(source, rect, bounds, resampling).extent();
            EXPECT_NEAR(extent.x, rect.x, 1e-9);
            EXPECT_NEAR(extent.y, 100 - rect.y - rect.height, 1e-9);
            EXPECT_NEAR(extent.width, rect.width, 1e-9);
            EXPECT_NEAR(extent.height, rect.height, 1e-9);
        }
    EXPECT_TRUE(CanvasDrawing::place(Image(), rects[0], bounds, CanvasDrawing::Resampling::live).isEmpty());
    EXPECT_TRUE(
        CanvasDrawing::place(source, {5, 5, 0, 9}, bounds, CanvasDrawing::Resampling::live).isEmpty());
}

TEST(Place, KeepsPixelsOfTheSameSize) {
    const Image source = testing::testCard({6, 4}, 3);
    const Image placed =
        CanvasDrawing::place(source, {2, 1, 6, 4}, {0, 0, 10, 6}, CanvasDrawing::Resampling::still);
    const Picture before(source, {6, 4}), after(placed, {10, 6});
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 6; ++x) EXPECT_EQ(after.at(x + 2, y + 1), before.at(x, y));
    EXPECT_EQ(after.at(1, 1), Pixel{});
}

TEST(RoundedRectMask, CutsTheCornersOnly) {
    const Rect bounds{0, 0, 40, 30};
    const Image mask = CanvasDrawing::makeRoundedRectMask({10, 5, 20, 16}, 100, bounds);   // 8 is the most
    const Image white = Image::solid(imaging::Color::white()).cropped(bounds);
    const Picture cut(CanvasDrawing::masked(white, mask), {40, 30});
    EXPECT_EQ(cut.at(20, 13), (Pixel{255, 255, 255, 255}));
    EXPECT_EQ(cut.at(20, 5), (Pixel{255, 255, 255, 255}));
    EXPECT_EQ(cut.at(20, 4), Pixel{});
    EXPECT_EQ(cut.at(10, 5), Pixel{});
    EXPECT_EQ(cut.at(9, 13), Pixel{});
}

class Backgrounds : public ::testing::Test {
protected:
    Backgrounds() { setenv("TAVIX_RESOURCES", (folder.path() / "share").c_str(), 1); }
    ~Backgrounds() override { unsetenv("TAVIX_RESOURCES"); }

    std::filesystem::path writePicture(
        const std::filesystem::path& name, const imaging::Color& color, imaging::Size size) {
        const auto file = folder.path() / name;
        std::filesystem::create_directories(file.parent_path());
        imaging::Evaluator evaluator;
        media::writePng(file, evaluator.draw(Image::solid(color), {0, 0, size.width, size.height}).view());
        return file;
    }
    Picture resolved(const BackgroundImage& image) {
        StillImageCache images(testing::messagesTo(lines));
        const BackgroundFill fill{image};
        return Picture(CanvasDrawing::resolveBackgroundFill(fill, {0, 0, 40, 20}, images), {40, 20});
    }

    testing::TemporaryFolder folder;
    std::vector<std::string> lines;
};

constexpr imaging::Color red{1, 0, 0, 1}, green{0, 1, 0, 1}, blue{0, 0, 1, 1};

TEST_F(Backgrounds, TakeTheFirstPictureThatLoads) {
    const auto own = writePicture("own.png", red, {8, 8});
    BackgroundImage wanted;
    wanted.path = own.string();
    wanted.bundledID = "aurora";
    BackgroundImage missing = wanted;
    missing.path = "/nowhere/at-all.png";
    EXPECT_EQ(resolved(missing).at(3, 3), (Pixel{26, 26, 31, 255}));   // no picture at all

    writePicture("share/backgrounds/default-background.jpg", blue, {8, 8});   // told by its content
    EXPECT_EQ(resolved(missing).at(3, 3), (Pixel{0, 0, 255, 255}));
    writePicture("share/backgrounds/bg-aurora.jpg", green, {8, 8});
    EXPECT_EQ(resolved(missing).at(3, 3), (Pixel{0, 255, 0, 255}));
    EXPECT_EQ(resolved(BackgroundImage{}).at(3, 3), (Pixel{0, 0, 255, 255}));
    lines.clear();
    EXPECT_EQ(resolved(wanted).at(3, 3), (Pixel{255, 0, 0, 255}));
    EXPECT_TRUE(lines.empty());
}

TEST_F(Backgrounds, ExpandTheHomeFolder) {
    writePicture("own.png", red, {8, 8});
    const std::string home = std::getenv("HOME") ? std::getenv("HOME") : "";
    setenv("HOME", folder.path().c_str(), 1);
    BackgroundImage image;
    image.path = "~/own.png";
    EXPECT_EQ(resolved(image).at(3, 3), (Pixel{255, 0, 0, 255}));
    setenv("HOME", home.c_str(), 1);
}

TEST_F(Backgrounds, FillTheCanvasKeepingTheirProportions) {
    BackgroundImage image;
    image.path = writePicture("tall.png", red, {10, 90}).string();
    const Picture picture = resolved(image);
    for (const auto& [x, y] : {std::pair{0, 0}, {39, 0}, {0, 19}, {39, 19}})
        EXPECT_EQ(picture.at(x, y), (Pixel{255, 0, 0, 255}));
}

}   // namespace
}   // namespace tavix
