// Draws each finished graph once and writes it as a PNG of its own.
#pragma once

#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixRender/Encoding/FrameNames.h"

#include <cstdint>
#include <deque>
#include <filesystem>
#include <future>

namespace tavix {

// Used by one thread at a time; pictures are packed on others, while the next ones are drawn.
class FrameSequencePngEncoder {
public:
    struct Settings {
        std::filesystem::path output;   // as `FrameNames` takes it; its folder is created
        imaging::Size size;
    };

    // Every member throws `Failure`. The evaluator must outlive the encoder.
    FrameSequencePngEncoder(const Settings& settings, imaging::Evaluator& evaluator);
    void append(const imaging::Image& image, std::int64_t frameIndex);
    void finish();

private:
    void awaitOldest();

    FrameNames names_;
    imaging::Size size_;
    imaging::Evaluator& evaluator_;
    std::size_t mostAtOnce_;
    std::deque<std::future<void>> packing_;   // a future waits for its task when it goes
};

}   // namespace tavix
