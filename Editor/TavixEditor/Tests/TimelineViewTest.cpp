// That hands, keys and screen readers reach the timeline, and that it paints no more than it must. What
// gestures mean is tested without a window.
#include "EditorTestKit.h"
#include "TavixEditor/Timeline/TimelineCanvas.h"
#include "TavixLive/Operations/LayerOperations.h"
#include "TavixLive/Operations/TrackOperations.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <map>
#include <memory>

namespace tavix::editor {
namespace {

using testing::PaintCounter;
using testing::QuietStudio;
using timeline::Layout;

struct TimelineViewTest : ::testing::Test {
    QuietStudio studio;
    std::unique_ptr<TimelineCanvas> canvas;

    void SetUp() override {
        canvas = std::make_unique<TimelineCanvas>(studio.model);
        canvas->resize(1020, 300);
        canvas->show();
        QApplication::processEvents();
    }
    QPoint inRow(int x, int row) const { return {x, int(canvas->layout().laneTop(row)) + 8}; }
    void drag(const QPoint& from, const QPoint& to, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mousePress(canvas.get(), Qt::LeftButton, modifiers, from);
        move((from + to) / 2, modifiers);
        move(to, modifiers);
        QTest::mouseRelease(canvas.get(), Qt::LeftButton, modifiers, to);
        QApplication::processEvents();
    }
    void move(const QPoint& to, Qt::KeyboardModifiers modifiers = {}) {
        QMouseEvent event(
            QEvent::MouseMove, to, canvas->mapToGlobal(QPointF(to)), Qt::NoButton, Qt::LeftButton, modifiers);
        QApplication::sendEvent(canvas.get(), &event);
    }
    const Selection& selection() const { return studio.model.state.edited().selection; }
};

TEST_F(TimelineViewTest, ThePlayheadRepaintsTwoStripsOnly) {
    PaintCounter counter(canvas.get());
    studio.model.state.currentTime = 7;
    QApplication::processEvents();
    EXPECT_EQ(counter.count, 1);
    EXPECT_EQ(counter.area(), 2 * 11 * 300);
    studio.model.state.currentTime = 7.001;   // less than a point
    QApplication::processEvents();
    EXPECT_EQ(counter.count, 1);
}

TEST_F(TimelineViewTest, AnEditOfOneBarRepaintsNoOther) {
    PaintCounter counter(canvas.get());
    studio.model.update("Move", [](EditState& state) { state.layer(0, 1)->fromSec = 1.5; });
    QApplication::processEvents();
    EXPECT_GT(counter.area(), 0);
    const QRect lane(0, int(canvas->layout().laneTop(1)) - 2, 1020, Layout::rowHeight + 4);
    EXPECT_TRUE(QRegion(lane).contains(counter.painted.boundingRect()));
    EXPECT_LT(counter.painted.boundingRect().width(), 320);   // 2.5 s and its edges
    PaintCounter still(canvas.get());
    studio.model.update("Colour", [](EditState& state) {
        state.content<TextContent>(0, 1)->color = {1, 0, 0, 1};
    });
    QApplication::processEvents();
    EXPECT_EQ(still.count, 0);   // nothing of it is seen here
}

TEST_F(TimelineViewTest, AClickSelectsAndASmallMoveIsNoDrag) {
    const double before = studio.layer(1).fromSec;
    QTest::mousePress(canvas.get(), Qt::LeftButton, {}, inRow(160, 1));
    move(inRow(162, 1));
    EXPECT_EQ(selection().layer, std::nullopt);
    QTest::mouseRelease(canvas.get(), Qt::LeftButton, {}, inRow(162, 1));
    EXPECT_EQ(selection(), (Selection{0, 1, {}}));
    EXPECT_EQ(studio.layer(1).fromSec, before);
    EXPECT_EQ(studio.model.history().undoName(), nullptr);
    QTest::mouseClick(canvas.get(), Qt::LeftButton, Qt::ControlModifier, inRow(400, 0));
    EXPECT_EQ(selection().layers().size(), 2u);
}

TEST_F(TimelineViewTest, ADragIsOneStepAndEscapeTakesItBack) {
    drag(inRow(160, 1), inRow(227, 1));
    EXPECT_NEAR(studio.layer(1).fromSec, 1.67, 1e-9);
    ASSERT_NE(studio.model.history().undoName(), nullptr);
    EXPECT_EQ(*studio.model.history().undoName(), "Move Layer");
    EXPECT_EQ(studio.model.history().stepCount(), 1u);
    studio.model.undo();
    EXPECT_NEAR(studio.layer(1).fromSec, 1, 1e-9);
    QTest::mousePress(canvas.get(), Qt::LeftButton, {}, inRow(160, 1));
    move(inRow(260, 1));
    EXPECT_GT(studio.layer(1).fromSec, 1.5);
    QTest::keyClick(canvas.get(), Qt::Key_Escape);
    EXPECT_NEAR(studio.layer(1).fromSec, 1, 1e-9);
    QTest::mouseRelease(canvas.get(), Qt::LeftButton, {}, inRow(260, 1));
    EXPECT_EQ(studio.model.history().undoName(), nullptr);
}

TEST_F(TimelineViewTest, TheScaleStandsStillWhileASceneIsLengthened) {
    QTest::mousePress(canvas.get(), Qt::LeftButton, {}, {1008, 30});   // the end of the last scene
    move({908, 30});
    EXPECT_NEAR(studio.model.state.edited().spec.scenes[1].durationSec, 4, 0.01);
    EXPECT_NEAR(canvas->layout().scale.pps(), 100, 1e-9);
    QTest::mouseRelease(canvas.get(), Qt::LeftButton, {}, {908, 30});
    EXPECT_NEAR(canvas->layout().scale.pps(), 1000.0 / 9, 0.2);   // then the film fills the view again
}

TEST_F(TimelineViewTest, ARubberBandSelectsWhatItTouches) {
    drag(inRow(330, 1), inRow(420, 0));
    EXPECT_EQ(selection(), (Selection{0, 2, {}}));
    QTest::mouseClick(canvas.get(), Qt::LeftButton, {}, inRow(900, 2));
    EXPECT_EQ(selection().scene, std::nullopt);
}

TEST_F(TimelineViewTest, TheRulerScrubsAndTheWheelZoomsAtThePointer) {
    drag({110, 6}, {410, 6});
    EXPECT_NEAR(studio.model.state.currentTime(), 4, 0.001);
    const double sec = canvas->layout().scale.secOf(canvas->scrollX() + 600);
    QWheelEvent zoom({600, 100}, canvas->mapToGlobal(QPointF(600, 100)), {}, {0, 240}, Qt::NoButton,
        Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(canvas.get(), &zoom);
    EXPECT_GT(canvas->layout().scale.zoom, 1.3);
    EXPECT_NEAR(canvas->layout().scale.secOf(canvas->scrollX() + 600), sec, 0.01);
}

TEST_F(TimelineViewTest, ScrollingPaintsOnlyWhatComesIntoView) {
    canvas->setZoom(4);
    QApplication::processEvents();
    PaintCounter counter(canvas.get());
    canvas->setScroll(canvas->scrollX() + 40, 0);
    QApplication::processEvents();
    EXPECT_GT(counter.area(), 0);
    EXPECT_LT(counter.area(), 1020 * 300 / 4);
}

TEST_F(TimelineViewTest, SoundsAndKeyframesStandOnceBelowTheLayersOrAtTheLowerEnd) {
    studio.model.update("Many", [](EditState& state) {
        for (int i = 0; i < 20; ++i) LayerOperations::addLayer(state, 0, ContentKind::shape);
        TrackOperations::addTrack(state, 0, 22, AnimProperty::opacity);
        state.selection = {0, 22, {}};
    });
    const double row = canvas->layout().keyframeRowTop(canvas->scene(), 0);
    EXPECT_GT(row, 300);                       // far below the layers
    EXPECT_LT(canvas->viewY(row), 300 - 24);   // and yet in sight
    EXPECT_GT(canvas->mostScrollY(), 0);
    canvas->resize(1020, 900);
    QApplication::processEvents();
    EXPECT_EQ(canvas->viewY(row), row);
    EXPECT_EQ(canvas->lanesBottom(), int(canvas->layout().soundTop(canvas->scene())));
    EXPECT_EQ(canvas->mostScrollY(), 0);
}

TEST_F(TimelineViewTest, KeysBelongToItBeforeTheyAreShortcuts) {
    studio.model.selectLayer(0, 1);
    const struct {
        int key;
        Qt::KeyboardModifiers modifiers;
        bool isTaken;
    } cases[] = {{Qt::Key_Delete, {}, true}, {Qt::Key_D, Qt::ControlModifier, true},
        {Qt::Key_Left, Qt::AltModifier, true}, {Qt::Key_Space, {}, false},
        {Qt::Key_S, Qt::ControlModifier, false}, {Qt::Key_Z, Qt::ControlModifier, false}};
    for (const auto& c : cases) {
        QKeyEvent asked(QEvent::ShortcutOverride, c.key, c.modifiers);
        asked.ignore();
        QApplication::sendEvent(canvas.get(), &asked);
        EXPECT_EQ(asked.isAccepted(), c.isTaken) << c.key;
    }
    EXPECT_EQ(studio.model.history().undoName(), nullptr);   // being asked does nothing
    QTest::keyClick(canvas.get(), Qt::Key_Right, Qt::AltModifier);
    EXPECT_NEAR(studio.layer(1).fromSec, 1 + 1.0 / 30, 1e-9);
    QTest::keyClick(canvas.get(), Qt::Key_Delete);
    EXPECT_EQ(studio.model.state.edited().spec.scenes[0].layers.size(), 2u);
    studio.model.undo();
    EXPECT_EQ(studio.model.state.edited().spec.scenes[0].layers.size(), 3u);
}

TEST_F(TimelineViewTest, CopiesAndPastesThroughTheClipboard) {
    studio.model.selectLayer(0, 2);
    QTest::keySequence(canvas.get(), QKeySequence::Copy);
    studio.model.selectScene(1, false);
    studio.model.state.currentTime = 6;
    QTest::keySequence(canvas.get(), QKeySequence::Paste);
    const auto& layers = studio.model.state.edited().spec.scenes[1].layers;
    ASSERT_EQ(layers.size(), 2u);
    EXPECT_NEAR(layers[1].fromSec, 1, 1e-9);
    EXPECT_EQ(std::get<TextContent>(layers[1].content).text, "Front");
    QApplication::clipboard()->setText(QStringLiteral("a letter to somebody"));
    QTest::keySequence(canvas.get(), QKeySequence::Paste);
    EXPECT_EQ(studio.model.state.edited().spec.scenes[1].layers.size(), 2u);
    EXPECT_EQ(studio.model.state.statusMessage(), "There are no layers on the clipboard.");
}

TEST_F(TimelineViewTest, AHeldKeyNudgesInOneStep) {
    studio.model.selectLayer(0, 1);
    const std::size_t before = studio.model.history().undoName() ? 1 : 0;
    const auto press = [&](QEvent::Type type, bool isRepeat) {
        QKeyEvent event(type, Qt::Key_Right, Qt::AltModifier, QString(), isRepeat);
        QApplication::sendEvent(canvas.get(), &event);
    };
    for (int i = 0; i < 6; ++i) press(QEvent::KeyPress, i > 0);
    press(QEvent::KeyRelease, false);
    EXPECT_NEAR(studio.layer(1).fromSec, 1 + 6 / 30.0, 1e-9);
    press(QEvent::KeyPress, false);
    press(QEvent::KeyRelease, false);
    studio.model.undo();
    EXPECT_NEAR(studio.layer(1).fromSec, 1 + 6 / 30.0, 1e-9);
    studio.model.undo();
    EXPECT_EQ(studio.layer(1).fromSec, 1);
    EXPECT_EQ(studio.model.history().undoName() != nullptr, before != 0);
}

TEST_F(TimelineViewTest, ABarGoesToTheRowWhereItIsLetGoAndItsTimeStays) {
    // Down by a row, and a little to the side.
    drag(inRow(200, 1), inRow(202, 2));
    const auto& layers = studio.model.state.edited().spec.scenes[0].layers;
    EXPECT_EQ(std::get<TextContent>(layers[0].content).text, "Middle");
    EXPECT_EQ(layers[0].fromSec, 1);
    EXPECT_EQ(selection(), (Selection{0, 0, {}}));
    studio.model.undo();
    EXPECT_EQ(std::get<TextContent>(studio.layer(1).content).text, "Middle");
}

TEST_F(TimelineViewTest, TellsScreenReadersOfItsBars) {
    QAccessibleInterface* const list = QAccessible::queryAccessibleInterface(canvas.get());
    ASSERT_TRUE(list);
    EXPECT_EQ(list->role(), QAccessible::List);
    std::map<QString, QAccessibleInterface*> parts;
    for (int i = 0; i < list->childCount(); ++i) {
        QAccessibleInterface* const part = list->child(i);
        EXPECT_EQ(list->indexOfChild(part), i);
        EXPECT_TRUE(parts.emplace(part->text(QAccessible::Name), part).second);
    }
    ASSERT_EQ(parts.size(), 1 + 2 + 4u);   // the playhead, two scenes, their layers
    QAccessibleInterface* const middle = parts.at(QStringLiteral("Middle"));
    EXPECT_EQ(middle->text(QAccessible::Description), QStringLiteral("1.0 to 3.0 seconds, 0 keyframes"));
    EXPECT_FALSE(middle->state().selected);
    middle->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(middle->state().selected);
    EXPECT_EQ(selection(), (Selection{0, 1, {}}));
    EXPECT_EQ(list->focusChild(), middle);
    // A press where it is said to be takes it, too.
    QAccessibleInterface* const later = parts.at(QStringLiteral("Later"));
    QTest::mouseClick(canvas.get(), Qt::LeftButton, {}, canvas->mapFromGlobal(later->rect().center()));
    EXPECT_EQ(selection(), (Selection{1, 0, {}}));
    QAccessibleInterface* const playhead = parts.at(QStringLiteral("Playhead"));
    ASSERT_TRUE(playhead->valueInterface());
    EXPECT_EQ(playhead->valueInterface()->maximumValue().toDouble(), 10);
    EXPECT_FALSE(middle->valueInterface());
}

}   // namespace
}   // namespace tavix::editor
