// What stands beside the stage: findings with their repairs, and what other programs changed.
#include "EditorWindow.h"

#include "TavixEditor/Panels/Changes.h"
#include "TavixEditor/Panels/Findings.h"
#include "TavixEditor/Panels/NoteList.h"
#include "TavixEditor/Panels/NoticeBar.h"
#include "TavixLive/Saving/DocumentOnDisk.h"

#include <QAccessible>
#include <QAction>
#include <QLabel>
#include <QPushButton>

#include <gmock/gmock.h>

namespace tavix::editor {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::vector<std::string_view> codesOf(const Findings::Told& told) {
    std::vector<std::string_view> codes;
    for (const FindingRow& row : told.rows) codes.push_back(row.finding.code);
    return codes;
}

class Panels : public EditorWindow {
protected:
    std::filesystem::path write(const std::string& text) {
        const auto bundle = std::filesystem::path(home_.path().toStdString()) / "film.tavixcomp";
        std::filesystem::create_directories(bundle);
        CompositionProjectBundle::saveText(text, bundle);
        return bundle;
    }
    Findings& findings() { return window->editor().findings(); }
    Changes& changes() { return window->editor().changes(); }
    bool isJudged() {
        return until([&] { return !findings().isLooking(); });
    }
    NoteList* list(const char* panel) {
        return window->findChild<QWidget*>(QLatin1String(panel))->findChild<NoteList*>();
    }
    QString notice() {
        const auto& bar = window->editor().notices();
        return bar.isVisible() ? bar.accessibleName() : QString();
    }
};

constexpr const char* flawed = R"({"output": {"widthPx": 400, "heightPx": 400},
    "scenes": [
        {"id": "first", "durationSec": 2, "layers": [
            {"kind": "shape", "shape": {"widthFraction": 0.25}}]},
        {"id": "second", "durationSec": 2, "layers": [
            {"kind": "shape", "shape": {"widthFraction": 0.25}},
            {"id": "box", "fromSec": 0.5, "opactiy": 0.5, "kind": "shape", "shape": {"widthFraction": 0.25}},
            {"kind": "image", "image": {"path": "assets/gone.png"}}]}]})";

TEST_F(Panels, AClickOnAFindingSelectsItsLayerAndShowsItsTime) {
    open(write(flawed));
    ASSERT_TRUE(isJudged());
    ASSERT_EQ(codesOf(findings().told()).front(), "picture-missing") << "what stops the film comes first";
    EXPECT_THAT(codesOf(findings().told()), ::testing::Contains("key-unknown"));
    window->actions().findings->trigger();
    NoteList* rows = list("findingsPanel");
    ASSERT_TRUE(rows->isVisible());
    int row = 0;
    while (findings().told().rows[std::size_t(row)].finding.code != "key-unknown") ++row;
    EXPECT_EQ(findings().told().rows[std::size_t(row)].where, "second · \"box\" · Opactiy");
    EXPECT_TRUE(
        rows->item(row)->data(Qt::AccessibleTextRole).toString().startsWith(QLatin1String("Warning: ")));
    QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, rows->visualItemRect(rows->item(row)).center());
    EXPECT_EQ(state().edited().selection, (Selection{1, 1}));
    EXPECT_GE(state().currentTime(), 2.5);
    EXPECT_LT(state().currentTime(), 4);
    // By keys, too.
    rows->setFocus();
    QTest::keyClick(rows, Qt::Key_Home);
    QTest::keyClick(rows, Qt::Key_Return);
    EXPECT_EQ(state().edited().selection, (Selection{1, 2}));
}

TEST_F(Panels, ARepairIsAStepAndGoesIntoTheFile) {
    const auto bundle = write(flawed);
    open(bundle);
    ASSERT_TRUE(isJudged());
    window->actions().findings->trigger();
    EXPECT_EQ(state().edited().spec.scenes[1].layers[1].opacity, 1);
    click(window.get(), QStringLiteral("Repair All"));
    ASSERT_TRUE(until([&] { return state().edited().spec.scenes[1].layers[1].opacity == 0.5; }));
    EXPECT_EQ(window->actions().undo->text(), QStringLiteral("&Undo Repair All"));
    ASSERT_TRUE(isJudged());
    EXPECT_THAT(codesOf(findings().told()), ::testing::Not(::testing::Contains("key-unknown")));
    window->actions().save->trigger();
    ASSERT_TRUE(until([&] { return !state().hasUnsavedChanges(); }));
    EXPECT_THAT(fileOf(bundle), ::testing::Not(HasSubstr("opactiy")));
    EXPECT_THAT(fileOf(bundle), HasSubstr(R"({"kind": "image", "image": {"path": "assets/gone.png"}})"))
        << "what needs no repair keeps its bytes";
    window->actions().undo->trigger();
    EXPECT_EQ(state().edited().spec.scenes[1].layers[1].opacity, 1);
}

