#include "Editor/EditorDomain/Stage/StageViewport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace tavix {
namespace {

StageViewport viewport(StageViewport::Extent canvas, StageViewport::Extent view) {
    StageViewport made;
    made.setCanvas(canvas);
    made.setView(view);
    return made;
}
double distance(PixelPoint a, PixelPoint b) { return std::hypot(a.x - b.x, a.y - b.y); }

TEST(StageViewport, FitsTheWholeCanvasBetweenItsMargins) {
    using Extent = StageViewport::Extent;
    for (const Extent canvas : {Extent{1080, 1920}, Extent{1920, 1080}, Extent{64, 64}, Extent{4000, 100}}) {
        const StageViewport stage = viewport(canvas, {700, 500});
        const PixelRect shown = stage.canvasRect();
        EXPECT_GE(std::min(shown.x, shown.y), 24 - 1e-9);
        EXPECT_LE(shown.maxX(), 700 - 24 + 1e-9);
        EXPECT_LE(shown.maxY(), 500 - 24 + 1e-9);
        EXPECT_NEAR(shown.width / shown.height, canvas.width / canvas.height, 1e-9 * canvas.width);
        EXPECT_NEAR(shown.center().x, 350, 1e-9);
        EXPECT_NEAR(shown.center().y, 250, 1e-9);
        const PixelRect drawn = stage.drawnRect();
        for (const double side : {drawn.x, drawn.y, drawn.width, drawn.height})
            EXPECT_EQ(side, std::round(side));
        EXPECT_LE(std::abs(drawn.x - shown.x) + std::abs(drawn.height - shown.height), 1);
    }
}

TEST(StageViewport, GoesToTheCanvasAndBack) {
    StageViewport stage = viewport({1080, 1920}, {801, 603});
    for (int step = 0; step < 5; ++step) {
        for (const PixelPoint at :
            {PixelPoint{0, 0}, PixelPoint{1080, 1920}, PixelPoint{-20, 300}, PixelPoint{511.5, 77}})
            EXPECT_LT(distance(stage.toCanvas(stage.toView(at)), at), 1e-6);
        stage.zoomAbout({200, 150}, 1.7);
        stage.pan({13, -29});
    }
}

TEST(StageViewport, ZoomsAboutThePointerWithinAPointOfTheView) {
    StageViewport stage = viewport({1080, 1920}, {900, 700});
    const PixelPoint pointer{450, 320};
    const PixelPoint under = stage.toCanvas(pointer);
    for (const double factor : {1.25, 1.6, 2.0, 0.8}) {
        stage.zoomAbout(pointer, factor);
        EXPECT_LT(distance(stage.toView(under), pointer), 1) << factor;
    }
}

TEST(StageViewport, KeepsACornerInSightAndItsScaleInBounds) {
    StageViewport stage = viewport({1080, 1920}, {900, 700});
    stage.zoomTo(100);
    EXPECT_EQ(stage.scale(), StageViewport::mostScale);
    stage.zoomTo(1);
    for (const PixelPoint by : {PixelPoint{1e6, -1e6}, PixelPoint{-1e6, 1e6}}) {
        stage.pan(by);
        const PixelRect shown = stage.canvasRect();
        EXPECT_TRUE(shown.x < 900 && shown.maxX() > 0 && shown.y < 700 && shown.maxY() > 0);
    }
    stage.fit();
    EXPECT_TRUE(stage.isFitted());
    EXPECT_EQ(stage.scale(), stage.fittedScale());
}

// However it was zoomed and moved, what is said of it agrees.
TEST(StageViewport, PutsRectanglesWhereTheirCornersAre) {
    StageViewport stage = viewport({1920, 1080}, {700, 900});
    for (const double factor : {1.0, 3.0, 0.2, 9.0}) {
        stage.zoomAbout({90, 800}, factor);
        stage.pan({-40, 7});
        const PixelRect box{100, 200, 300, 50}, seen = stage.rectInView(box);
        EXPECT_LT(distance(stage.toView(PixelPoint{100, 200}), {seen.x, seen.y}), 1e-9);
        EXPECT_LT(distance(stage.toView(PixelPoint{400, 250}), {seen.maxX(), seen.maxY()}), 1e-9);
    }
    StageViewport tiny = viewport({1080, 1920}, {10, 10});   // while a window is made
    tiny.zoomAbout({3, 3}, 2);
    EXPECT_GT(tiny.canvasRect().maxX(), 0);
    EXPECT_LT(tiny.canvasRect().x, 10);
}

}   // namespace
}   // namespace tavix
