#include "TavixEditor/Stage/StageViewport.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tavix::editor {
namespace {

StageViewport viewport(QSizeF canvas, QSizeF view) {
    StageViewport made;
    made.setCanvas(canvas);
    made.setView(view);
    return made;
}
double distance(QPointF a, QPointF b) { return std::hypot(a.x() - b.x(), a.y() - b.y()); }

TEST(StageViewport, FitsTheWholeCanvasBetweenItsMargins) {
    for (const QSizeF canvas : {QSizeF(1080, 1920), QSizeF(1920, 1080), QSizeF(64, 64), QSizeF(4000, 100)}) {
        const StageViewport stage = viewport(canvas, {700, 500});
        const QRectF shown = stage.canvasRect();
        EXPECT_TRUE(QRectF(23, 23, 654, 454).contains(shown)) << shown.x() << " " << shown.y();
        EXPECT_NEAR(shown.width() / shown.height(), canvas.width() / canvas.height(),
            canvas.width() / canvas.height() * 0.1);
        EXPECT_LE(std::abs(shown.center().x() - 350), 1);
        EXPECT_LE(std::abs(shown.center().y() - 250), 1);
    }
}

TEST(StageViewport, GoesToTheCanvasAndBack) {
    StageViewport stage = viewport({1080, 1920}, {801, 603});
    for (int step = 0; step < 5; ++step) {
        for (const QPointF at : {QPointF(0, 0), QPointF(1080, 1920), QPointF(-20, 300), QPointF(511.5, 77)})
            EXPECT_LT(distance(stage.toCanvas(stage.toView(at)), at), 1e-6);
        stage.zoomAbout({200, 150}, 1.7);
        stage.pan({13, -29});
    }
}

TEST(StageViewport, ZoomsAboutThePointerWithinAPointOfTheView) {
    StageViewport stage = viewport({1080, 1920}, {900, 700});
    const QPointF pointer(450, 320);
    const QPointF under = stage.toCanvas(pointer);
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
    stage.pan({1e6, -1e6});
    EXPECT_TRUE(stage.canvasRect().intersects(QRectF(0, 0, 900, 700)));
    stage.fit();
    EXPECT_TRUE(stage.isFitted());
    EXPECT_EQ(stage.scale(), stage.fittedScale());
}

}   // namespace
}   // namespace tavix::editor
