// The windows of the program among each other: opened by others, with one set of keys, gone together.
#include "TavixEditor/App/Application.h"
#include "EditorWindow.h"

#include <QAction>
#include <QFileDialog>
#include <QLabel>

#include <algorithm>

namespace tavix::editor {
namespace {

namespace fs = std::filesystem;

class Windows : public EditorWindow {
protected:
    Windows() : before_(qgetenv("HOME")) {
        window.reset();
        studio.reset();
        qputenv("HOME", home_.path().toUtf8());
        start();
    }
    ~Windows() override {
        application.reset();
        qputenv("HOME", before_);
    }
    fs::path home() const { return home_.path().toStdString(); }
    void start() {
        application.reset();
        application = std::make_unique<Application>(
            system::StandardFolders{home() / "config", home() / "state", home() / "cache", home() / "data"});
    }
    static std::vector<MainWindow*> shown() {
        std::vector<MainWindow*> all;
        for (QWidget* const each : QApplication::topLevelWidgets())
            if (auto* const main = dynamic_cast<MainWindow*>(each); main && main->isVisible())
                all.push_back(main);
        return all;
    }
    static QStringList titles() {
        QStringList all;
        for (const MainWindow* const each : shown()) all << each->windowTitle();
        all.sort();
        return all;
    }
    static MainWindow* showing(const char* name) {
        MainWindow* found = nullptr;
        until([&] {
            for (MainWindow* const each : shown())
                if (each->windowTitle().startsWith(QLatin1String(name)) &&
                    each->actions().addText->isEnabled())
                    found = each;
            return found != nullptr;
        });
        return found;
    }
    void openTwo() {
        application->open({words(makeBundle("one")), words(makeBundle("two"))});
        ASSERT_TRUE(showing("one") && showing("two"));
    }
    static QString words(const fs::path& path) { return QString::fromStdString(path.string()); }
    static QWidget* questionOf(MainWindow* of) {
        QWidget* found = nullptr;
        until([&] {
            found = of->findChild<QWidget*>(QStringLiteral("unsavedChanges"));
            return found && found->isVisible();
        });
        return found;
    }

