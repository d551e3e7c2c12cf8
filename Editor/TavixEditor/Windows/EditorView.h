// A composition being edited: the stage with its transport, the inspector beside it, the timeline below.
#pragma once

#include "TavixEditor/Panels/Changes.h"
#include "TavixEditor/Panels/Findings.h"
#include "TavixLive/Observing/Observable.h"

#include <QCoreApplication>
#include <QWidget>

#include <vector>

class QAction;
class QLabel;
class QPushButton;
class QSplitter;

namespace tavix {
class CompositionEditorModel;
}

namespace tavix::editor {

struct Actions;
class NoticeBar;
class StageView;
class Studio;

class EditorView final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(EditorView)
public:
    EditorView(Studio& studio, const Actions& actions, QWidget* parent = nullptr);

    StageView& stage() { return *stage_; }
    NoticeBar& notices() { return *notices_; }
    Findings& findings() { return findings_; }
    Changes& changes() { return changes_; }
    // What stands around the stage and its transport goes, and comes back as it was.
    void setStageAlone(bool isAlone);

private:
    QWidget* makeTopBar(const Actions& actions);
    QWidget* makeWorkspace(const Actions& actions);
    QWidget* makeFindingsButton(QAction* action);
    void showState();

    Studio& studio_;
    CompositionEditorModel& model_;
    Findings findings_;
    Changes changes_;
    StageView* stage_ = nullptr;
    NoticeBar* notices_ = nullptr;
    std::vector<QWidget*> around_;
    QLabel *name_ = nullptr, *edited_ = nullptr, *status_ = nullptr;
    Connections connections_;
};

}   // namespace tavix::editor
