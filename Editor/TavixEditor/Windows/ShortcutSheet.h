// Shows the keys of all commands, finds one, and changes it.
#pragma once

#include <QCoreApplication>
#include <QDialog>

class QAction;
class QKeySequence;
class QKeySequenceEdit;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;

namespace tavix::editor {

class Shortcuts;

class ShortcutSheet final : public QDialog {
    Q_DECLARE_TR_FUNCTIONS(ShortcutSheet)
public:
    ShortcutSheet(Shortcuts& shortcuts, QWidget* parent);
    ~ShortcutSheet() override;

private:
    QWidget* makeEditing();
    QAction* chosen() const;
    void list();
    void showChosen();
    void showConflict();
    void assign();
    QKeySequence typed() const;

    Shortcuts& shortcuts_;
    QLineEdit* search_;
    QTreeWidget* commands_;
    QKeySequenceEdit* key_;
    QLabel* conflict_;
    QPushButton *assign_, *none_, *reset_;
};

}   // namespace tavix::editor
