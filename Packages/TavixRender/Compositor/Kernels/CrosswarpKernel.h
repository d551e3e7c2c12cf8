// A warping cross-dissolve: a front runs from left to right, and both pictures stretch about it while one
// melts into the other. At progress 0 and below it is the outgoing picture untouched, from 1 on the incoming
// one.
#pragma once

#include "TavixPlatform/Imaging/Image.h"

namespace tavix {

// Immutable; any thread may call it.
class CrosswarpKernel final : public imaging::Warp {
public:
    CrosswarpKernel(const imaging::Rect& rect, float progress);

    void describe(Hash& hash) const override;
    void row(int x, int y, int count, imaging::WarpSample* out) const override;

private:
    imaging::Rect rect_;
    float progress_;
};

}   // namespace tavix
