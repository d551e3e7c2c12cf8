// A text that is edited where it stands on the stage.
#pragma once

#include "Editor/EditorDomain/Stage/StageMap.h"

#include <QPlainTextEdit>

namespace tavix {
class CompositionEditorModel;
}

namespace tavix::editor {

// Deletes itself when it is done: by Escape, which gives the words up, and by Control and Return or the loss
// of the focus, which keep them as one step.
class TextInPlace final : public QPlainTextEdit {
public:
    // The height of the canvas in the view gives the size of the letters.
    TextInPlace(CompositionEditorModel& model, const StagePlace& place, double canvasHeight, QWidget* parent);
    void settleOver(const QRect& box);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void finish(bool isKept);

    CompositionEditorModel& model_;
    StagePlace place_;
    bool isDone_ = false;
};

}   // namespace tavix::editor
