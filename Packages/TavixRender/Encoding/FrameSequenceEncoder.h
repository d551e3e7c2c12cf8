// The end of the picture's road: draws each finished graph once and writes a movie, or one still.
#pragma once

#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Imaging/FrameSurface.h"
#include "TavixPlatform/Media/MovieWriter.h"
#include "TavixRender/Encoding/ExportOptions.h"
#include "TavixRender/Encoding/FrameClock.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>

namespace tavix {

// Used by one thread at a time; encoding runs beside it, so that the next frame is composed meanwhile.
class FrameSequenceEncoder {
public:
    struct Settings {
        std::filesystem::path output;   // its folder is created, a file of that name replaced
        imaging::Size size;
        FrameRate fps = 30;
        VideoCodec codec = VideoCodec::h264;
        ExportContainer container = ExportContainer::mp4;   // ProRes is always written as QuickTime
        media::EncodingEffort effort = media::EncodingEffort::fast;
        ExportRate rate = {};
        std::optional<media::HardwareEncoder> hardware = {};
        bool isPiece = false;   // of a film that is joined later; then the container says nothing
    };

    // Every member throws `Failure`. The evaluator must outlive the encoder.
    FrameSequenceEncoder(const Settings& settings, imaging::Evaluator& evaluator);
    void append(const imaging::Image& image, std::int64_t frameIndex);
    void finish();   // waits until the file is complete

    static void writeStill(const imaging::Image& image, imaging::Size size, const std::filesystem::path& file,
        imaging::Evaluator& evaluator);

private:
    imaging::Rect bounds_;
    imaging::Size codedSize_;   // even where the codec wants it; the edge pixels fill it up
    FrameClock clock_;
    imaging::FrameSurface surface_;
    std::unique_ptr<media::MovieWriter> writer_;
};

}   // namespace tavix
