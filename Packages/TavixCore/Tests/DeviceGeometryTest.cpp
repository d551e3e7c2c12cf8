#include "TavixCore/Device/DeviceSceneProjection.h"
#include "TavixCore/Device/PlacementProjection2D.h"
#include "TavixCore/Geometry/CanvasGeometry.h"
#include "TavixCore/Geometry/DeviceGizmoMath.h"
#include "TavixCore/Geometry/PreviewGeometry.h"
#include "TavixCore/Values/SeededRandom.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace tavix {
namespace {

using namespace DeviceGizmoMath;

class Dice {
public:
    explicit Dice(std::string_view seed) : dice_(seed) {}
    double between(double least, double most) {
        return least + (most - least) * static_cast<double>(dice_.next() % 1000003) / 1000002;
    }
    Vector3 tilt() { return {between(-179, 179), between(-89, 89), between(-179, 179)}; }

private:
    SeededRandom dice_;
};

void expectNear(const Vector3& a, const Vector3& b, double slack = 1e-7) {
    EXPECT_NEAR(a.x, b.x, slack);
    EXPECT_NEAR(a.y, b.y, slack);
    EXPECT_NEAR(a.z, b.z, slack);
}

TEST(DeviceGizmo, TiltsComeBackFromOrientations) {
    expectNear(tilt(orientation({10, 20, 30})), {10, 20, 30});
    Dice dice("tilts");
    for (int i = 0; i < 300; ++i) {
        const Vector3 made = dice.tilt();
        EXPECT_NEAR(orientation(made).length(), 1, 1e-12);
        expectNear(tilt(orientation(made)), made);
    }
}

TEST(DeviceGizmo, ADragThatReturnsChangesNothing) {
    Dice dice("drags");
    const Arcball ball{{200, 150}, 100};
    for (int i = 0; i < 300; ++i) {
        const Vector3 base = dice.tilt();
        const PixelPoint from{dice.between(110, 290), dice.between(60, 240)},
            to{dice.between(50, 350), dice.between(0, 300)};
        expectNear(arcballTilt(base, from, from, ball), base, 1e-6);
        // There and back again. Opposite points of the rim are the one exception.
        const Vector3 dragged = arcballTilt(base, from, to, ball);
        expectNear(arcballTilt(dragged, to, from, ball), base, 1e-4);
        // Only the direction counts outside of the ball.
        const PixelPoint rim{ball.center.x + 150, ball.center.y + 40},
            far{ball.center.x + 1500, ball.center.y + 400};
        expectNear(arcballTilt(base, from, rim, ball), arcballTilt(base, from, far, ball), 1e-6);
    }
}

TEST(DeviceGizmo, TurnsTheWayItIsDragged) {
    const Arcball ball{{0, 0}, 100};
    expectNear(arcballTilt({}, {0, 0}, {50, 0}, ball), {0, 30, 0});      // to the right
    expectNear(arcballTilt({}, {0, 0}, {0, 50}, ball), {-30, 0, 0});     // y points down
    expectNear(arcballTilt({}, {100, 0}, {0, 100}, ball), {0, 0, 90});   // round the rim, clockwise
    const Vector3 half = arcballTilt({}, {-100, 0}, {100, 0}, ball);
    EXPECT_NEAR(std::abs(half.z), 180, 1e-9);
    expectNear({half.x, half.y, 0}, {});
    expectNear(arcballTilt({1, 2, 3}, {0, 0}, {9, 9}, {{0, 0}, 0}), {1, 2, 3});
}

TEST(DeviceSceneProjection, KeepsTheDevicesShape) {
    Dice dice("devices");
    for (int i = 0; i < 200; ++i) {
        const DeviceSceneProjection::OutputSize output{dice.between(100, 4000), dice.between(100, 4000)};
        const NormalizedVec2 offset{dice.between(-1, 1), dice.between(-1, 1)};
        const double scale = dice.between(0.01, 3);
        const NormalizedRect rect = DeviceSceneProjection::deviceRect(offset, scale, output);
        const double widthPx = rect.width * output.widthPx, heightPx = rect.height * output.heightPx;
        EXPECT_NEAR(widthPx / heightPx, 0.46, 1e-9);
        EXPECT_NEAR((rect.x + rect.width / 2 - 0.5) * output.widthPx, offset.x * output.heightPx, 1e-6);
        EXPECT_NEAR((rect.y + rect.height / 2 - 0.5), offset.y, 1e-9);
    }
    EXPECT_NEAR(DeviceSceneProjection::deviceRect({}, 0.01, {1080, 1920}).height, 0.04316, 1e-12);
    const double shift = DeviceSceneProjection::deviceRect({0.1, 0}, 1, {1080, 1920}).x -
                         DeviceSceneProjection::deviceRect({}, 1, {1080, 1920}).x;
    EXPECT_NEAR(shift, 0.1 * 1920 / 1080, 1e-12);
}

TEST(DeviceSceneProjection, UnitesTheFramesOfAWindow) {
    using namespace DeviceSceneProjection;
    const OutputSize output{1000, 1000};
    const DevicePlacementTrajectory moving{
        {{{-0.3, 0}, 0.5}, {{0, 0.1}, 0.5}, {{0.3, 0}, 0.5}, {{0.3, -0.4}, 0.5}}, 10};
    const auto rect = [&](std::size_t i) {
        return deviceRect(moving.frames[i].offset, moving.frames[i].scale, output);
    };
    const NormalizedRect all = deviceRectUnion({0, 0.2}, moving, 10, output);
    EXPECT_DOUBLE_EQ(all.x, rect(0).x);
    EXPECT_DOUBLE_EQ(all.x + all.width, rect(2).x + rect(2).width);
    EXPECT_DOUBLE_EQ(all.y, rect(0).y);   // the fourth frame is not in the window
    EXPECT_DOUBLE_EQ(all.y + all.height, rect(1).y + rect(1).height);
    EXPECT_EQ(deviceRectUnion({0.1, 0.19}, moving, 10, output), rect(1));
    EXPECT_EQ(deviceRectUnion({0.2, 0.1}, moving, 10, output), rect(2));
    EXPECT_DOUBLE_EQ(deviceRectUnion({-1e300, 1e300}, moving, 10, output).y, rect(3).y);
    EXPECT_EQ(deviceRectUnion({0, 1}, {}, 10, output), deviceRect({}, 1, output));
}

TEST(PlacementProjection2D, GrowsAboutTheMiddle) {
    const PixelRect frame{100, 50, 300, 600};
    for (const double scale : {0.01, 0.5, 1.0, 2.0}) {
        const auto moved = PlacementProjection2D::transform(frame, {{0.1, -0.2}, scale}, 1000);
        const PixelPoint center = moved.apply(frame.center());
        EXPECT_NEAR(center.x, 250 + 100, 1e-9);
        EXPECT_NEAR(center.y, 350 - 200, 1e-9);
        EXPECT_EQ(moved.scale, std::max(scale, 0.05));
    }
    EXPECT_EQ(PlacementProjection2D::transform(frame, {{0, 0}, 1}, 1000), CameraFrameTransform{});
}

TEST(CanvasGeometry, FitsAFrameIntoThePaddedCanvas) {
    Dice dice("frames");
    for (int i = 0; i < 200; ++i) {
        const CanvasGeometry::CanvasSize canvas{dice.between(10, 3000), dice.between(10, 3000)};
        const double padding = dice.between(0, 4), aspect = dice.between(0.1, 3);
        const PixelRect rect = CanvasGeometry::deviceFrameRect(canvas, padding, aspect);
        EXPECT_NEAR(rect.width, aspect * rect.height, 1e-6);
        EXPECT_GE(rect.x, padding - 1e-6);
        EXPECT_GE(rect.y, padding - 1e-6);
        EXPECT_NEAR(std::min(rect.x, rect.y), padding, 1e-6);   // it touches two sides
        EXPECT_NEAR(rect.center().x, canvas.widthPx / 2, 1e-6);
        EXPECT_NEAR(rect.center().y, canvas.heightPx / 2, 1e-6);
    }
}

TEST(CanvasGeometry, PutsTextBesideTheFrame) {
    using namespace CanvasGeometry;
    const PixelRect frame{300, 200, 400, 600};
    const CanvasSize canvas{1000, 1000};
    const struct {
        const char* zone;
        NormalizedPoint center;
        double room;   // of which a hundredth of the height must stay free
    } cases[] = {{"upper", {0.5, 0.12}, 160}, {"lower", {0.5, 0.88}, 160}, {"left", {0.17, 0.5}, 260},
        {"right", {0.83, 0.5}, 260}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.zone);
        const auto placed = [&](double sizePx) {
            return zonePlacement(c.zone, {sizePx, sizePx}, frame, canvas);
        };
        EXPECT_NEAR(placed(1).center.x, c.center.x, 1e-12);
        EXPECT_NEAR(placed(1).center.y, c.center.y, 1e-12);
        EXPECT_TRUE(placed(c.room - 10.001).fits);
        EXPECT_FALSE(placed(c.room - 9.999).fits);
    }
    EXPECT_EQ(zonePlacement("center", {9e9, 9e9}, frame, canvas), (ZonePlacement{{0.5, 0.5}, true}));
    using Words = std::vector<std::string>;
    EXPECT_EQ(fallbackChain("lower"), (Words{"lower", "upper", "center"}));
    EXPECT_EQ(fallbackChain("left"), (Words{"left", "lower", "upper", "center"}));
    EXPECT_EQ(fallbackChain("center"), (Words{"center", "lower", "upper"}));
}

