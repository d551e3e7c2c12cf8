// The words of a text, edited beside the place where they stand on the stage.
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
    TextInPlace(CompositionEditorModel& model, const StagePlace& place, QWidget* parent);
    void settleBeside(const QRect& box);   // where the letters stand

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
