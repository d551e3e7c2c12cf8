// An export that is under way, or has just ended: how far it is, and ways to stop it or to find its file.
#pragma once

#include "TavixLive/Observing/Observable.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

namespace tavix {
class CompositionEditorModel;
}

namespace tavix::editor {

class ExportBar final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(ExportBar)
public:
    explicit ExportBar(CompositionEditorModel& model, QWidget* parent = nullptr);

private:
    void showRunning();
    void showProgress();

    CompositionEditorModel& model_;
    QLabel* text_;
    QProgressBar* progress_;
    QPushButton *stop_, *reveal_, *dismiss_;
    QElapsedTimer since_;
    bool wasRunning_ = false, isStopped_ = false;
    Connections connections_;
};

}   // namespace tavix::editor
