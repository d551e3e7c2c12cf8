// Writes an animated picture from BGRA frames, one at a time: a GIF, a WebP.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"

namespace tavix::media {

// Used by one thread at a time; both members may throw MediaError.
class AnimationWriter {
public:
    virtual ~AnimationWriter() = default;
    // The frame must have the size that the writer was made for.
    virtual void append(const imaging::ConstBitmapView& frame) = 0;
    // Completes the file and closes it. At least one frame must have been appended.
    virtual void finish() = 0;
};

}   // namespace tavix::media
