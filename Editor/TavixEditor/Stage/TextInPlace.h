// A text that is edited where it stands on the stage.
#pragma once

#include "Editor/EditorDomain/Stage/StageMap.h"
#include "TavixLive/Observing/Observable.h"

#include <QPlainTextEdit>

#include <string>

namespace tavix {
class CompositionEditorModel;
}

namespace tavix::editor {

// The document has the words as they are typed, as one step. Deletes itself when it is done: by Escape, which
// gives them up, by Control and Return or the loss of the focus, and when the text is changed elsewhere.
class TextInPlace final : public QPlainTextEdit {
public:
    // The height of the canvas in the view gives the size of the letters.
    TextInPlace(CompositionEditorModel& model, const StagePlace& place, double canvasHeight, QWidget* parent);
    void settleOver(const QRect& box);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void write();
    void finish();
    bool isSaid() const;   // by the document

    CompositionEditorModel& model_;
    StagePlace place_;
    std::string written_;
    bool isDone_ = false;
    Connection watching_;
};

}   // namespace tavix::editor
