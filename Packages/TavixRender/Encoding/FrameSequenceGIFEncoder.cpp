#include "TavixRender/Encoding/FrameSequenceGIFEncoder.h"

#include "TavixBase/Failure.h"
#include "TavixRender/Encoding/FrameOutput.h"

#include <exception>

namespace tavix {

namespace {

imaging::Size drawable(imaging::Size size) {
    FrameOutput::requireDrawableSize(size);
    return size;
}

}   // namespace

FrameSequenceGIFEncoder::FrameSequenceGIFEncoder(const Settings& settings, imaging::Evaluator& evaluator)
    : bounds_{0, 0, double(settings.size.width), double(settings.size.height)},
      surface_(evaluator, drawable(settings.size)) {
    FrameOutput::makeRoomFor(settings.output);
    const FrameClock clock = FrameClock::of(settings.fps);
    try {
        writer_ = std::make_unique<media::GifWriter>(media::GifSettings{.path = settings.output,
            .sizePx = settings.size,
            .timescale = clock.timescale,
            .frameDuration = clock.frameDuration});
    } catch (const media::MediaError&) {
        std::throw_with_nested(Failure("Could not create the GIF encoder."));
    }
}

void FrameSequenceGIFEncoder::append(const imaging::Image& image, std::int64_t) try {
    surface_.update(image.cropped(bounds_));
    writer_->append(surface_.pixels());
    ++written_;
} catch (const media::MediaError&) {
    std::throw_with_nested(Failure("Could not convert a rendered frame for GIF export."));
}

void FrameSequenceGIFEncoder::finish() try {
    if (written_ < 1) throw Failure("No frames were rendered.");
    writer_->finish();
} catch (const media::MediaError&) {
    std::throw_with_nested(Failure("Could not finalize the GIF file."));
}

}   // namespace tavix
