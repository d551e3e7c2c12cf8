// Where the pictures of a contact sheet stand.
#pragma once

#include "TavixPlatform/Imaging/Geometry.h"
#include "TavixPlatform/Imaging/Image.h"

#include <optional>

namespace tavix::engine {

struct SheetLayout {
    static constexpr int maxSidePx = 4096;

    imaging::Size sheet, cell;
    int columns = 1, rows = 1;
    double marginPx = 0, gapPx = 0, labelPx = 0;   // around everything, between cells, of a line of times

    // Of the picture with that index; the first one is at the top left.
    imaging::PixelRegion cellAt(int index) const;
};

// Sheets are a little wider than high unless `columns` says otherwise. Pictures are as large as is handy, and
// smaller where the sheet would pass `maxSidePx` or the width that is asked for.
SheetLayout sheetLayout(
    imaging::Size frame, int count, std::optional<int> columns, std::optional<int> widthPx);

}   // namespace tavix::engine
