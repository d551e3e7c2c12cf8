// Every command of the window, found by a few letters.
#pragma once

#include <QCoreApplication>
#include <QFrame>
#include <QList>

class QAction;
class QLineEdit;
class QListWidget;

namespace tavix::editor {

// Deletes itself when it is closed.
class CommandPalette final : public QFrame {
    Q_DECLARE_TR_FUNCTIONS(CommandPalette)
public:
    CommandPalette(const QList<QAction*>& commands, QWidget* window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void list();
    void run();

    QList<QAction*> commands_;
    QLineEdit* search_;
    QListWidget* found_;
};

}   // namespace tavix::editor
