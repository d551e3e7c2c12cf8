// The keys of the commands, changed by hand.
#include "EditorWindow.h"

#include "TavixEditor/App/Actions.h"
#include "TavixEditor/App/Shortcuts.h"

#include <QAction>
#include <QKeySequenceEdit>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>

#include <set>

namespace tavix::editor {
namespace {

class ShortcutsTest : public EditorWindow {
protected:
    QTreeWidget* list(QWidget* sheet) { return sheet->findChild<QTreeWidget*>(); }
    QTreeWidgetItem* find(QWidget* sheet, const QString& command) {
        const auto found = list(sheet)->findItems(command, Qt::MatchExactly);
        return found.isEmpty() ? nullptr : found.first();
    }
};

TEST_F(ShortcutsTest, NoKeyBelongsToTwoCommands) {
    std::set<QString> taken;
    for (const QAction* command : window->actions().all)
        for (const QKeySequence& key : command->shortcuts())
            EXPECT_TRUE(taken.insert(key.toString()).second)
                << key.toString().toStdString() << " of " << command->text().toStdString();
}

TEST_F(ShortcutsTest, AKeyThatIsTakenIsToldAndChangesHands) {
    window->actions().shortcuts->trigger();
    QWidget* sheet = dialog("shortcutSheet");
    ASSERT_TRUE(sheet);
    sheet->findChild<QLineEdit*>()->setText(QStringLiteral("duplic"));
    ASSERT_EQ(list(sheet)->topLevelItemCount(), 1) << "the one that was searched";
    auto* key = sheet->findChild<QKeySequenceEdit*>();
    key->setKeySequence(QKeySequence(Qt::CTRL | Qt::Key_E));
    bool isTold = false;
    for (const auto* label : sheet->findChildren<QLabel*>())
        isTold = isTold || label->text() == QStringLiteral("Ctrl+E belongs to “Export…”, which loses it.");
    EXPECT_TRUE(isTold);
    click(sheet, QStringLiteral("Assign"));
    EXPECT_EQ(window->actions().duplicate->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_E));
    EXPECT_TRUE(window->actions().exportFilm->shortcut().isEmpty());
    sheet->close();
    // It is remembered.
    begin();
    EXPECT_EQ(window->actions().duplicate->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_E));
    EXPECT_TRUE(window->actions().exportFilm->shortcut().isEmpty());
    window->actions().shortcuts->trigger();
    sheet = dialog("shortcutSheet");
    ASSERT_TRUE(find(sheet, QStringLiteral("Export…")));
    list(sheet)->setCurrentItem(find(sheet, QStringLiteral("Export…")));
    click(sheet, QStringLiteral("Reset"));
    EXPECT_EQ(window->actions().exportFilm->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_E));
    EXPECT_TRUE(window->actions().duplicate->shortcut().isEmpty()) << "one key, one command";
    click(sheet, QStringLiteral("Reset All"));
    EXPECT_EQ(window->actions().duplicate->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_D));
    begin();
    EXPECT_EQ(window->actions().duplicate->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_D));
}

TEST_F(ShortcutsTest, AChangedKeyRunsItsCommand) {
    open(makeBundle("square"));
    edit();
    Shortcuts shortcuts(studio->defaults, window->actions().all);
    shortcuts.set(window->actions().undo, QKeySequence(Qt::CTRL | Qt::Key_B));
    QTest::keyClick(window.get(), Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(layer().opacity, 1);
}

TEST(PlainWords, LeaveTheSignOfTheKeyOut) {
    QAction command;
    for (const auto& [words, plain] : {std::pair("&Open…", "Open…"), std::pair("F&ull Screen", "Full Screen"),
             std::pair("開く(&O)…", "開く…"), std::pair("Sides (all)", "Sides (all)")}) {
        command.setText(QString::fromUtf8(words));
        EXPECT_EQ(plainWords(&command), QString::fromUtf8(plain));
    }
}

}   // namespace
}   // namespace tavix::editor
