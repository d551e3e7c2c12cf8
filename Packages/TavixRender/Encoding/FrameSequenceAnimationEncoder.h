// Draws each finished graph once and writes an animated GIF or WebP that loops for ever.
#pragma once

#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Imaging/FrameSurface.h"
#include "TavixPlatform/Media/AnimationWriter.h"
#include "TavixPlatform/Media/MovieWriter.h"
#include "TavixRender/Encoding/ExportOptions.h"
#include "TavixRender/Encoding/FrameClock.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace tavix {

// Used by one thread at a time.
class FrameSequenceAnimationEncoder {
public:
    struct Settings {
        std::filesystem::path output;   // its folder is created, a file of that name replaced
        imaging::Size size;
        FrameRate fps = 18;
        ExportFormat format = ExportFormat::gif;   // or WebP, which alone has a quality and takes effort
        std::optional<int> quality = {};           // 0 to 100
        media::EncodingEffort effort = media::EncodingEffort::fast;
    };

    // Every member throws `Failure`, with the cause nested in it. The evaluator must outlive the encoder.
    FrameSequenceAnimationEncoder(const Settings& settings, imaging::Evaluator& evaluator);
    void append(const imaging::Image& image, std::int64_t frameIndex);
    void finish();

private:
    std::string name_;   // of the format
    imaging::Rect bounds_;
    imaging::FrameSurface surface_;
    std::unique_ptr<media::AnimationWriter> writer_;
    std::int64_t written_ = 0;
};

}   // namespace tavix
