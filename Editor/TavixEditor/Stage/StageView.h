// Shows the frames of the film as they come, in the device pixels of the stage, and forwards what is done on
// it. Frames are drawn elsewhere, off the main thread: to show one is a plain copy.
#pragma once

#include "Editor/EditorDomain/Stage/StageViewport.h"
#include "TavixEditor/App/HeldGesture.h"
#include "TavixEditor/Stage/StageTool.h"
#include "TavixLive/Observing/Observable.h"

#include <QImage>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

namespace tavix {
struct StagePicture;
}   // namespace tavix

namespace tavix::editor {

struct AccessiblePart;

class StageView final : public QWidget {
public:
    explicit StageView(Studio& studio, QWidget* parent = nullptr);
    ~StageView() override;

    const StageViewport& viewport() const { return viewport_; }
    void fit();
    void zoomBy(double factor);   // about the middle
    void zoomToActualPixels();    // a pixel of the canvas is one of the screen
    void setSafeAreasShown(bool areShown);
    bool areSafeAreasShown() const { return showsSafeAreas_; }
    // What is dragged over that point would become the screen of a phone, which is shown; none: of nothing.
    std::optional<StagePlace> showDropAt(std::optional<QPointF> at);
    std::function<void()> onRemove;   // the selected layer, by its key
    // As it stands on the stage; null before the first.
    QImage frame() const { return image_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void leaveEvent(QEvent* event) override;
    bool event(QEvent* event) override;

private:
    void show(const StagePicture& picture);
    void showDocument();
    void moved();      // the canvas stands elsewhere
    void tellRoom();   // to the model, once it is another one
    void drawSafeAreas(QPainter& painter) const;
    void drawHoverText(QPainter& painter) const;
    void drawDropTarget(QPainter& painter) const;
    QRect drawnRect() const;   // of the canvas in the view
    void editText(const StagePlace& place);
    void nudge(double dxPx, double dyPx);
    std::vector<AccessiblePart> accessibleLayers() const;

    CompositionEditorModel& model_;
    StageViewport viewport_;
    StageTool tool_;
    HeldGesture nudging_;
    QImage image_;
    QSize room_;
    bool showsSafeAreas_ = false;
    std::optional<QPointF> panFrom_;
    std::optional<PixelRect> dropBox_;   // of the phone, on the canvas
    Connections connections_;
};

}   // namespace tavix::editor
