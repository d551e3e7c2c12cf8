// The frame of a film: a picture that is drawn again and again.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixPlatform/Imaging/Image.h"

#include <cstdint>
#include <memory>

namespace tavix::imaging {

class Evaluator;

// Tiles whose picture did not change keep their pixels, and encoder planes are written only where they are
// out of date. Used by one thread at a time; the evaluator must outlive it.
class FrameSurface {
public:
    FrameSurface(Evaluator& evaluator, Size size);
    ~FrameSurface();

    // Draws the rectangle (0, 0) to (width, height) of the image. Returns how many tiles were drawn anew.
    int update(const Image& image);
    ConstBitmapView pixels() const;

    // Writes what changed since these planes were last written. `stamp` belongs to the planes: 0 for fresh
    // ones, afterwards what the last call left in it.
    void writePlanes(const PlanarView& planes, std::uint64_t& stamp) const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}   // namespace tavix::imaging
