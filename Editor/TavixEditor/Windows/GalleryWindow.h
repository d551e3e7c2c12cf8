// Every motion and formation in a window of its own, to be browsed with or without a project: a list, and the
// one that is chosen at work. The program has one such window for all others.
#pragma once

#include "TavixEditor/App/QtMainExecutor.h"
#include "TavixLive/Gallery/PresetGalleryModel.h"
#include "TavixPlatform/System/WorkerThread.h"

#include <QCoreApplication>
#include <QWidget>

#include <vector>

class QLabel;
class QPushButton;
class QSplitter;

namespace tavix {
class CompositionEditorModel;
}

namespace tavix::editor {

class GalleryWindow final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(GalleryWindow)
public:
    GalleryWindow();
    ~GalleryWindow() override;

    // Shows it, or brings it to the front: motions go to that document from now on.
    void present(CompositionEditorModel& target);
    void leave(const CompositionEditorModel& target);   // it goes away
    const PresetGalleryModel& gallery() const { return gallery_; }

protected:
    void hideEvent(QHideEvent* event) override;

private:
    QWidget* makeFoot();
    void showTarget();

    QtMainExecutor main_;
    system::WorkerPool workers_{1};
    system::WorkerThread render_;
    PresetGalleryModel gallery_;
    CompositionEditorModel* target_ = nullptr;
    QSplitter* halves_;
    QWidget* list_ = nullptr;
    QLabel* notice_;
    QPushButton* give_;
    Connections connections_, ofTarget_;
};

}   // namespace tavix::editor
