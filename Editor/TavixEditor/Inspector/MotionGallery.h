// Every motion of a device and every formation, with a search, to be looked at and given to the selected
// device.
#pragma once

#include <QString>

#include <functional>

class QPoint;
class QWidget;

namespace tavix {
class CompositionEditorModel;
struct PresetGalleryItem;
}   // namespace tavix

namespace tavix::editor {

// A click gives the motion to the selected device; where `onChosen` is set it tells which it was instead.
using MotionChosen = std::function<void(const PresetGalleryItem& item)>;
QWidget* makeMotionGallery(CompositionEditorModel& model, QWidget* parent, MotionChosen onChosen = {});
// What a motion would meet in that document.
enum class MotionTarget {
    none,
    device,
    movingDevice
};   // no device is selected; one; one with motion of its own
MotionTarget motionTarget(const CompositionEditorModel& model);
// One step. Nothing happens without a selected device.
void giveMotion(CompositionEditorModel& model, const PresetGalleryItem& item, const QString& step);
// The same in a window of its own, once, with its right upper corner there: the stage shows what is chosen.
void showMotionGallery(CompositionEditorModel& model, QWidget* parent, const QPoint& globally);

}   // namespace tavix::editor
