// What is selected and the clipboard of the desktop: layers or a scene, between scenes and documents.
#pragma once

namespace tavix {
class CompositionEditorModel;
}

namespace tavix::editor {

void copySelection(const CompositionEditorModel& model);   // nothing happens without a selection
void cutSelection(CompositionEditorModel& model);
// What is no layer and no scene is told in the model's status.
void pasteAtPlayhead(CompositionEditorModel& model);

}   // namespace tavix::editor
