// Beside the stage: what is found, what others changed, or the document as text; one of them, or nothing.
#pragma once

#include "TavixLive/Observing/Observable.h"

#include <QCoreApplication>
#include <QWidget>

class QAction;
class QLabel;
class QStackedWidget;

namespace tavix::editor {

struct Actions;
class Changes;
class Findings;
class Studio;

class SidePanel final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(SidePanel)
public:
    SidePanel(Studio& studio, const Actions& actions, Findings& findings, Changes& changes,
        QWidget* parent = nullptr);

private:
    void add(QAction* action, QWidget* page);
    void turnTo(QAction* action, bool isShown);

    QLabel* title_;
    QStackedWidget* pages_;
    QList<QAction*> actions_;   // of the pages, in their order
};

}   // namespace tavix::editor
