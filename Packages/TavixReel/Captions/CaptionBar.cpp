#include "TavixReel/Captions/CaptionBar.h"

#include <algorithm>

namespace tavix::CaptionLayout {

double safeInset(const CaptionStyle& style, double canvasHeightPx) {
    return style.safeInsetFraction * canvasHeightPx;
}

BarRoom barRoom(const CaptionStyle& style, const CanvasSize& canvas) {
    constexpr double smallestPoints = 8, hPadEms = 0.6, vPadEms = 0.5;
    const double points = std::max(style.fontSizeFraction * canvas.heightPx, smallestPoints);
    const double maxBar = std::min(
        style.maxBarWidthFraction * canvas.widthPx, canvas.widthPx - 2 * safeInset(style, canvas.heightPx));
    const double hPad = points * hPadEms;
    return {points, hPad, points * vPadEms, maxBar, std::max(maxBar - 2 * hPad, 1.0)};
}

Bar bar(const BarRoom& room, const MeasuredText& text, const CaptionStyle& style,
    const std::optional<NormalizedPoint>& position, const CanvasSize& canvas) {
    double widest = 0;
    for (const double width : text.lineWidths) widest = std::max(widest, std::min(width, room.wrapWidth));
    Bar bar{};
    bar.canvas = canvas;
    bar.barWidth = std::min(2 * room.hPad + widest, room.maxBarWidth);
    bar.barHeight = 2 * room.vPad + text.lineHeight * static_cast<double>(text.lineWidths.size());
    // Between the near edge and the last place at which the bar is whole; the near edge where it never is.
    const auto within = [](double start, double mostStart) {
        return std::min(std::max(mostStart, 0.0), std::max(start, 0.0));
    };
    if (position) {
        bar.barX = within(position->x * canvas.widthPx - bar.barWidth / 2, canvas.widthPx - bar.barWidth);
        bar.barBottomYUp = within(canvas.heightPx - position->y * canvas.heightPx - bar.barHeight / 2,
            canvas.heightPx - bar.barHeight);
    } else {
        bar.barX = (canvas.widthPx - bar.barWidth) / 2;
        bar.barBottomYUp = safeInset(style, canvas.heightPx);
    }
    bar.cornerRadius = std::min(bar.barHeight / 2, style.cornerRadius * canvas.heightPx);
    return bar;
}

NormalizedPoint clampedCenter(
    const NormalizedPoint& position, double barWidth, double barHeight, const CanvasSize& canvas) {
    if (!(canvas.widthPx > 0 && canvas.heightPx > 0)) return position;
    const double a = barWidth / 2, b = barHeight / 2;
    const double x = std::min(std::max(a, canvas.widthPx - a), std::max(a, position.x * canvas.widthPx));
    const double lowest = canvas.heightPx - b;
    const double y = std::min(lowest, std::max(std::min(lowest, b), position.y * canvas.heightPx));
    return {x / canvas.widthPx, y / canvas.heightPx};
}

}   // namespace tavix::CaptionLayout
