// Light on the seams that cuts leave, over finished frames.
#pragma once

#include "TavixPlatform/Imaging/Image.h"
#include "TavixReel/Document/CutDressing.h"

#include <vector>

namespace tavix {

// Immutable; any thread may apply it.
class CutDressingOverlay {
public:
    // Seams are seconds of the finished reel.
    CutDressingOverlay(const CutDressing& dressing, std::vector<double> seamsSec)
        : dressing_(dressing), seamsSec_(std::move(seamsSec)) {}

    // The nearest seam counts, the earlier of two as near; half of its light falls before it.
    imaging::Image apply(
        const imaging::Image& frame, double compositionSec, const imaging::Rect& bounds) const;

private:
    CutDressing dressing_;
    std::vector<double> seamsSec_;
};

}   // namespace tavix
