// Every motion of a device and every formation, with a search, to be looked at and given to the selected
// device.
#pragma once

class QPoint;
class QWidget;

namespace tavix {
class CompositionEditorModel;
}

namespace tavix::editor {

QWidget* makeMotionGallery(CompositionEditorModel& model, QWidget* parent);
// The same in a window of its own, once, with its right upper corner there: the stage shows what is chosen.
void showMotionGallery(CompositionEditorModel& model, QWidget* parent, const QPoint& globally);

}   // namespace tavix::editor
