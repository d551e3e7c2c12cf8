// What the numbers on a sheet mean, written below its pictures.
#pragma once

#include "TavixCore/Findings/CompositionFinding.h"
#include "TavixPlatform/Imaging/Image.h"

#include <span>

namespace tavix::engine {

struct SheetLegend {
    imaging::Image picture;   // its top stands at y = 0, all of it below
    int heightPx = 0;
};

// Number, path and message of each finding, as many as are read at a glance; the rest is counted.
SheetLegend sheetLegend(std::span<const CompositionLint::Finding> findings, int widthPx, double marginPx);

// The number of a finding on a round ground; its bottom-left corner stands at the origin.
imaging::Image findingBadge(int number, bool isError, double heightPx);
imaging::Color findingColor(bool isError);

}   // namespace tavix::engine
