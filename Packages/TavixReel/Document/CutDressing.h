// An accent of light on every seam that a cut leaves.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <type_traits>

namespace tavix {

struct CutDressing {
    enum class Style { flash, lightLeak };

    Style style = Style::flash;
    double intensity = 0.55;      // at the seam, 0 to 1
    double halfWidthSec = 0.11;   // 0.02 to 0.5

    CutDressing() = default;
    // Moves both numbers into their ranges, as reading a document does.
    CutDressing(Style rawStyle, double rawIntensity, double rawHalfWidthSec);

    // Strength at a time, for the seam nearest to it; both on the finished reel's clock.
    double alpha(double atCompositionSec, double nearestSeamSec) const;
    bool operator==(const CutDressing&) const = default;
};

const Names<CutDressing::Style>& namesOf(std::type_identity<CutDressing::Style>);
const Fields<CutDressing>& fieldsOf(std::type_identity<CutDressing>);

}   // namespace tavix
