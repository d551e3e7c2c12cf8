// What a person does to an open document: undo, play, drag, add, copy, and every command by its name.
#include "EditorWindow.h"
#include "TavixEditor/Stage/QtPoints.h"

#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixEditor/Panels/CommandMatch.h"
#include "TavixEditor/Stage/StageView.h"
#include "TavixLive/Operations/SceneOperations.h"

#include <QAction>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>

namespace tavix::editor {
namespace {

TEST_F(EditorWindow, UndoAndRedoTellTheirStepsInTheMenu) {
    open(makeBundle("square"));
    EXPECT_FALSE(window->actions().undo->isEnabled());
    edit();
    EXPECT_EQ(window->actions().undo->text(), QStringLiteral("&Undo Fade"));
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(layer().opacity, 1);
    EXPECT_EQ(window->actions().redo->text(), QStringLiteral("&Redo Fade"));
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(layer().opacity, 0.5);
}

TEST_F(EditorWindow, TheSpaceBarPlaysAndPausesAndPointsStepByFrames) {
    open(makeBundle("square"));
    QTest::keyClick(window.get(), Qt::Key_Period);
    EXPECT_NEAR(state().currentTime(), 1.0 / double(state().edited().spec.output.fps), 1e-9);
    QTest::keyClick(window.get(), Qt::Key_Space);
    EXPECT_TRUE(state().isPlaying());
    EXPECT_EQ(window->actions().play->text(), QStringLiteral("&Pause"));
    ASSERT_TRUE(until([&] { return state().currentTime() > 0.3; }));
    QTest::keyClick(window.get(), Qt::Key_Space);
    EXPECT_FALSE(state().isPlaying());
}

TEST_F(EditorWindow, ADragOnTheStageMovesTheLayerInOneStepAndEscapeTakesItBack) {
    open(makeBundle("square"));
    StageView& stage = window->editor().stage();
    ASSERT_TRUE(until([&] { return !stage.frame().isNull(); }));
    const QPointF middle = qPoint(stage.viewport().toView({200, 200}));
    const auto point = [&](QPointF at) { return at.toPoint(); };
    const double scale = stage.viewport().scale();
    // It can be taken hold of as soon as it is known where it is.
    ASSERT_TRUE(until([&] {
        QTest::mouseMove(&stage, point(middle));
        return stage.cursor().shape() != Qt::ArrowCursor ||
               (QTest::mouseClick(&stage, Qt::LeftButton, {}, point(middle)),
                   state().edited().selection.layer.has_value());
    }));
    const QPointF to = middle + QPointF(60, 33);
    QTest::mousePress(&stage, Qt::LeftButton, {}, point(middle));
    for (const double part : {0.3, 0.7, 1.0}) QTest::mouseMove(&stage, point(middle + part * (to - middle)));
    QTest::mouseRelease(&stage, Qt::LeftButton, {}, point(to));
    EXPECT_NEAR(layer().position.x, 200 + 60 / scale, 6 / scale + 1);   // the guides may have pulled
    EXPECT_NEAR(layer().position.y, 200 + 33 / scale, 6 / scale + 1);
    ASSERT_TRUE(until([&] { return window->actions().undo->text() == QStringLiteral("&Undo Move layer"); }));
    window->actions().undo->trigger();
    EXPECT_EQ(layer().position, (PixelPoint{200, 200}));
    EXPECT_FALSE(window->actions().undo->isEnabled());

    QTest::mousePress(&stage, Qt::LeftButton, {}, point(middle));
    QTest::mouseMove(&stage, point(to));
    QTest::keyClick(&stage, Qt::Key_Escape);
    EXPECT_EQ(layer().position, (PixelPoint{200, 200}));
}

TEST_F(EditorWindow, ArrowsNudgeAndDeleteRemovesWhatIsSelected) {
    open(makeBundle("square"));
    StageView& stage = window->editor().stage();
    studio->model.selectLayer(0, 0);
    stage.setFocus();
    ASSERT_TRUE(until([&] {
        QTest::keyClick(&stage, Qt::Key_Right);
        return layer().position.x > 200;
    }));
    const double x = layer().position.x;
    QTest::keyClick(&stage, Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(layer().position, (PixelPoint{x, 190}));
    QTest::keyClick(&stage, Qt::Key_Delete);
    EXPECT_TRUE(state().edited().spec.scenes[0].layers.empty());
}

TEST_F(EditorWindow, ATextThatIsAddedStandsInTheSceneThatIsShownAndCanBeSeen) {
    open(makeBundle("square"));
    studio->model.update("Scene", [](EditState& changed) {
        SceneOperations::addScene(changed);
        changed.selection = {};
    });
    const double secondSec = CompositionTimeline(state().edited().spec).startSec[1];
    ASSERT_TRUE(until([&] { return state().outputDuration() > secondSec; }));
    studio->model.seek(secondSec + 0.1);
    ASSERT_TRUE(until([&] { return state().currentTime() > secondSec; }));
    studio->model.clearSelection();
    QTest::keyClick(window.get(), Qt::Key_T);
    EXPECT_EQ(state().edited().spec.scenes[0].layers.size(), 1u);
    ASSERT_EQ(state().edited().spec.scenes[1].layers.size(), 1u);
    EXPECT_TRUE(until([&] { return state().currentTime() >= secondSec + 0.5; })) << "it fades up until then";
}

TEST_F(EditorWindow, ALayerForADocumentWithoutScenesChangesNothing) {
    studio->model.loadInMemory(CompositionSpec(), "/nowhere");
    ASSERT_TRUE(until([&] { return state().isLoaded(); }));
    ASSERT_TRUE(state().edited().spec.scenes.empty());
    const Actions& actions = window->actions();
    for (QAction* add : {actions.addText, actions.addDevice, actions.addImage, actions.addVideo,
             actions.addShape, actions.addFill}) {
        add->setEnabled(true);
        add->trigger();
    }
    EXPECT_FALSE(state().hasUnsavedChanges());
}

// An empty layer would be a fault before anybody has done a thing.
TEST_F(EditorWindow, ImagesVideosAndMusicAreAskedForAndTakenIn) {
    const auto bundle = makeBundle("square");
    open(bundle);
    const std::filesystem::path file = std::filesystem::path(home_.path().toStdString()) / "dot.png";
    QImage dot(40, 20, QImage::Format_RGB32);
    dot.fill(Qt::red);
    dot.save(QString::fromStdString(file.string()));
    const Actions& actions = window->actions();
    for (QAction* const add : {actions.addVideo, actions.addMusic}) {
        add->trigger();
        auto* const asked = qobject_cast<QFileDialog*>(dialog("filesToAdd"));
        ASSERT_TRUE(asked) << add->text().toStdString();
        for (const char* mine : {"*.png", "*.mp4", "*.flac"})
            EXPECT_EQ(asked->nameFilters().join(QLatin1Char(' ')).contains(QLatin1String(mine)),
                std::string_view(mine) == (add == actions.addVideo ? "*.mp4" : "*.flac"));
        asked->reject();
        ASSERT_TRUE(until([&] { return !window->findChild<QFileDialog*>(QStringLiteral("filesToAdd")); }));
    }
    EXPECT_FALSE(state().hasUnsavedChanges());
    actions.addImage->trigger();
    Q_EMIT qobject_cast<QFileDialog*>(dialog("filesToAdd"))
        ->filesSelected({QString::fromStdString(file.string())});
    ASSERT_TRUE(until([&] { return state().edited().spec.scenes[0].layers.size() == 2; }));
    const CompositionLayer& added = state().edited().spec.scenes[0].layers[1];
    EXPECT_EQ(std::get<ImageContent>(added.content).path, "assets/dot.png");
    EXPECT_TRUE(std::filesystem::exists(bundle / "assets/dot.png"));
    EXPECT_FALSE(actions.findBeats->isEnabled()) << "there is no music";
}

TEST_F(EditorWindow, ThePaletteTellsThatNothingIsCalledSo) {
    open(makeBundle("square"));
    window->actions().palette->trigger();
    QWidget* const palette = dialog("commandPalette");
    ASSERT_TRUE(palette);
    auto* const list = palette->findChild<QListWidget*>();
    EXPECT_GT(list->count(), 5);
    QTest::keyClicks(palette->findChild<QLineEdit*>(), QStringLiteral("qqqq"));
    ASSERT_EQ(list->count(), 1);
    EXPECT_EQ(list->item(0)->text(), QStringLiteral("No command is called so."));
    QTest::keyClick(palette->findChild<QLineEdit*>(), Qt::Key_Return);
    EXPECT_TRUE(palette->isVisible());
}

TEST_F(EditorWindow, TheEditMenuCopiesPastesDuplicatesAndRemovesAllThatIsSelected) {
    open(makeBundle("square"));
    const Actions& actions = window->actions();
    const auto count = [&] { return state().edited().spec.scenes[0].layers.size(); };
    studio->model.selectLayer(0, 0);
    actions.copy->trigger();
    actions.paste->trigger();
    EXPECT_EQ(count(), 2u);
    window->editor().stage().setFocus();
    QTest::keyClick(&window->editor().stage(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(state().edited().selection.layers().size(), 2u);
    actions.duplicate->trigger();
    EXPECT_EQ(count(), 4u);
    actions.cut->trigger();
    EXPECT_EQ(count(), 2u) << "the two that were made are selected";
    actions.undo->trigger();
    EXPECT_EQ(count(), 4u);
    actions.remove->trigger();
    EXPECT_EQ(count(), 2u);
}

TEST(CommandMatch, PutsWordsBeforePartsOfWordsAndThoseBeforeLoseLetters) {
    const QString save = QStringLiteral("Save As…"), safe = QStringLiteral("Safe Areas"),
                  text = QStringLiteral("Add Text");
    const auto rank = [](const QString& words, const char* letters) {
        return commandRank(words, QString::fromLatin1(letters));
    };
    EXPECT_EQ(rank(text, "xyz"), std::nullopt);
    EXPECT_LT(rank(save, "sav"), rank(QStringLiteral("Dissave"), "sav"));
    EXPECT_LT(rank(safe, "area"), rank(safe, "sfar"));
    EXPECT_TRUE(rank(text, "adt"));
    EXPECT_EQ(rank(text, "tda"), std::nullopt);   // the order counts
    EXPECT_EQ(rank(text, ""), 0);
}

TEST_F(EditorWindow, ThePaletteRunsTheCommandThatIsFoundFirst) {
    open(makeBundle("square"));
    QTest::keyClick(window.get(), Qt::Key_K, Qt::ControlModifier);
    QWidget* palette = dialog("commandPalette");
    ASSERT_TRUE(palette);
    QWidget* search = palette->focusWidget();
    ASSERT_TRUE(search);
    QTest::keyClicks(search, QStringLiteral("add sce"));
    QTest::keyClick(search, Qt::Key_Return);
    EXPECT_TRUE(until([&] { return state().edited().spec.scenes.size() == 2; }));
}

}   // namespace
}   // namespace tavix::editor
