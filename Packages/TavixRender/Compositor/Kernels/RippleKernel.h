// A circular wave that runs outward from the middle and fades as it travels, while the incoming picture
// dissolves through it. At progress 0 and below it is the outgoing picture untouched, from 1 on the incoming
// one.
#pragma once

#include "TavixPlatform/Imaging/Image.h"

namespace tavix {

// Immutable; any thread may call it.
class RippleKernel final : public imaging::Warp {
public:
    struct Shape {
        float amplitude = 30;   // height of the wave in pixels of a picture of 1080 lines
        float speed = 30;       // radians that the wave advances over the whole transition
    };

    RippleKernel(const imaging::Rect& rect, float progress, const Shape& shape);

    void describe(Hash& hash) const override;
    void row(int x, int y, int count, imaging::WarpSample* out) const override;

private:
    imaging::Rect rect_;
    float progress_;
    Shape shape_;
};

}   // namespace tavix
