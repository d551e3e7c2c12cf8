#include "TavixRender/Encoding/FrameSequenceEncoder.h"

#include "TavixBase/Failure.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixRender/Encoding/FrameOutput.h"

#include <algorithm>
#include <string>

namespace tavix {

namespace {

// High enough that a quick encoder loses nothing that can be seen.
constexpr double bitsPerPixel = 0.5;
// Encoders count in thousands, and none at all would mean no limit.
constexpr std::int64_t minBitsPerSec = 1000;

media::MovieCodec mediaCodec(VideoCodec codec) {
    switch (codec) {
    case VideoCodec::h264: return media::MovieCodec::h264;
    case VideoCodec::hevc: return media::MovieCodec::hevc;
    case VideoCodec::proRes422HQ: return media::MovieCodec::proRes422HQ;
    case VideoCodec::proRes4444: return media::MovieCodec::proRes4444;
    case VideoCodec::vp9: return media::MovieCodec::vp9;
    case VideoCodec::vp9Alpha: return media::MovieCodec::vp9Alpha;
    case VideoCodec::av1: break;
    }
    return media::MovieCodec::av1;
}

int roundedUpToEven(int side) { return side + side % 2; }

// Every codec wants an even width, and those that halve the colour's height an even height.
imaging::Size codedSizeFor(imaging::Size size, VideoCodec codec) {
    FrameOutput::requireDrawableSize(size);
    return {roundedUpToEven(size.width),
        media::needsEvenHeight(mediaCodec(codec)) ? roundedUpToEven(size.height) : size.height};
}

media::MovieContainer mediaContainer(const FrameSequenceEncoder::Settings& settings) {
    if (settings.isPiece) return media::MovieContainer::piece;
    if (isProRes(settings.codec)) return media::MovieContainer::mov;
    switch (settings.container) {
    case ExportContainer::mp4: return media::MovieContainer::mp4;
    case ExportContainer::mov: return media::MovieContainer::mov;
    case ExportContainer::webm: break;
    }
    return media::MovieContainer::webm;
}

// 0 leaves it to the codec.
std::int64_t bitsPerSecOf(const FrameSequenceEncoder::Settings& settings, double framesPerSec) {
    const bool hasUsualRate = settings.codec == VideoCodec::h264 || settings.codec == VideoCodec::hevc;
    if (settings.rate.bitsPerSec) return std::max(*settings.rate.bitsPerSec, minBitsPerSec);
    if (!hasUsualRate || settings.rate.quality) return 0;
    const double bitsPerSec =
        double(settings.size.width) * settings.size.height * framesPerSec * bitsPerPixel;
    return std::max(static_cast<std::int64_t>(bitsPerSec), minBitsPerSec);
}

media::MovieSettings movieSettings(const FrameSequenceEncoder::Settings& settings, imaging::Size codedSize) {
    const FrameClock clock = FrameClock::of(settings.fps);
    return {.path = settings.output,
        .sizePx = codedSize,
        .codec = mediaCodec(settings.codec),
        .container = mediaContainer(settings),
        .bitsPerSec = bitsPerSecOf(settings, double(clock.timescale) / clock.frameDuration),
        .mayTakeLess = !settings.rate.bitsPerSec,
        .quality = settings.rate.quality,
        .coarseness = settings.rate.coarseness,
        .effort = settings.effort,
        .hardware = settings.hardware,
        .timescale = clock.timescale,
        .frameDuration = clock.frameDuration};
}

// The reason goes into a longer sentence, which has its own full stop.
[[noreturn]] void fail(const std::string& beginning, const media::MediaError& error) {
    std::string reason = error.what();
    if (reason.ends_with('.')) reason.pop_back();
    throw Failure(beginning + reason + ".");
}

}   // namespace

FrameSequenceEncoder::FrameSequenceEncoder(const Settings& settings, imaging::Evaluator& evaluator)
    : bounds_{0, 0, double(settings.size.width), double(settings.size.height)},
      codedSize_(codedSizeFor(settings.size, settings.codec)), clock_(FrameClock::of(settings.fps)),
      surface_(evaluator, codedSize_) {
    FrameOutput::makeRoomFor(settings.output);
    try {
        writer_ = std::make_unique<media::MovieWriter>(movieSettings(settings, codedSize_));
    } catch (const media::MediaError& error) {
        fail("Writer failed to start: ", error);
    }
}

void FrameSequenceEncoder::append(const imaging::Image& image, std::int64_t frameIndex) try {
    const imaging::Image frame = image.cropped(bounds_);
    const bool isPadded = codedSize_.width > bounds_.width || codedSize_.height > bounds_.height;
    media::MovieWriter::Slot& slot = writer_->acquire();
    surface_.update(isPadded ? frame.clampedToExtent() : frame, {slot.planes, slot.stamp});
    writer_->submit(slot, clock_.timeOf(frameIndex));
} catch (const media::MediaError& error) {
    fail("Composition write failed: ", error);
}

void FrameSequenceEncoder::finish() try { writer_->finish(); } catch (const media::MediaError& error) {
    fail("Composition write failed: ", error);
}

void FrameSequenceEncoder::writeStill(const imaging::Image& image, imaging::Size size,
    const std::filesystem::path& file, imaging::Evaluator& evaluator) {
    FrameOutput::requireDrawableSize(size);
    FrameOutput::makeRoomFor(file);
    try {
        media::writePng(file, evaluator.draw(image, {0, 0, size.width, size.height}).view());
    } catch (const media::MediaError& error) {
        fail("", error);
    }
}

}   // namespace tavix
