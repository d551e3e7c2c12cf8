// Where the canvas stands in the stage: fitted into it, or magnified about a point and moved.
#pragma once

#include "TavixCore/Values/PixelPoint.h"
#include "TavixCore/Values/PixelRect.h"

#include <optional>

namespace tavix {

// Points of the view have their origin at its top left; those of the canvas are pixels of the document.
class StageViewport {
public:
    struct Extent {
        double width = 1, height = 1;
        bool operator==(const Extent&) const = default;
    };

    void setCanvas(Extent px) { canvas_ = px; }
    void setView(Extent points) { view_ = points; }
    const Extent& canvas() const { return canvas_; }

    double scale() const;   // points of the view for a pixel of the canvas
    double fittedScale() const;
    bool isFitted() const { return !zoom_; }
    PixelRect canvasRect() const;   // in the view
    PixelRect drawnRect() const;    // the same on whole points, at least one each way
    PixelPoint toView(PixelPoint canvas) const;
    PixelPoint toCanvas(PixelPoint view) const;
    PixelRect rectInView(const PixelRect& canvas) const;

    void fit();
    void zoomTo(double scale);   // about the middle of the view
    // What lies under the point stays under it.
    void zoomAbout(PixelPoint view, double factor);
    void pan(PixelPoint byView);

    static constexpr double marginPx = 24, leastScale = 0.05, mostScale = 8;

private:
    struct Zoom {
        double scale;
        PixelPoint center;   // of the view, on the canvas
    };
    Zoom now() const;
    void hold();   // at least a corner of the canvas stays in the view

    Extent canvas_{1080, 1920}, view_;
    std::optional<Zoom> zoom_;
};

}   // namespace tavix
