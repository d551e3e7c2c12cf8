#include "TavixPlatform/Imaging/Bitmap.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <stdexcept>
#include <string>

namespace tavix::imaging {

namespace {

std::uint64_t nextId() {
    static std::atomic<std::uint64_t> last{0};   // identity only: no result depends on the order
    return ++last;
}

}   // namespace

Bitmap Bitmap::uninitialised(Size size, const std::shared_ptr<BytePool>& pool) {
    if (size.width > maxSidePx || size.height > maxSidePx)
        throw std::length_error("A picture of " + std::to_string(size.width) + " x " +
                                std::to_string(size.height) + " pixels is too large; a side may have " +
                                std::to_string(maxSidePx) + ".");
    Bitmap bitmap;
    bitmap.id_ = nextId();
    if (size.width <= 0 || size.height <= 0) return bitmap;
    bitmap.size_ = size;
    bitmap.strideBytes_ = (std::ptrdiff_t(size.width) * 4 + 63) / 64 * 64;
    bitmap.byteCount_ = std::size_t(bitmap.strideBytes_) * std::size_t(size.height);
    bitmap.bytes_ = takeBytes(bitmap.byteCount_, pool);
    bitmap.inkBounds_ = {0, 0, size.width, size.height};
    return bitmap;
}

Bitmap::Bitmap(Size size) : Bitmap(uninitialised(size)) {
    if (bytes_) std::memset(bytes_.get(), 0, byteCount_);
}

void Bitmap::indexCoverage() {
    if (isEmpty()) return;
    blocksAcross_ = (size_.width + blockPx - 1) / blockPx;
    const int blocksDown = (size_.height + blockPx - 1) / blockPx;
    std::vector<std::uint8_t> least(std::size_t(blocksAcross_), 255), most(least.size(), 0);
    blocks_.assign(least.size() * std::size_t(blocksDown), Coverage::mixed);
    PixelRegion ink{size_.width, size_.height, 0, 0};
    for (int by = 0; by < blocksDown; ++by) {
        std::fill(least.begin(), least.end(), std::uint8_t(255));
        std::fill(most.begin(), most.end(), std::uint8_t(0));
        for (int y = by * blockPx; y < std::min(size_.height, (by + 1) * blockPx); ++y) {
            const std::uint8_t* row = view().row(y);
            int first = size_.width, last = -1;
            for (int x = 0; x < size_.width; ++x) {
                const std::uint8_t alpha = row[x * 4 + 3];
                const auto block = std::size_t(x / blockPx);
                least[block] = std::min(least[block], alpha);
                most[block] = std::max(most[block], alpha);
                if (alpha) {
                    first = std::min(first, x);
                    last = x;
                }
            }
            if (last >= 0)
                ink = {std::min(ink.x0, first), std::min(ink.y0, y), std::max(ink.x1, last + 1), y + 1};
        }
        for (std::size_t bx = 0; bx < least.size(); ++bx)
            blocks_[std::size_t(by * blocksAcross_) + bx] = most[bx] == 0      ? Coverage::empty
                                                            : least[bx] == 255 ? Coverage::opaque
                                                                               : Coverage::mixed;
    }
    inkBounds_ = ink.isEmpty() ? PixelRegion{} : ink;
}

Bitmap::Coverage Bitmap::coverage(const PixelRegion& fromTopLeft) const {
    const PixelRegion all{0, 0, size_.width, size_.height};
    const PixelRegion r = intersection(fromTopLeft, all);
    if (r.isEmpty()) return Coverage::empty;
    if (blocks_.empty() || r != fromTopLeft) return Coverage::mixed;
    const Coverage first = blocks_[std::size_t(r.y0 / blockPx * blocksAcross_ + r.x0 / blockPx)];
    for (int by = r.y0 / blockPx; by <= (r.y1 - 1) / blockPx; ++by)
        for (int bx = r.x0 / blockPx; bx <= (r.x1 - 1) / blockPx; ++bx)
            if (blocks_[std::size_t(by * blocksAcross_ + bx)] != first) return Coverage::mixed;
    return first;
}

}   // namespace tavix::imaging
