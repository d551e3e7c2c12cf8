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

    // Planes of an encoder, and what tells how old they are: 0 for fresh ones, afterwards what `update` left
    // in it.
    struct Planes {
        PlanarView view;
        std::uint64_t& stamp;
    };

    // Draws the rectangle (0, 0) to (width, height) of the image, and brings the planes up to date where they
    // are not, while the pixels are in the processor's cache. Returns how many tiles were drawn anew.
    int update(const Image& image);
    int update(const Image& image, const Planes& planes);
    ConstBitmapView pixels() const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}   // namespace tavix::imaging
