// Puts pictures with their times on a sheet of neutral ground.
#pragma once

#include "Engine/Sheet/FindingMarks.h"
#include "Engine/Sheet/SheetLayout.h"
#include "Engine/Sheet/SheetLegend.h"
#include "Engine/Sheet/SheetPlan.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Imaging/Image.h"

#include <vector>

namespace tavix::engine {

class SheetPainter {
public:
    // The evaluator must outlive the painter.
    SheetPainter(const SheetLayout& layout, imaging::Evaluator& evaluator);

    // The next picture, drawn small here and now.
    void put(const imaging::Image& frame, imaging::Size frameSize, double atSec, SheetMoment::Kind kind);
    // On the picture that was put last.
    void mark(const std::vector<FindingMark>& marks, imaging::Size frameSize);
    // Below all pictures.
    void add(const SheetLegend& legend);
    imaging::Bitmap draw();

private:
    void outline(const imaging::Rect& box, const imaging::Color& color);
    imaging::Image label(const imaging::PixelRegion& cell, double atSec, SheetMoment::Kind kind) const;

    SheetLayout layout_;
    imaging::Evaluator& evaluator_;
    std::vector<imaging::Image> pictures_;   // the ground first
    int count_ = 0, legendPx_ = 0;
};

}   // namespace tavix::engine
