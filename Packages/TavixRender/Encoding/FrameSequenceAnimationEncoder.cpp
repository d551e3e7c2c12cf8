#include "TavixRender/Encoding/FrameSequenceAnimationEncoder.h"

#include "TavixBase/Failure.h"
#include "TavixPlatform/Media/GifWriter.h"
#include "TavixPlatform/Media/WebpWriter.h"
#include "TavixRender/Encoding/FrameOutput.h"

#include <exception>

namespace tavix {

namespace {

imaging::Size drawable(imaging::Size size) {
    FrameOutput::requireDrawableSize(size);
    return size;
}

std::unique_ptr<media::AnimationWriter> openWriter(const FrameSequenceAnimationEncoder::Settings& settings) {
    const FrameClock clock = FrameClock::of(settings.fps);
    if (settings.format == ExportFormat::gif)
        return std::make_unique<media::GifWriter>(
            media::GifSettings{settings.output, settings.size, clock.timescale, clock.frameDuration});
    return std::make_unique<media::WebpWriter>(
        media::WebpSettings{settings.output, settings.size, clock.timescale, clock.frameDuration,
            settings.quality.value_or(media::WebpSettings::usualQuality), settings.effort});
}

}   // namespace

FrameSequenceAnimationEncoder::FrameSequenceAnimationEncoder(
    const Settings& settings, imaging::Evaluator& evaluator)
    : name_(displayName(settings.format)), bounds_{0, 0, double(settings.size.width),
                                               double(settings.size.height)},
      surface_(evaluator, drawable(settings.size)) {
    FrameOutput::makeRoomFor(settings.output);
    try {
        writer_ = openWriter(settings);
    } catch (const media::MediaError&) {
        std::throw_with_nested(Failure("Could not create the " + name_ + " encoder."));
    }
}

void FrameSequenceAnimationEncoder::append(const imaging::Image& image, std::int64_t) try {
    surface_.update(image.cropped(bounds_));
    writer_->append(surface_.pixels());
    ++written_;
} catch (const media::MediaError&) {
    std::throw_with_nested(Failure("Could not convert a rendered frame for " + name_ + " export."));
}

void FrameSequenceAnimationEncoder::finish() try {
    if (written_ < 1) throw Failure("No frames were rendered.");
    writer_->finish();
} catch (const media::MediaError&) {
    std::throw_with_nested(Failure("Could not finalize the " + name_ + " file."));
}

}   // namespace tavix
