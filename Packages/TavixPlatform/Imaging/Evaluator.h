// Draws image graphs. One evaluator holds the scratch memory and the results worth keeping from frame to
// frame; it is used by one thread at a time and spreads its own work over a fixed number of threads. What it
// draws does not depend on that number, on tile order, or on what was drawn before.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixPlatform/Imaging/Image.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace tavix::imaging {

struct EvaluatorOptions {
    int threadCount = 0;                  // 0: as many as the machine has cores
    std::size_t cacheBytes = 96u << 20;   // for results kept between frames
    // For tests: whatever is found by a hash is compared with what is looked for, and tiles that are kept
    // with tiles drawn anew. `std::logic_error` says that they differ.
    bool comparesStructures = false;
};

// Some pixels of a bitmap, counted from its top left.
struct BitmapPart {
    BitmapRef bitmap;
    PixelRegion fromTopLeft;
};

class Evaluator {
public:
    explicit Evaluator(const EvaluatorOptions& options = {});
    ~Evaluator();
    Evaluator(Evaluator&&) noexcept;
    Evaluator& operator=(Evaluator&&) noexcept;

    // The pixels of `region`, as a bitmap of that size, indexed for coverage.
    Bitmap draw(const Image& image, const PixelRegion& region);
    // The same picture with its pixels computed now: what to do once with what does not change in time.
    // The extent stays; only the part inside `bounds` is kept. An empty image stays empty.
    Image baked(const Image& image, const PixelRegion& bounds);
    // As `baked`, for what one frame needs: results of other pictures stay kept, and the memory serves the
    // next frame once nobody shows this one any more.
    Image drawnForFrame(const Image& image, const PixelRegion& bounds);

    // What a picture shows over black, for who reads it in this frame alone: the pixels of the bitmap that it
    // is, where that is opaque, and else pixels drawn now.
    BitmapPart opaquePixels(const Image& image, const PixelRegion& region);

    struct Impl;
    Impl& impl() { return *impl_; }

private:
    std::unique_ptr<Impl> impl_;
};

}   // namespace tavix::imaging
