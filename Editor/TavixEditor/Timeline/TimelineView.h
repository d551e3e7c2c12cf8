// The timeline of the editor's window.
#pragma once

class QWidget;

namespace tavix {
class CompositionEditorModel;
}

namespace tavix::editor {

// Watches the model, and changes it by named steps. The model outlives the view.
QWidget* makeTimelineView(CompositionEditorModel& model, QWidget* parent);

}   // namespace tavix::editor
