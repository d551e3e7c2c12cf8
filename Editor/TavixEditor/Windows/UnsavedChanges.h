// The one question that stops people: what becomes of changes that are not saved.
#pragma once

#include <QCoreApplication>

#include <functional>

class QWidget;

namespace tavix {
class CompositionEditorModel;
}

namespace tavix::editor {

class UnsavedChanges {
    Q_DECLARE_TR_FUNCTIONS(UnsavedChanges)
public:
    UnsavedChanges(CompositionEditorModel& model, QWidget* window) : model_(model), window_(window) {}

    // Goes on where there is nothing to lose, when it was saved, or was meant to be lost. A save that fails,
    // or a second thought, ends it there, and so does a question that is open already: then `stay` is called.
    void resolve(std::function<void()> goOn, std::function<void()> stay = {});

private:
    CompositionEditorModel& model_;
    QWidget* window_;
    bool isAsking_ = false;
};

}   // namespace tavix::editor
