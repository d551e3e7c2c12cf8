#include "Engine/Sheet/SheetLayout.h"

#include <algorithm>
#include <cmath>

namespace tavix::engine {

namespace {

constexpr double cellLongSidePx = 340;
constexpr double pleasantRatio = 1.5;   // of the width of a sheet to its height
// In parts of a cell's longer side.
constexpr double margin = 0.11, gap = 0.055, label = 0.1;

// The sheet when the longer side of a cell is 1.
struct Proportions {
    double cellWidth, cellHeight;
    int columns, rows;
    double width() const { return 2 * margin + columns * cellWidth + (columns - 1) * gap; }
    double height() const { return 2 * margin + rows * (cellHeight + label) + (rows - 1) * gap; }
};

Proportions proportions(imaging::Size frame, int count, int columns) {
    const double longSide = std::max(frame.width, frame.height);
    return {frame.width / longSide, frame.height / longSide, columns, (count + columns - 1) / columns};
}

int pleasantColumns(imaging::Size frame, int count) {
    const auto badness = [&](int columns) {
        const Proportions tried = proportions(frame, count, columns);
        const double emptyShare = double(tried.rows * columns - count) / count;
        return std::abs(std::log(tried.width() / tried.height() / pleasantRatio)) + emptyShare;
    };
    int best = 1;
    for (int columns = 2; columns <= count; ++columns)
        if (badness(columns) < badness(best)) best = columns;
    return best;
}

int roundedPx(double value) { return std::max(static_cast<int>(std::lround(value)), 1); }

}   // namespace

imaging::PixelRegion SheetLayout::cellAt(int index) const {
    const int column = index % columns, row = index / columns;
    const int left = static_cast<int>(std::lround(marginPx + column * (cell.width + gapPx)));
    const int fromTop = static_cast<int>(std::lround(marginPx + row * (cell.height + labelPx + gapPx)));
    const int top = sheet.height - fromTop;
    return {left, top - cell.height, left + cell.width, top};
}

SheetLayout sheetLayout(
    imaging::Size frame, int count, std::optional<int> columns, std::optional<int> widthPx) {
    const Proportions shape =
        proportions(frame, count, std::min(columns.value_or(pleasantColumns(frame, count)), count));
    const double widest =
        widthPx ? *widthPx : std::min(cellLongSidePx * shape.width(), double(SheetLayout::maxSidePx));
    const double scale = std::min(widest / shape.width(), SheetLayout::maxSidePx / shape.height());
    SheetLayout layout;
    layout.columns = shape.columns;
    layout.rows = shape.rows;
    layout.sheet = {std::min(roundedPx(scale * shape.width()), SheetLayout::maxSidePx),
        std::min(roundedPx(scale * shape.height()), SheetLayout::maxSidePx)};
    layout.cell = {
        roundedPx(std::floor(scale * shape.cellWidth)), roundedPx(std::floor(scale * shape.cellHeight))};
    layout.marginPx = scale * margin;
    layout.gapPx = scale * gap;
    layout.labelPx = scale * label;
    return layout;
}

}   // namespace tavix::engine
