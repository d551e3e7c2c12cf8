#include "TavixPlatform/Media/WebpWriter.h"

#include "TavixPlatform/Media/StraightColor.h"

#include <webp/encode.h>
#include <webp/mux.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <limits>
#include <string>
#include <utility>

namespace tavix::media {
namespace {

struct FreeEncoder {
    void operator()(WebPAnimEncoder* encoder) const { WebPAnimEncoderDelete(encoder); }
};
using Encoder = std::unique_ptr<WebPAnimEncoder, FreeEncoder>;

void refuseImpossible(const WebpSettings& settings) {
    const auto isPossible = [](int side) { return side >= 1 && side <= WEBP_MAX_DIMENSION; };
    if (!isPossible(settings.sizePx.width) || !isPossible(settings.sizePx.height))
        throw MediaError("A WebP has from 1 to " + std::to_string(WEBP_MAX_DIMENSION) +
                         " pixels on a side, not " + std::to_string(settings.sizePx.width) + " × " +
                         std::to_string(settings.sizePx.height) + ".");
}

Encoder openEncoder(const WebpSettings& settings) {
    WebPAnimEncoderOptions options;
    if (!WebPAnimEncoderOptionsInit(&options)) throw MediaError("The WebP library is of another version.");
    options.kmax = 0;   // whoever shows an animation shows all of it, so a whole frame is never needed again
    Encoder encoder(WebPAnimEncoderNew(settings.sizePx.width, settings.sizePx.height, &options));
    if (!encoder) throw std::bad_alloc();
    return encoder;
}

WebPConfig configOf(const WebpSettings& settings) {
    static constexpr std::array methods{2, 4, 6};
    WebPConfig config;
    if (!WebPConfigInit(&config)) throw MediaError("The WebP library is of another version.");
    config.quality = float(settings.quality);
    config.method = methods[static_cast<std::size_t>(settings.effort)];
    return config;
}

std::uint32_t straightPixel(const std::uint8_t* bgra) {
    const unsigned alpha = bgra[3];
    if (alpha == 0) return 0;
    return alpha << 24 | unsigned(straight(bgra[2], alpha)) << 16 | unsigned(straight(bgra[1], alpha)) << 8 |
           straight(bgra[0], alpha);
}

// Memory of the library for a picture.
class Picture {
public:
    explicit Picture(const imaging::ConstBitmapView& frame) {
        if (!WebPPictureInit(&picture_)) throw MediaError("The WebP library is of another version.");
        picture_.use_argb = 1;
        picture_.width = frame.size.width;
        picture_.height = frame.size.height;
        if (!WebPPictureAlloc(&picture_)) throw std::bad_alloc();
        for (int y = 0; y < frame.size.height; ++y) {
            const std::uint8_t* from = frame.row(y);
            std::uint32_t* to = picture_.argb + std::ptrdiff_t{y} * picture_.argb_stride;
            for (int x = 0; x < frame.size.width; ++x) to[x] = straightPixel(from + std::ptrdiff_t{x} * 4);
        }
    }
    ~Picture() { WebPPictureFree(&picture_); }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;
    WebPPicture* get() { return &picture_; }

private:
    WebPPicture picture_;
};

}   // namespace

class WebpWriter::Session {
public:
    explicit Session(const WebpSettings& settings) : settings_(settings) {
        refuseImpossible(settings_);
        encoder_ = openEncoder(settings_);
        config_ = configOf(settings_);
        file_ = std::fopen(settings_.path.c_str(), "wb");
        if (!file_) failToWrite();
    }
    ~Session() {
        if (!file_) return;
        std::fclose(file_);
        std::remove(settings_.path.c_str());
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    void append(const imaging::ConstBitmapView& frame) {
        if (frame.size != settings_.sizePx)
            throw MediaError("A frame of a WebP must have the size of the WebP.");
        Picture picture(frame);
        if (!WebPAnimEncoderAdd(encoder_.get(), picture.get(), millisecAt(frames_++), &config_))
            failToEncode();
    }

    void finish() {
        if (frames_ == 0) throw MediaError("A WebP needs at least one frame.");
        WebPData data;
        WebPDataInit(&data);
        const bool isWhole = WebPAnimEncoderAdd(encoder_.get(), nullptr, millisecAt(frames_), nullptr) &&
                             WebPAnimEncoderAssemble(encoder_.get(), &data);
        const std::unique_ptr<WebPData, void (*)(WebPData*)> owner(&data, &WebPDataClear);
        if (!isWhole) failToEncode();
        if (std::fwrite(data.bytes, 1, data.size, file_) != data.size) failToWrite();
        if (std::fclose(std::exchange(file_, nullptr))) failToWrite();
    }

private:
    // Rounds the instants, not the times between them.
    int millisecAt(std::int64_t frame) const {
        const std::int64_t millisec =
            (2000 * frame * settings_.frameDuration + settings_.timescale) / (2 * settings_.timescale);
        if (millisec > std::numeric_limits<int>::max()) throw MediaError("A WebP lasts 24 days at most.");
        return static_cast<int>(millisec);
    }

    [[noreturn]] void failToEncode() const {
        const char* reason = WebPAnimEncoderGetError(encoder_.get());
        throw MediaError("Cannot encode a WebP of " + std::to_string(settings_.sizePx.width) + " by " +
                         std::to_string(settings_.sizePx.height) + " pixels: " + (reason ? reason : "") +
                         ".");
    }
    [[noreturn]] void failToWrite() const {
        throw MediaError("Cannot write \"" + settings_.path.string() + "\": " + std::strerror(errno) + ".");
    }

    WebpSettings settings_;
    Encoder encoder_;
    WebPConfig config_{};
    std::FILE* file_ = nullptr;
    std::int64_t frames_ = 0;
};

WebpWriter::WebpWriter(const WebpSettings& settings) : session_(std::make_unique<Session>(settings)) {}
WebpWriter::~WebpWriter() = default;
void WebpWriter::append(const imaging::ConstBitmapView& frame) { session_->append(frame); }
void WebpWriter::finish() { session_->finish(); }

}   // namespace tavix::media
