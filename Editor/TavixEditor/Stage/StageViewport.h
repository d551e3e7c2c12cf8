// Where the canvas stands in the stage: fitted into it, or magnified about a point and moved.
#pragma once

#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QSizeF>

#include <optional>

namespace tavix::editor {

// Points of the view have their origin at its top left; those of the canvas are pixels of the document.
class StageViewport {
public:
    void setCanvas(QSizeF sizePx) { canvas_ = sizePx; }
    void setView(QSizeF size) { view_ = size; }
    QSizeF canvas() const { return canvas_; }

    double scale() const;   // points of the view for a pixel of the canvas
    double fittedScale() const;
    bool isFitted() const { return !zoom_; }
    QRectF canvasRect() const;   // in the view
    QRect drawnRect() const;     // the same on whole points, at least one each way
    QPointF toView(QPointF canvas) const;
    QPointF toCanvas(QPointF view) const;

    void fit();
    void zoomTo(double scale);   // about the middle of the view
    // What lies under the point stays under it.
    void zoomAbout(QPointF view, double factor);
    void pan(QPointF byView);

    static constexpr double marginPx = 24, leastScale = 0.05, mostScale = 8;

private:
    struct Zoom {
        double scale;
        QPointF center;   // of the view, on the canvas
    };
    void hold();   // at least a corner of the canvas stays in the view

    QSizeF canvas_{1080, 1920}, view_{1, 1};
    std::optional<Zoom> zoom_;
};

}   // namespace tavix::editor
