// Writes an animated GIF from BGRA frames, one at a time; memory does not depend on the number of frames.
// Each frame has a palette of its own, and dithering is fixed to the pixel grid, so what stands still does
// not shimmer.
#pragma once

#include "TavixPlatform/Media/AnimationWriter.h"
#include "TavixPlatform/Media/MediaError.h"

#include <filesystem>
#include <memory>

namespace tavix::media {

struct GifSettings {
    std::filesystem::path path;              // replaced when it exists; its folder must exist
    imaging::Size sizePx;                    // up to 65535 on a side
    int timescale = 18, frameDuration = 1;   // a frame lasts `frameDuration / timescale` seconds
};

// Used by one thread at a time. The animation loops for ever. Delays are hundredths of a second, rounded so
// that the error never adds up: at 18 frames per second they alternate between 5 and 6 of them.
class GifWriter final : public AnimationWriter {
public:
    explicit GifWriter(const GifSettings& settings);   // creates the file
    ~GifWriter() override;                             // without `finish` the file is removed
    GifWriter(const GifWriter&) = delete;
    GifWriter& operator=(const GifWriter&) = delete;

    // Pixels with less than half alpha become transparent.
    void append(const imaging::ConstBitmapView& frame) override;
    void finish() override;

private:
    class Session;
    std::unique_ptr<Session> session_;
};

}   // namespace tavix::media
