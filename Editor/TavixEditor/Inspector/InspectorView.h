// The inspector of the editor's window.
#pragma once

#include <filesystem>
#include <functional>

class QWidget;

namespace tavix {
class CompositionEditorModel;
}

namespace tavix::editor {

// Watches the model, and changes it by named steps. The model outlives the view. `play` lets a sound be
// heard.
using PlaySound = std::function<void(const std::filesystem::path& sound)>;
QWidget* makeInspectorView(CompositionEditorModel& model, QWidget* parent, PlaySound play = {});

}   // namespace tavix::editor
