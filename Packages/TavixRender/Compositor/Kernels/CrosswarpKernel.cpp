#include "TavixRender/Compositor/Kernels/CrosswarpKernel.h"

#include "TavixPlatform/Imaging/Hash.h"
#include "TavixRender/Compositor/Kernels/WarpMath.h"

namespace tavix {

namespace {

constexpr std::uint64_t crosswarpKind = 0x63726f7373776172;   // "crosswar" in ASCII

}   // namespace

CrosswarpKernel::CrosswarpKernel(const imaging::Rect& rect, float progress)
    : rect_(rect), progress_(progress) {}

void CrosswarpKernel::describe(Hash& hash) const {
    hash.kind(crosswarpKind).add(rect_).add(double(progress_));
}

void CrosswarpKernel::row(int x, int y, int count, imaging::WarpSample* out) const {
    const auto left = float(rect_.x), width = float(rect_.width);
    const float middleY = float(rect_.center().y), pixelY = float(y) + 0.5f;
    // The dissolve is one picture width long, so its middle crosses the picture while the progress goes from
    // 1/4 to 3/4; the pictures are pinned to that middle.
    const float frontX = left + (2 * progress_ - 0.5f) * width;
    for (int i = 0; i < count; ++i) {
        const float pixelX = float(x + i) + 0.5f;
        const float mix = WarpMath::smoothstep(2 * progress_ - (pixelX - left) / width);
        const float dx = pixelX - frontX, dy = pixelY - middleY;
        // Written as a displacement, so that none at all leaves the position exact.
        out[i] = {
            pixelX - dx * mix, pixelY - dy * mix, pixelX - dx * (1 - mix), pixelY - dy * (1 - mix), mix};
    }
}

}   // namespace tavix