TEST(CanvasGeometry, EstimatesTextByItsCharacters) {
    using namespace CanvasGeometry;
    const BlockSize line = blockSize("two  words", 0.1, 1000, 1000);
    EXPECT_NEAR(line.widthPx, 52 * (4 + 6), 1e-9);
    EXPECT_NEAR(line.heightPx, 100 + 130, 1e-9);
    const BlockSize wrapped = blockSize("two words", 0.1, 300, 1000);
    EXPECT_EQ(wrapped.widthPx, 300);
    EXPECT_NEAR(wrapped.heightPx, 100 + 260, 1e-9);
    EXPECT_NEAR(blockSize("né", 0.1, 900, 1000).widthPx, 52 * 3, 1e-9);
    EXPECT_EQ(blockSize("", 0.1, 300, 1000).widthPx, 0);
}

TEST(PreviewGeometry, PointsComeBackFromTheView) {
    Dice dice("views");
    for (int i = 0; i < 200; ++i) {
        const double width = dice.between(1, 4000), height = dice.between(1, 4000);
        const double viewWidth = dice.between(1, 2000), viewHeight = dice.between(1, 2000);
        const PixelRect fit = PreviewGeometry::fitRect(width, height, viewWidth, viewHeight);
        EXPECT_NEAR(fit.width / fit.height, width / height, 1e-6 * width / height);
        EXPECT_NEAR(std::min(fit.x, fit.y), 0, 1e-9);
        const PixelPoint corner = PreviewGeometry::toCanvas({fit.maxX(), fit.maxY()}, fit, width);
        EXPECT_NEAR(corner.x, width, 1e-6);
        EXPECT_NEAR(corner.y, height, 1e-6);
    }
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const double none : {0.0, -1.0, nan}) {
        EXPECT_EQ(PreviewGeometry::fitRect(100, 100, 100, none), PixelRect{});
        EXPECT_EQ(PreviewGeometry::toCanvas({5, 5}, {0, 0, 10, 10}, none), PixelPoint{});
    }
    EXPECT_EQ(PreviewGeometry::toCanvas({5, 5}, {}, 100), PixelPoint{});
}

}   // namespace
}   // namespace tavix
