// The bar of a plain caption: how much room its text has, and where the bar stands once the text is measured.
#pragma once

#include "TavixCore/Geometry/CanvasGeometry.h"
#include "TavixCore/Theme/CaptionStyle.h"
#include "TavixCore/Values/NormalizedPoint.h"
#include "TavixCore/Values/PixelRect.h"

#include <optional>
#include <span>

namespace tavix::CaptionLayout {

using CanvasGeometry::CanvasSize;

// In canvas pixels; the inset is a fraction of the height on both axes.
double safeInset(const CaptionStyle& style, double canvasHeightPx);

struct BarRoom {
    double pointSize;   // of the font, in pixels
    double hPad, vPad;
    double maxBarWidth;
    double wrapWidth;   // of a line of text
};
BarRoom barRoom(const CaptionStyle& style, const CanvasSize& canvas);

// The text as it was set.
struct MeasuredText {
    std::span<const double> lineWidths;   // typographic, in pixels
    double ascent, lineHeight;            // of the font, in pixels
};

// In canvas pixels, y up from the bottom.
struct Bar {
    double barX, barBottomYUp, barWidth, barHeight;
    double cornerRadius;
    CanvasSize canvas;

    PixelRect rectTopLeft() const {   // the same with y down
        return {barX, canvas.heightPx - barBottomYUp - barHeight, barWidth, barHeight};
    }
};
// `position`: of the bar's middle, y down; without one it stands above the safe inset in the middle. It is
// kept on the canvas.
Bar bar(const BarRoom& room, const MeasuredText& text, const CaptionStyle& style,
    const std::optional<NormalizedPoint>& position, const CanvasSize& canvas);

// The position nearest to the given one at which a bar of that size is on the canvas.
NormalizedPoint clampedCenter(
    const NormalizedPoint& position, double barWidth, double barHeight, const CanvasSize& canvas);

}   // namespace tavix::CaptionLayout
