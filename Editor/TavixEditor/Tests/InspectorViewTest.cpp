// That what is typed and dragged in the inspector reaches the document as one step each.
#include "TavixEditor/Inspector/InspectorView.h"
#include "EditorTestKit.h"
#include "TavixEditor/Inspector/CurveEditor.h"
#include "TavixEditor/Inspector/GradientBar.h"
#include "TavixEditor/Inspector/MotionGallery.h"
#include "TavixEditor/Inspector/ScrubField.h"
#include "TavixLive/Gallery/PresetGallery.h"
#include "TavixLive/Operations/AudioOperations.h"
#include "TavixLive/Operations/DeviceOperations.h"
#include "TavixLive/Operations/LayerOperations.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <memory>
#include <vector>

namespace tavix::editor {
namespace {

using testing::QuietStudio;

struct InspectorViewTest : ::testing::Test {
    QuietStudio studio;
    std::unique_ptr<QWidget> view;

    std::vector<std::filesystem::path> heard;

    void SetUp() override {
        view.reset(makeInspectorView(
            studio.model, nullptr, [this](const std::filesystem::path& sound) { heard.push_back(sound); }));
        view->resize(320, 900);
        view->show();
        studio.model.selectLayer(0, 1);
        QApplication::processEvents();
    }
    template <class Widget> Widget* named(const char* name) const {
        for (Widget* const each : view->findChildren<Widget*>())
            if (each->isVisibleTo(view.get()) && each->accessibleName() == QLatin1String(name)) return each;
        return nullptr;
    }
    const TextContent& content() const { return std::get<TextContent>(studio.layer(1).content); }
};

TEST_F(InspectorViewTest, SumsAreWorkedOutInFields) {
    auto* const x = named<ScrubField>("Position x");
    ASSERT_TRUE(x);
    x->setFocus();
    x->selectAll();
    QTest::keyClicks(x, QStringLiteral("1080/3"));
    QTest::keyClick(x, Qt::Key_Return);
    EXPECT_EQ(studio.layer(1).position.x, 360);
    EXPECT_EQ(*studio.model.history().undoName(), "Change Position");
    QTest::keyClicks(x, QStringLiteral("nonsense"));
    QTest::keyClick(x, Qt::Key_Return);
    EXPECT_EQ(studio.layer(1).position.x, 360);
    QTest::keyClick(x, Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(studio.layer(1).position.x, 370);
    studio.model.undo();
    EXPECT_EQ(x->value(), 360);   // the field follows the document
}

TEST_F(InspectorViewTest, AFieldOfAKeyframeFollowsThePlayheadAndItsDiamondSetsOne) {
    auto* const scale = named<ScrubField>("Scale");
    auto* const here = named<QAbstractButton>("Keyframe of Scale here");
    ASSERT_TRUE(scale && here);
    studio.model.state.currentTime = 1.0;   // where the layer starts
    QTest::mouseClick(here, Qt::LeftButton);
    ASSERT_EQ(studio.layer(1).tracks.size(), 1u);
    EXPECT_EQ(*studio.model.history().undoName(), "Add Keyframe");
    studio.model.state.currentTime = 2.0;
    QTest::mouseClick(here, Qt::LeftButton);
    scale->setFocus();
    scale->selectAll();
    QTest::keyClicks(scale, QStringLiteral("2"));
    QTest::keyClick(scale, Qt::Key_Return);
    EXPECT_EQ(studio.layer(1).tracks[0].keyframes.size(), 3u);   // at both ends, and here
    studio.model.state.currentTime = 1.5;
    EXPECT_NEAR(scale->value(), std::sqrt(2), 1e-9);
    auto* const next = named<QAbstractButton>("Next keyframe of Scale");
    ASSERT_TRUE(next && next->isEnabled());
    QTest::mouseClick(next, Qt::LeftButton);
    EXPECT_NEAR(studio.model.state.currentTime(), 2, 1e-9);
    EXPECT_FALSE(named<QAbstractButton>("Reset Scale to its default"));
}

// Wherever the wheel turns, it scrolls.
TEST_F(InspectorViewTest, AWheelOverAControlScrollsPastIt) {
    const CompositionSpec before = studio.model.state.edited().spec;
    int lists = 0, sliders = 0, fields = 0;
    for (QWidget* const control : view->findChildren<QWidget*>()) {
        const bool isList = qobject_cast<QComboBox*>(control), isSlider = qobject_cast<QSlider*>(control);
        const bool isField = dynamic_cast<ScrubField*>(control);
        if (!isList && !isSlider && !isField) continue;
        QWheelEvent turn({5, 5}, control->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, {},
            Qt::NoScrollPhase, false);
        QApplication::sendEvent(control, &turn);
        EXPECT_FALSE(control->hasFocus()) << control->accessibleName().toStdString();
        EXPECT_FALSE(turn.isAccepted()) << "it is for what the control stands in";
        lists += isList;
        sliders += isSlider;
        fields += isField;
    }
    EXPECT_GE(lists, 5);
    EXPECT_GE(sliders, 1);
    EXPECT_GE(fields, 5);
    EXPECT_EQ(studio.model.state.edited().spec, before);
}

TEST_F(InspectorViewTest, AnotherKindOfLayerIsReadFromItsTop) {
    view->resize(320, 200);
    auto* const bar = view->findChild<QScrollArea*>()->verticalScrollBar();
    bar->setValue(150);
    studio.model.selectLayer(0, 2);
    QApplication::processEvents();
    EXPECT_EQ(bar->value(), 150) << "a text after a text stays where it was";
    studio.model.clearSelection();
    QApplication::processEvents();
    EXPECT_EQ(bar->value(), 0);
}

// A number is never shown without its first digits.
TEST_F(InspectorViewTest, ANumberInANarrowFieldLosesDecimalsAlone) {
    auto* const x = named<ScrubField>("Position x");
    ASSERT_TRUE(x);
    x->setFixedWidth(64);
    studio.model.update("Move", [](EditState& state) { state.layer(0, 1)->position.x = 1234.5; });
    QApplication::processEvents();
    EXPECT_EQ(x->text(), QStringLiteral("1234"));
    x->setFocus();
    EXPECT_EQ(x->text(), QStringLiteral("1234.5")) << "all of it while it is edited";
    x->clearFocus();
    EXPECT_EQ(studio.layer(1).position.x, 1234.5);
}

TEST_F(InspectorViewTest, ValuesWrittenByHandAreToldInPlaceOfAPreset) {
    const auto isTold = [&] {
        for (const QLabel* const label : view->findChildren<QLabel*>())
            if (label->isVisibleTo(view.get()) &&
                label->text() == QStringLiteral("This item has hand-authored values. Choose a preset to "
                                                "replace them with editable semantic controls."))
                return true;
        return false;
    };
    EXPECT_FALSE(isTold());
    studio.model.update("By hand",
        [](EditState& state) { std::get<TextContent>(state.layer(0, 1)->content).kinetic = KineticStyle{}; });
    QApplication::processEvents();
    EXPECT_TRUE(isTold());
    studio.model.update("A preset", [](EditState& state) {
        std::get<TextContent>(state.layer(0, 1)->content).kinetic = KineticPresetRef{};
    });
    QApplication::processEvents();
    EXPECT_FALSE(isTold());
}

TEST_F(InspectorViewTest, ADragOnAFieldIsOneStep) {
    auto* const y = named<ScrubField>("Position y");
    ASSERT_TRUE(y);
    const double before = studio.layer(1).position.y;
    QTest::mousePress(y, Qt::LeftButton, {}, {6, 10});
    for (const int x : {20, 60, 106}) {
        QMouseEvent move(QEvent::MouseMove, QPointF(x, 10), y->mapToGlobal(QPointF(x, 10)), Qt::NoButton,
            Qt::LeftButton, {});
        QApplication::sendEvent(y, &move);
    }
    QTest::mouseRelease(y, Qt::LeftButton, {}, {106, 10});
    EXPECT_EQ(studio.layer(1).position.y, before + 100);
    EXPECT_EQ(studio.model.history().stepCount(), 1u);
}

TEST_F(InspectorViewTest, TypingIsOneStepUntilTheFieldIsLeft) {
    auto* const field = view->findChild<QPlainTextEdit*>();
    ASSERT_TRUE(field);
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, QStringLiteral("Hello"));
    EXPECT_EQ(content().text, "Hello");
    view->setFocus();
    named<ScrubField>("Position x")->setFocus();
    EXPECT_EQ(studio.model.history().stepCount(), 1u);
    studio.model.undo();
    EXPECT_EQ(content().text, "Middle");
    EXPECT_EQ(field->toPlainText(), QStringLiteral("Middle"));
}

TEST_F(InspectorViewTest, SwitchesMakeOptionalPartsComeAndGo) {
    auto* const shadow = named<QCheckBox>("Shadow");
    ASSERT_TRUE(shadow);
    shadow->click();
    QApplication::processEvents();
    EXPECT_TRUE(content().shadow);
    auto* const again = named<QCheckBox>("Shadow");
    ASSERT_TRUE(again);
    EXPECT_TRUE(again->isChecked());
    again->click();
    EXPECT_FALSE(content().shadow);
}

TEST_F(InspectorViewTest, SeveralLayersAreChangedAtOnce) {
    studio.model.update({}, [](EditState& state) { state.selection = {0, 1, {{0, 2}}}; });
    QApplication::processEvents();
    auto* const x = named<ScrubField>("Position x");
    ASSERT_TRUE(x);
    x->setFocus();
    x->selectAll();
    QTest::keyClicks(x, QStringLiteral("25"));
    QTest::keyClick(x, Qt::Key_Return);
    EXPECT_EQ(studio.layer(1).position.x, 25);
    EXPECT_EQ(studio.layer(2).position.x, 25);
    EXPECT_NE(studio.layer(0).position.x, 25);
}

TEST_F(InspectorViewTest, ACueHasAListOfSoundsAndLetsThemBeHeard) {
    studio.model.update("Add", [](EditState& state) {
        state.selection = {};
        AudioOperations::addSoundCue(state, 0.5);
    });
    QApplication::processEvents();
    auto* const list = named<QComboBox>("Sound");
    ASSERT_TRUE(list);
    const auto cue = [&] { return studio.model.state.edited().spec.audio->cues.at(0).sound; };
    const int ding = list->findData(QStringLiteral("ding"));
    ASSERT_GE(ding, 0);
    list->setCurrentIndex(ding);
    Q_EMIT list->activated(ding);
    EXPECT_EQ(cue(), "ding");
    auto* const play = named<QAbstractButton>("Play the sound");
    ASSERT_TRUE(play && play->isEnabled());
    play->click();
    ASSERT_EQ(heard.size(), 1u);
    EXPECT_EQ(heard[0].filename(), "ding.wav");
    EXPECT_TRUE(std::filesystem::exists(heard[0]));
    // A file stands in the list beside those of the catalog, and goes from it again.
    const int count = list->count();
    studio.model.update(
        "File", [](EditState& state) { state.spec.audio->cues[0].sound = "assets/tick.wav"; });
    EXPECT_EQ(list->currentText(), QStringLiteral("tick.wav"));
    EXPECT_EQ(list->count(), count + 1);
    studio.model.undo();
    EXPECT_EQ(list->currentData().toString(), QStringLiteral("ding"));
    EXPECT_EQ(list->count(), count);
}

TEST_F(InspectorViewTest, APhaseIsSwitchedOnFromNothingAndOffToNothing) {
    const auto& enter = [&]() -> const auto& { return studio.layer(1).enter; };
    ASSERT_FALSE(enter());
    auto* const isOn = named<QCheckBox>("On");
    ASSERT_TRUE(isOn);
    isOn->click();
    ASSERT_TRUE(enter());
    EXPECT_EQ(*enter(), KineticPhase::identity);
    QApplication::processEvents();
    auto* const turn = named<ScrubField>("Turn z");
    ASSERT_TRUE(turn) << "a layer turns in its plane";
    EXPECT_FALSE(named<ScrubField>("Turn x"));
    turn->setFocus();
    turn->selectAll();
    QTest::keyClicks(turn, QStringLiteral("-30"));
    QTest::keyClick(turn, Qt::Key_Return);
    EXPECT_EQ(enter()->rotationDeg, (Vector3{0, 0, -30}));
    named<QCheckBox>("On")->click();
    EXPECT_FALSE(enter());
}

TEST(MotionGallery, FindsByWordsAndGivesTheDeviceItsMotionInOneStep) {
    QuietStudio studio;
    studio.model.update(
        "Add", [](EditState& state) { LayerOperations::addLayer(state, 0, ContentKind::device); });
    const std::unique_ptr<QWidget> gallery(
        makeMotionGallery(studio.model, nullptr));   // never shown: nothing is drawn
    auto* const list = gallery->findChild<QListWidget*>();
    auto* const search = gallery->findChild<QLineEdit*>();
    ASSERT_TRUE(list && search);
    EXPECT_EQ(std::size_t(list->count()), PresetGalleryCatalog::all().size());
    search->setText(QStringLiteral("entrance 2d"));
    EXPECT_GT(list->count(), 0);
    for (int i = 0; i < list->count(); ++i) {
        const auto& item = PresetGalleryCatalog::all()[list->item(i)->data(Qt::UserRole).toUInt()];
        EXPECT_EQ(item.collection, PresetGalleryItem::Collection::entrance);
        EXPECT_EQ(item.dimension, PresetGalleryItem::Dimension::flat);
    }
    const std::size_t steps = studio.model.history().stepCount();
    Q_EMIT list->itemClicked(list->item(0));
    EXPECT_EQ(studio.model.history().stepCount(), steps + 1);
    const auto before = studio.model.state.edited();
    EXPECT_TRUE(DeviceOperations::deviceHasAuthoredMotion(before.spec, 0, 3));
    // What the device has now is asked about before it is replaced.
    search->setText(QStringLiteral("fan deck"));
    ASSERT_EQ(list->count(), 1);
    Q_EMIT list->itemClicked(list->item(0));
    EXPECT_EQ(studio.model.state.edited(), before);
    auto* const replace = gallery->findChild<QPushButton*>();
    ASSERT_TRUE(replace && replace->isVisibleTo(gallery.get()));
    replace->click();
    EXPECT_GT(studio.model.state.edited().spec.scenes[0].layers.size(), 3u + 2u);   // several devices
    studio.model.undo();
    EXPECT_EQ(studio.model.state.edited().spec, before.spec);
}

TEST(CurveEditor, HandlesAreDraggedAndStayInTheirBounds) {
    CurveEditor editor;
    editor.resize(240, 140);
    editor.show();
    editor.setCurve(BezierCurve{0.42, 0, 0.58, 1});
    std::vector<bool> told;
    editor.onChange = [&](const TimingCurve&, bool isEditing) { told.push_back(isEditing); };
    // The upper end of the plot is 1.8, the lower -0.7; 16 points stay free at the sides.
    QTest::mousePress(&editor, Qt::LeftButton, {}, {136, 44});
    QMouseEvent move(QEvent::MouseMove, QPointF(120, -40), editor.mapToGlobal(QPointF(120, -40)),
        Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(&editor, &move);
    QTest::mouseRelease(&editor, Qt::LeftButton, {}, {120, 0});
    const auto& bent = std::get<BezierCurve>(editor.curve());
    EXPECT_NEAR(bent.x2, 0.5, 0.01);
    EXPECT_EQ(bent.y2, 1.7);
    EXPECT_EQ(bent.x1, 0.42);
    EXPECT_EQ(told, (std::vector<bool>{true, false}));
}

TEST(GradientBar, StopsAreAddedMovedAndTakenAway) {
    GradientBar bar;
    bar.resize(216, 40);
    bar.show();
    bar.setGradient({{{{0, 0, 0, 1}, 0}, {{1, 1, 1, 1}, 1}}, 0});
    QTest::mouseClick(&bar, Qt::LeftButton, {}, {58, 30});   // a quarter of the way
    ASSERT_EQ(bar.gradient().stops.size(), 3u);
    EXPECT_NEAR(bar.gradient().stops[1].location, 0.25, 0.01);
    EXPECT_NEAR(bar.gradient().stops[1].color.r, 0.25, 0.01);   // it changes nothing by itself
    EXPECT_EQ(bar.chosen(), 1u);
    bar.setFocus();
    QTest::keyClick(&bar, Qt::Key_Delete);
    EXPECT_EQ(bar.gradient().stops.size(), 2u);
    QTest::keyClick(&bar, Qt::Key_Delete);
    EXPECT_EQ(bar.gradient().stops.size(), 2u);   // two are the fewest
}

}   // namespace
}   // namespace tavix::editor
