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
    int threadCount = 0;                          // 0: as many as the machine has cores
    std::size_t cacheBytes = 96u << 20;           // for results kept between frames
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

    struct Impl;
    Impl& impl() { return *impl_; }

private:
    std::unique_ptr<Impl> impl_;
};

// A frame that is drawn again and again: tiles whose picture did not change keep their pixels, and encoder
// planes are written only where they are out of date.
class FrameSurface {
public:
    FrameSurface(Evaluator& evaluator, Size size);
    ~FrameSurface();

    // Draws the rectangle (0, 0) to (width, height) of the image. Returns how many tiles were drawn anew.
    int update(const Image& image);
    ConstBitmapView pixels() const;

    // Writes what changed since these planes were last written. `stamp` belongs to the planes: 0 for fresh ones,
    // afterwards what the last call left in it.
    void writePlanes(const PlanarView& planes, std::uint64_t& stamp) const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}   // namespace tavix::imaging
