#include "TavixPlatform/Imaging/Bitmap.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <stdexcept>
#include <string>
#include <utility>

namespace tavix::imaging {

namespace {

std::uint64_t nextId() {
    static std::atomic<std::uint64_t> last{0};   // identity only: no result depends on the order
    return ++last;
}

constexpr std::uint32_t alphaMask = 0xFF000000u;

// What the alphas of some pixels have in common.
struct AlphaBits {
    std::uint32_t all = alphaMask, any = 0;
    static AlphaBits of(const std::uint32_t* pixels, int count) {
        AlphaBits bits;
        for (int i = 0; i < count; ++i) {
            bits.all &= pixels[i];
            bits.any |= pixels[i];
        }
        return bits;
    }
    void add(const AlphaBits& bits) {
        all &= bits.all;
        any |= bits.any;
    }
    bool isEmpty() const { return (any & alphaMask) == 0; }
    bool isOpaque() const { return (all & alphaMask) == alphaMask; }
};

// From the first pixel with alpha to one past the last. Both stand between `first` and `last`.
std::pair<int, int> inkSpan(const std::uint32_t* row, int first, int last) {
    while (first < last && !(row[first] & alphaMask)) ++first;
    while (last > first && !(row[last - 1] & alphaMask)) --last;
    return {first, last};
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
    auto bits = std::vector<AlphaBits>(std::size_t(blocksAcross_));
    blocks_.clear();
    PixelRegion ink{size_.width, size_.height, 0, 0};
    for (int by = 0; by < blocksDown; ++by) {
        std::fill(bits.begin(), bits.end(), AlphaBits{});
        for (int y = by * blockPx; y < std::min(size_.height, (by + 1) * blockPx); ++y) {
            const auto* row = reinterpret_cast<const std::uint32_t*>(view().row(y));
            int firstInked = blocksAcross_, lastInked = -1;
            for (int bx = 0; bx < blocksAcross_; ++bx) {
                const AlphaBits some = AlphaBits::of(row + bx * blockPx, blockWidth(bx));
                bits[std::size_t(bx)].add(some);
                if (some.isEmpty()) continue;
                firstInked = std::min(firstInked, bx);
                lastInked = bx;
            }
            if (lastInked < 0) continue;
            const auto [first, last] =
                inkSpan(row, firstInked * blockPx, lastInked * blockPx + blockWidth(lastInked));
            ink = {std::min(ink.x0, first), std::min(ink.y0, y), std::max(ink.x1, last), y + 1};
        }
        for (const AlphaBits& b : bits)
            blocks_.push_back(b.isEmpty()    ? Coverage::empty
                              : b.isOpaque() ? Coverage::opaque
                                             : Coverage::mixed);
    }
    inkBounds_ = ink.isEmpty() ? PixelRegion{} : ink;
}

void Bitmap::declareOpaque() {
    if (isEmpty()) return;
    blocksAcross_ = (size_.width + blockPx - 1) / blockPx;
    const int blocksDown = (size_.height + blockPx - 1) / blockPx;
    blocks_.assign(std::size_t(blocksAcross_) * std::size_t(blocksDown), Coverage::opaque);
    inkBounds_ = {0, 0, size_.width, size_.height};
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
