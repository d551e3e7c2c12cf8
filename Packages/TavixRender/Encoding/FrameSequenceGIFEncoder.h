// Draws each finished graph once and writes an animated GIF that loops for ever.
#pragma once

#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Imaging/FrameSurface.h"
#include "TavixPlatform/Media/GifWriter.h"
#include "TavixRender/Encoding/FrameClock.h"

#include <cstdint>
#include <filesystem>
#include <memory>

namespace tavix {

// Used by one thread at a time.
class FrameSequenceGIFEncoder {
public:
    struct Settings {
        std::filesystem::path output;   // its folder is created, a file of that name replaced
        imaging::Size size;
        FrameRate fps = 18;
    };

    // Every member throws `Failure`, with the cause nested in it. The evaluator must outlive the encoder.
    FrameSequenceGIFEncoder(const Settings& settings, imaging::Evaluator& evaluator);
    void append(const imaging::Image& image, std::int64_t frameIndex);
    void finish();

private:
    imaging::Rect bounds_;
    imaging::FrameSurface surface_;
    std::unique_ptr<media::GifWriter> writer_;
    std::int64_t written_ = 0;
};

}   // namespace tavix
