// What a person does with documents: open, save, close, quit, come back.
#include "EditorWindow.h"
#include "TavixEditor/Stage/QtPoints.h"

#include "Editor/EditorDesignSystem/Style/Tokens.h"
#include "TavixEditor/App/OneInstance.h"
#include "TavixEditor/App/ThemeChoice.h"
#include "TavixEditor/Stage/StageView.h"
#include "TavixEditor/Windows/BundleCopy.h"
#include "TavixEditor/Windows/RecentCard.h"
#include "TavixEditor/Windows/Thumbnails.h"
#include "TavixPlatform/Text/FontBook.h"

#include <QApplication>
#include <QFileDialog>
#include <QGlyphRun>
#include <QLabel>
#include <QListWidget>
#include <QTextLayout>

namespace tavix::editor {
namespace {

TEST_F(EditorWindow, ShowsThePictureOfTheCompositionThatIsOpened) {
    open(makeBundle("square"));
    EXPECT_EQ(window->windowTitle(), QStringLiteral("square[*] — Tavix"));
    const StageView& stage = window->editor().stage();
    ASSERT_TRUE(until([&] { return !stage.frame().isNull(); }));
    // The shape is white, and takes the middle quarter of a black canvas.
    const QImage frame = stage.frame();
    EXPECT_EQ(QColor(frame.pixel(frame.width() / 2, frame.height() / 2)), QColor(Qt::white));
    EXPECT_EQ(QColor(frame.pixel(frame.width() / 4, frame.height() / 2)), QColor(Qt::black));
    // And is on the screen where the stage says that the canvas is.
    const QImage shown = window->editor().stage().grab().toImage();
    const QPoint middle = qPoint(stage.viewport().drawnRect().center()).toPoint();
    EXPECT_EQ(QColor(shown.pixel(middle)), QColor(Qt::white));
}

// Brackets belong to no script, and are asked for with the Latin letters beside them.
TEST_F(EditorWindow, WritesLettersThatItsOwnFontLacksOnceTextWasDrawn) {
    const text::FontBook book;
    if (book.named("Noto Sans CJK JP", 12).isStandIn) GTEST_SKIP() << "needs fonts-noto-cjk";
    for (const char* words : {"「Tavix」", "（A）", "モーション", "日本語 A", "한국어", "→ ⌘"}) {
        QTextLayout layout(QString::fromUtf8(words), QApplication::font());
        layout.beginLayout();
        layout.createLine();
        layout.endLayout();
        for (const QGlyphRun& run : layout.glyphRuns()) EXPECT_FALSE(run.glyphIndexes().contains(0)) << words;
    }
}

TEST_F(EditorWindow, TellsWhatIsNoCompositionAndLeavesTheOpenOneAlone) {
    const auto bundle = makeBundle("square");
    open(bundle);
    edit();
    window->openDocument("/etc/hostname");
    EXPECT_EQ(state().errorMessage(), "Not a Tavix composition — open a .tavixcomp bundle.");
    EXPECT_EQ(state().bundle(), bundle);
    EXPECT_TRUE(state().hasUnsavedChanges());
}

TEST_F(EditorWindow, TheWelcomeScreenTellsAnErrorInWhiteOnRedAboveItsLowerEdge) {
    auto* const error = window->findChild<QLabel*>(QStringLiteral("welcomeError"));
    ASSERT_TRUE(error);
    EXPECT_FALSE(error->isVisible());
    window->openDocument("/etc/hostname");
    ASSERT_TRUE(error->isVisible());
    EXPECT_EQ(error->text(), QStringLiteral("Not a Tavix composition — open a .tavixcomp bundle."));
    EXPECT_EQ(error->parentWidget()->height() - error->geometry().bottom() - 1, 12);
    EXPECT_TRUE(error->parentWidget()->rect().contains(error->geometry()));
    EXPECT_EQ(error->contentsMargins(), QMargins(8, 8, 8, 8));
    const QImage seen = window->grab().toImage();
    const QPoint corner = error->mapTo(window.get(), QPoint(3, 3));
    const QColor ground = seen.pixelColor(corner * seen.devicePixelRatio());
    EXPECT_GT(ground.red(), 3 * ground.green());
    EXPECT_GT(ground.red(), 3 * ground.blue());
    int white = 0;
    const QRect words(error->mapTo(window.get(), QPoint(8, 8)), QSize(330, error->height() - 16));
    for (int y = words.top(); y < words.bottom(); ++y)
        for (int x = words.left(); x < words.right(); ++x)
            white += seen.pixelColor(QPoint(x, y) * seen.devicePixelRatio()).green() > 220;
    EXPECT_GT(white, 100);
    open(makeBundle("square"));
    EXPECT_FALSE(error->isVisible());
}

// Return in the list presses the button as well.
TEST_F(EditorWindow, ATemplateIsAskedForItsPlaceOnce) {
    window->actions().newProject->trigger();
    QWidget* const sheet = dialog("newProject");
    ASSERT_TRUE(sheet);
    auto* const list = sheet->findChild<QListWidget*>();
    ASSERT_TRUE(until([&] { return list->count() > 0 && list->currentItem(); }));
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Return);
    QTest::qWait(50);
    EXPECT_EQ(sheet->findChildren<QFileDialog*>(QStringLiteral("newProjectTarget")).size(), 1);
}

TEST_F(EditorWindow, AClosedWindowAsksForWhatIsNotSavedAndCancelKeepsIt) {
    open(makeBundle("square"));
    edit();
    bool isClosed = false, hasStayed = false;
    window->onClosed = [&] { isClosed = true; };
    window->onStayed = [&] { hasStayed = true; };
    window->actions().quit->trigger();
    QWidget* question = dialog("unsavedChanges");
    ASSERT_TRUE(question);
    bool isTold = false;
    for (const auto* label : question->findChildren<QLabel*>())
        isTold = isTold ||
                 label->text() == QStringLiteral("Do you want to save the changes you made to “square”?");
    EXPECT_TRUE(isTold);
    click(question, QStringLiteral("Cancel"));
    QTest::qWait(50);
    EXPECT_FALSE(isClosed);
    EXPECT_TRUE(hasStayed) << "so that no other window goes";
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(layer().opacity, 0.5);
}

TEST_F(EditorWindow, SaveInTheQuestionWritesTheFileBeforeTheWindowGoes) {
    const auto bundle = makeBundle("square");
    open(bundle);
    edit();
    bool isClosed = false;
    window->onClosed = [&] { isClosed = true; };
    window->close();
    click(dialog("unsavedChanges"), QStringLiteral("Save"));
    ASSERT_TRUE(until([&] { return isClosed; }));
    EXPECT_NE(fileOf(bundle).find("\"opacity\" : 0.5"), std::string::npos) << fileOf(bundle);
}

TEST_F(EditorWindow, DontSaveLeavesTheFileAsItWas) {
    const auto bundle = makeBundle("square");
    const std::string before = fileOf(bundle);
    open(bundle);
    edit();
    window->actions().close->trigger();
    click(dialog("unsavedChanges"), QStringLiteral("Don’t Save"));
    ASSERT_TRUE(until([&] { return !state().isLoaded(); }));
    EXPECT_EQ(fileOf(bundle), before);
    EXPECT_EQ(window->size(), QSize(780, 500));   // the welcome screen
}

TEST_F(EditorWindow, ASaveThatFailsStopsTheClose) {
    const auto bundle = makeBundle("square");
    open(bundle);
    edit();
    std::filesystem::remove_all(bundle);
    std::ofstream(bundle.string()) << "in the way";
    bool isClosed = false;
    window->onClosed = [&] { isClosed = true; };
    window->close();
    click(dialog("unsavedChanges"), QStringLiteral("Save"));
    ASSERT_TRUE(until([&] { return state().errorMessage().has_value(); }));
    QTest::qWait(50);
    EXPECT_FALSE(isClosed);
    EXPECT_EQ(layer().opacity, 0.5);
}

TEST_F(EditorWindow, RevertBringsBackWhatIsInTheFileAndAnotherProjectKeepsTheWindowAsItIs) {
    const auto bundle = makeBundle("square"), other = makeBundle("other");
    open(bundle);
    const QSize size = window->size();
    edit();
    window->actions().revert->trigger();
    ASSERT_TRUE(until([&] { return state().isLoaded() && !state().hasUnsavedChanges(); }));
    EXPECT_EQ(layer().opacity, 1);
    EXPECT_EQ(state().bundle(), bundle);
    window->openDocument(other);
    EXPECT_EQ(window->size(), size);
    ASSERT_TRUE(until([&] { return state().bundle() == other; }));
    EXPECT_EQ(window->size(), size);
    window->openDocument(bundle.parent_path() / "gone.tavixcomp");
    EXPECT_EQ(state().bundle(), other);
}

TEST_F(EditorWindow, ListsWhatWasOpenTheLatestFirst) {
    open(makeBundle("first"));
    open(makeBundle("second"));
    window->actions().close->trigger();
    const auto names = [&] {
        QStringList shown;
        for (auto* button : window->findChildren<QAbstractButton*>())
            if (dynamic_cast<RecentCard*>(button) && button->isVisible()) shown << button->text();
        return shown;
    };
    EXPECT_TRUE(until([&] {
        return names() == QStringList({QStringLiteral("second"), QStringLiteral("first")});
    })) << names().join(QLatin1Char(' ')).toStdString();
}

// Two thirds of the way through the first scene the second one is half there.
TEST_F(EditorWindow, AThumbnailShowsOneSceneAndNoTransition) {
    const auto bundle = makeBundle("two");
    CompositionSpec spec = CompositionProjectBundle::read(bundle);
    auto& shape = std::get<ShapeContent>(spec.scenes[0].layers[0].content);
    shape.widthFraction = shape.heightFraction = 1;
    shape.fill = RGBAColor{1, 0, 0, 1};
    spec.scenes[0].durationSec = 3;
    spec.scenes.push_back(spec.scenes[0]);
    spec.scenes[0].transition.emplace().durationSec = 1;
    spec.scenes[1].durationSec = 3.2;
    std::get<ShapeContent>(spec.scenes[1].layers[0].content).fill = RGBAColor{0, 1, 0, 1};
    std::ofstream(CompositionProjectBundle::specFile(bundle)) << encodedJson(spec);
    const QImage picture =
        thumbnailOf(bundle, std::filesystem::path(home_.path().toStdString()) / "cache", 40);
    ASSERT_FALSE(picture.isNull());
    EXPECT_EQ(picture.pixelColor(picture.width() / 2, picture.height() / 2), QColor(Qt::green));
}

TEST_F(EditorWindow, SavesAsAnotherBundleAndLeavesTheFirstAsItWas) {
    const auto bundle = makeBundle("square");
    const std::string before = fileOf(bundle);
    open(bundle);
    edit();
    const auto target = bundle.parent_path() / "copy.tavixcomp";
    bool isDone = false;
    copyBundle(*studio, target, [&] { isDone = true; });
    ASSERT_TRUE(until([&] { return isDone; }));
    EXPECT_EQ(fileOf(bundle), before);
    EXPECT_NE(fileOf(target).find("\"opacity\" : 0.5"), std::string::npos);
    bool isRefused = false;   // told for a moment at least: a preview that is ready takes errors away
    const Connection told =
        watch([&] { isRefused = isRefused || state().errorMessage(); }, state().errorMessage);
    copyBundle(*studio, bundle, [] { FAIL(); });
    ASSERT_TRUE(until([&] { return isRefused; }));
    EXPECT_EQ(fileOf(bundle), before);
}

TEST(ThemeChoice, FollowsTheDesktopUnlessOneWasChosen) {
    DesktopLook look;
    EXPECT_TRUE(themeFor(ThemeWish::desktop, look).isDark);
    const QString space = QStringLiteral("org.freedesktop.appearance");
    look.take(space, QStringLiteral("color-scheme"), 2u);
    EXPECT_FALSE(themeFor(ThemeWish::desktop, look).isDark);
    EXPECT_TRUE(themeFor(ThemeWish::dark, look).isDark);
    look.take(space, QStringLiteral("contrast"), 1u);
    EXPECT_EQ(&themeFor(ThemeWish::desktop, look), &design::contrastLight());
    look.take(QStringLiteral("org.gnome.desktop.interface"), QStringLiteral("enable-animations"), false);
    EXPECT_TRUE(look.isMotionReduced);
    look.take(space, QStringLiteral("color-scheme"), QStringLiteral("nonsense"));
    EXPECT_EQ(look.scheme, DesktopLook::Scheme::none);
}

TEST(OneInstance, HandsItsBundlesToTheOneThatRuns) {
    const QString name = QStringLiteral("tavix-editor-test-%1").arg(QCoreApplication::applicationPid());
    EXPECT_FALSE(OneInstance(name).handOver({QStringLiteral("/a")}));
    OneInstance first(name);
    QList<QStringList> told;
    first.listen([&](const QStringList& bundles) { told << bundles; });
    EXPECT_TRUE(OneInstance(name).handOver({QStringLiteral("/a b.tavixcomp"), QStringLiteral("/ü")}));
    EXPECT_TRUE(OneInstance(name).handOver({}));
    ASSERT_TRUE(QTest::qWaitFor([&] { return told.size() == 2; }, 5000));
    EXPECT_EQ(told[0], QStringList({QStringLiteral("/a b.tavixcomp"), QStringLiteral("/ü")}));
    EXPECT_TRUE(told[1].isEmpty());
}

}   // namespace
}   // namespace tavix::editor
