// Every motion and formation in a window of its own, to be browsed with or without a project.
#pragma once

#include <QCoreApplication>
#include <QWidget>

namespace tavix {
class CompositionEditorModel;
}

namespace tavix::editor {

// Goes with its parent; closing only hides it.
class GalleryWindow final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(GalleryWindow)
public:
    GalleryWindow(CompositionEditorModel& model, QWidget* parent);
    void present();   // shows it, or brings it to the front
};

}   // namespace tavix::editor