TEST_F(Panels, FindingsFollowEditsAndGoWithTheDocument) {
    open(write(flawed));
    ASSERT_TRUE(isJudged());
    EXPECT_THAT(codesOf(findings().told()), ::testing::Contains("picture-missing"));
    studio->model.update("Short", [](EditState& changed) {
        changed.scene(1)->layers.pop_back();   // the picture that is missing
    });
    EXPECT_TRUE(findings().isLooking());
    ASSERT_TRUE(isJudged());
    EXPECT_THAT(codesOf(findings().told()), ::testing::Not(::testing::Contains("picture-missing")));
    studio->model.selectLayer(0, 0);
    EXPECT_FALSE(findings().isLooking()) << "what is selected changes nothing";
    studio->model.close();
    EXPECT_TRUE(findings().told().rows.empty());
}

TEST_F(Panels, TellsWhatAnotherProgramChangedAndTakesItBack) {
    const auto bundle = write(flawed);
    open(bundle);
    std::string theirs = flawed;
    theirs.replace(theirs.find("\"fromSec\": 0.5"), 14, "\"fromSec\": 0.75");
    CompositionProjectBundle::saveText(theirs, bundle);
    ASSERT_TRUE(until([&] { return changes().news().has_value(); }));
    EXPECT_EQ(notice(), QStringLiteral("Changed by another program: 1 change."));
    ASSERT_EQ(changes().steps().size(), 1u);
    EXPECT_EQ(changes().steps()[0].rows[0].words, "fromSec was 0.5, is 0.75");
    EXPECT_THAT(changes().steps()[0].rows[0].where, HasSubstr("\"box\""));
    QTest::qWait(50);   // its buttons are laid out
    click(&window->editor().notices(), QStringLiteral("Show"));
    QTest::qWait(50);
    EXPECT_TRUE(list("changesPanel")->isVisible());
    EXPECT_TRUE(notice().isEmpty()) << "it has been looked at";
    // An edit of one's own on top: taking theirs back leaves it.
    edit();
    click(window->findChild<QWidget*>(QStringLiteral("changesPanel")), QStringLiteral("Take Back"));
    EXPECT_EQ(state().edited().spec.scenes[1].layers[1].fromSec, 0.5);
    EXPECT_EQ(layer().opacity, 0.5);
    EXPECT_EQ(*studio->model.history().undoName(), "Take Back Changes");
    EXPECT_TRUE(changes().steps().empty());
}

TEST_F(Panels, UndoInTheNoticeTakesTheLastChangeBack) {
    const auto bundle = write(flawed);
    open(bundle);
    std::string theirs = flawed;
    theirs.replace(theirs.find("\"durationSec\": 2"), 16, "\"durationSec\": 5");
    CompositionProjectBundle::saveText(theirs, bundle);
    ASSERT_TRUE(until([&] { return changes().news().has_value(); }));
    EXPECT_EQ(state().edited().spec.scenes[0].durationSec, 5);
    QTest::qWait(50);
    click(&window->editor().notices(), QStringLiteral("Undo"));
    EXPECT_EQ(state().edited().spec.scenes[0].durationSec, 2);
    EXPECT_EQ(*studio->model.history().redoName(), "Take in changes");
    EXPECT_TRUE(notice().isEmpty());
}

TEST_F(Panels, AnExportIsChosenEstimatedAndRunsInTheBar) {
    open(makeBundle("square"));
    studio->model.update("Short", [](EditState& changed) { changed.scene(0)->durationSec = 0.2; });
    window->actions().exportFilm->trigger();
    QWidget* sheet = dialog("exportSheet");
    ASSERT_TRUE(sheet);
    const auto* estimate = sheet->findChild<QLabel*>(QStringLiteral("exportEstimate"));
    EXPECT_TRUE(until([&] { return estimate->text().startsWith(QStringLiteral("About ")); }))
        << estimate->text().toStdString();
    EXPECT_TRUE(sheet->findChild<QPushButton*>(QStringLiteral("go"))->isDefault()) << "Return exports";
    sheet->close();
    const auto file = std::filesystem::path(home_.path().toStdString()) / "film.mp4";
    studio->model.exportTo(file);
    QWidget* bar = window->findChild<QWidget*>(QStringLiteral("exportBar"));
    EXPECT_TRUE(bar->isVisible());
    edit();   // goes on meanwhile
    ASSERT_TRUE(QTest::qWaitFor([&] { return !state().isExporting(); }, 60'000));
    EXPECT_TRUE(std::filesystem::exists(file));
    QTest::qWait(50);
    click(bar, QStringLiteral("Done"));
    EXPECT_FALSE(bar->isVisible());
}

TEST_F(Panels, AnErrorStaysInTheBarUntilItIsDismissed) {
    open(makeBundle("square"));
    state().errorMessage = "Could not save as: No room.";
    edit();
    const double drawn = state().outputDuration();
    ASSERT_TRUE(until([&] { return state().outputDuration() == drawn && state().isLoaded(); }));
    QTest::qWait(400);
    EXPECT_EQ(notice(), QStringLiteral("Could not save as: No room."));
    click(&window->editor().notices(), QStringLiteral("Dismiss"));
    EXPECT_TRUE(notice().isEmpty());
}

}   // namespace
}   // namespace tavix::editor