    std::unique_ptr<Application> application;

private:
    QByteArray before_;
};

TEST_F(Windows, ABundleTakesTheWindowThatIsEmptyAndTheNextOneItsOwn) {
    application->open({});
    ASSERT_EQ(shown().size(), 1u);
    const MainWindow* const first = shown().front();
    openTwo();
    EXPECT_EQ(titles(), (QStringList{QStringLiteral("one[*] — Tavix"), QStringLiteral("two[*] — Tavix")}));
    EXPECT_EQ(showing("one"), first);
}

TEST_F(Windows, ABundleThatIsOpenComesToTheFrontInsteadOfASecondTime) {
    openTwo();
    showing("one")->actions().addText->trigger();
    application->open({words(home() / "two.tavixcomp" / ".." / "one.tavixcomp")});
    EXPECT_EQ(shown().size(), 2u);
    EXPECT_TRUE(showing("one")->isWindowModified()) << "what is not saved stays";
    ASSERT_TRUE(until([&] { return QApplication::activeWindow() == showing("one"); }));
    application->open({});
    EXPECT_EQ(shown().size(), 2u);
}

// However it is asked for, and before it has arrived.
TEST_F(Windows, ABundleHasOneWindow) {
    const QString one = words(makeBundle("one"));
    application->open({one, one});
    EXPECT_EQ(shown().size(), 1u);
    application->open({words(makeBundle("two"))});
    ASSERT_TRUE(showing("one") && showing("two"));
    showing("two")->actions().addText->trigger();
    showing("two")->openDocument(home() / "one.tavixcomp");
    EXPECT_FALSE(showing("two")->findChild<QWidget*>(QStringLiteral("unsavedChanges"))) << "it stays open";
    ASSERT_TRUE(until([&] { return QApplication::activeWindow() == showing("one"); }));
    QTest::qWait(50);
    ASSERT_TRUE(showing("two")) << "it keeps what it shows";
    EXPECT_EQ(shown().size(), 2u);

    const std::string before = fileOf(home() / "one.tavixcomp");
    showing("two")->actions().saveAs->trigger();
    auto* const dialog = showing("two")->findChild<QFileDialog*>(QStringLiteral("saveAsTarget"));
    ASSERT_TRUE(dialog);
    Q_EMIT dialog->fileSelected(one);
    dialog->close();
    const auto labels = showing("two")->findChildren<QLabel*>();
    EXPECT_TRUE(std::ranges::any_of(labels, [](const QLabel* label) {
        return label->text().startsWith(QStringLiteral("one.tavixcomp is open in another window."));
    }));
    QTest::qWait(50);
    EXPECT_EQ(fileOf(home() / "one.tavixcomp"), before);
    EXPECT_TRUE(showing("one") && showing("two"));
    // What it had is free once it is closed.
    showing("one")->actions().close->trigger();
    MainWindow* const two = showing("two");
    two->openDocument(home() / "one.tavixcomp");
    click(questionOf(two), QStringLiteral("Don’t Save"));
    ASSERT_TRUE(until([&] { return showing("one") && !showing("two"); }));
}

TEST_F(Windows, ABundleThatIsOpenedWhileAnotherWindowAsksStaysWhereItIs) {
    const fs::path one = makeBundle("one");
    application->open({words(makeBundle("two"))});
    MainWindow* const two = showing("two");
    ASSERT_TRUE(two);
    two->actions().addText->trigger();
    two->openDocument(one);
    QWidget* const question = questionOf(two);
    ASSERT_TRUE(question);
    application->open({words(one)});
    ASSERT_TRUE(showing("one"));
    click(question, QStringLiteral("Don’t Save"));
    QTest::qWait(50);
    EXPECT_EQ(showing("two"), two);
    EXPECT_EQ(shown().size(), 2u);
}

TEST_F(Windows, ABundleThatCouldNotBeReadIsOpenInNone) {
    const fs::path bundle = makeBundle("one");
    const std::string before = fileOf(bundle);
    const fs::path file = bundle / "composition.json";
    std::ofstream(file) << "{";
    application->open({words(bundle)});
    const auto isTold = [] {
        return std::ranges::any_of(shown(), [](const MainWindow* each) {
            const auto* const error = each->findChild<QWidget*>(QStringLiteral("welcomeError"));
            return error && error->isVisible();
        });
    };
    ASSERT_TRUE(until(isTold));
    std::ofstream(file) << before;
    application->open({words(bundle)});
    EXPECT_TRUE(showing("one"));
    EXPECT_EQ(shown().size(), 1u);
}

TEST_F(Windows, WhatIsNoBundleIsToldInAWindowOfItsOwn) {
    openTwo();
    application->open({QStringLiteral("/etc/hostname")});
    ASSERT_EQ(shown().size(), 3u);
    for (const MainWindow* const each : shown()) {
        const auto* const error = each->findChild<QWidget*>(QStringLiteral("welcomeError"));
        EXPECT_EQ(error && error->isVisible(), each->windowTitle() == QStringLiteral("Tavix"));
    }
}

TEST_F(Windows, QuitAsksOneAfterAnotherAndWhoStaysKeepsTheRest) {
    openTwo();
    for (const char* name : {"one", "two"}) showing(name)->actions().addText->trigger();
    showing("two")->actions().quit->trigger();
    ASSERT_TRUE(questionOf(showing("one")));
    EXPECT_FALSE(showing("two")->findChild<QWidget*>(QStringLiteral("unsavedChanges"))) << "one at a time";
    click(questionOf(showing("one")), QStringLiteral("Don’t Save"));
    ASSERT_TRUE(until([&] { return titles() == QStringList(QStringLiteral("two[*] — Tavix")); }));
    click(questionOf(showing("two")), QStringLiteral("Cancel"));
    QTest::qWait(50);
    ASSERT_TRUE(showing("two"));
    EXPECT_TRUE(showing("two")->isWindowModified());
    // The next one that is closed is no quit any more.
    application->open({words(home() / "one.tavixcomp")});
    ASSERT_TRUE(showing("one"));
    showing("one")->actions().close->trigger();
    QTest::qWait(50);
    ASSERT_TRUE(showing("two")) << "it was not asked again";
    EXPECT_EQ(fileOf(home() / "two.tavixcomp").find("\"text\""), std::string::npos);
}

TEST_F(Windows, AKeyThatIsChangedInOneHoldsInAllAndInThoseToCome) {
    openTwo();
    const QKeySequence key(QStringLiteral("Ctrl+Alt+B"));
    const auto keyIn = [](const char* name) { return showing(name)->actions().duplicate->shortcut(); };
    const QKeySequence usual = keyIn("two");
    ASSERT_NE(usual, key);
    showing("one")->shortcuts().set(showing("one")->actions().duplicate, key);
    EXPECT_EQ(keyIn("two"), key);
    application->open({words(makeBundle("three"))});
    EXPECT_EQ(keyIn("three"), key);
    showing("three")->shortcuts().resetAll();
    EXPECT_EQ(keyIn("one"), usual);
    EXPECT_EQ(keyIn("two"), usual);
}

// A project whose command is gone is forgotten by what runs when the first window stands.
TEST_F(Windows, TheFirstWindowBringsInstalledCommandsUpToDate) {
    const fs::path registry = home() / ".tavix/projects.json";
    fs::create_directories(registry.parent_path());
    const auto text = [&] {
        std::ifstream in(registry);
        return (std::stringstream() << in.rdbuf()).str();
    };
    std::ofstream(registry) << "[\"/gone/with/its/command\"]";
    application->open({});
    EXPECT_TRUE(until([&] { return text().find("gone") == std::string::npos; })) << text();
    std::ofstream(registry) << "[\"/gone/as/well\"]";
    application->open({words(makeBundle("one")), words(makeBundle("two"))});
    ASSERT_TRUE(showing("two"));
    QTest::qWait(100);
    EXPECT_NE(text().find("gone"), std::string::npos) << "once is enough";
}

}   // namespace
}   // namespace tavix::editor
