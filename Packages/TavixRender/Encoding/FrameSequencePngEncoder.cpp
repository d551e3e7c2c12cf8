#include "TavixRender/Encoding/FrameSequencePngEncoder.h"

#include "TavixBase/Failure.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixRender/Encoding/FrameOutput.h"

#include <algorithm>
#include <memory>
#include <system_error>
#include <thread>
#include <utility>

namespace tavix {

FrameSequencePngEncoder::FrameSequencePngEncoder(const Settings& settings, imaging::Evaluator& evaluator)
    : names_(FrameNames::required(settings.output)), size_(settings.size), evaluator_(evaluator),
      mostAtOnce_(std::clamp(std::thread::hardware_concurrency(), 1u, 8u)) {
    FrameOutput::requireDrawableSize(size_);
    FrameOutput::makeRoomFor(names_.of(0));
}

void FrameSequencePngEncoder::append(const imaging::Image& image, std::int64_t frameIndex) {
    if (packing_.size() >= mostAtOnce_) awaitOldest();
    const auto picture =
        std::make_shared<const imaging::Bitmap>(evaluator_.draw(image, {0, 0, size_.width, size_.height}));
    const auto pack = [picture, file = names_.of(frameIndex)] { media::writePng(file, picture->view()); };
    try {
        packing_.push_back(std::async(std::launch::async, pack));
    } catch (const std::system_error&) {   // there are no more threads
        packing_.push_back(std::async(std::launch::deferred, pack));
    }
}

void FrameSequencePngEncoder::finish() {
    while (!packing_.empty()) awaitOldest();
}

void FrameSequencePngEncoder::awaitOldest() try {
    std::future<void> oldest = std::move(packing_.front());
    packing_.pop_front();
    oldest.get();
} catch (const media::MediaError& error) {
    throw Failure(error.what());
}

}   // namespace tavix
