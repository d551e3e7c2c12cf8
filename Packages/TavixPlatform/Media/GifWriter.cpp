#include "TavixPlatform/Media/GifWriter.h"

#include "TavixPlatform/Media/GifBlocks.h"
#include "TavixPlatform/Media/GifDither.h"
#include "TavixPlatform/Media/GifPalette.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <optional>
#include <utility>

namespace tavix::media {
namespace {

constexpr int maxSidePx = 65535;
constexpr std::uint8_t leastVisibleAlpha = 128;

// A pixel as a GIF can show it: opaque, or not there.
struct Shown {
    Rgb color;
    bool isThere = false;
    bool operator==(const Shown&) const = default;
};

Shown shownOf(const std::uint8_t* bgra) {
    const unsigned alpha = bgra[3];
    if (alpha == 255) return {{bgra[2], bgra[1], bgra[0]}, true};
    if (alpha < leastVisibleAlpha) return {};
    const auto straight = [&](unsigned color) {
        return static_cast<std::uint8_t>(std::min((color * 255 + alpha / 2) / alpha, 255U));
    };
    return {{straight(bgra[2]), straight(bgra[1]), straight(bgra[0])}, true};
}

}   // namespace

// A frame redraws only what differs from the frame before, so that the rest keeps its very colours although
// every frame has another palette. It is held back until the next one is known: only then is it clear whether
// its area must be cleared for something to vanish.
class GifWriter::Session {
public:
    explicit Session(const GifSettings& settings) : settings_(settings) {
        const auto [width, height] = settings.sizePx;
        if (width < 1 || height < 1 || width > maxSidePx || height > maxSidePx || settings.timescale < 1 ||
            settings.frameDuration < 1)
            throw MediaError("A GIF has from 1 to 65535 pixels on a side, and its frames last a while.");
        shown_.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
        file_ = std::fopen(settings.path.c_str(), "wb");
        if (!file_) fail();
        write(gifHead(width, height));
    }

    ~Session() {
        if (!file_) return;
        std::fclose(file_);
        std::error_code ignored;
        if (std::filesystem::is_regular_file(settings_.path, ignored))
            std::filesystem::remove(settings_.path, ignored);
    }

    void append(const imaging::ConstBitmapView& picture) {
        if (picture.size != settings_.sizePx)
            throw MediaError("A frame of the GIF has another size than the rest.");
        if (held_ && makesPixelsVanish(picture)) {
            held_->disposal = GifDisposal::clear;
            held_->area = canvas();
            std::fill(shown_.begin(), shown_.end(), Shown{});
        }
        writeHeld();
        hold(picture);
    }

    void finish() {
        if (!held_) throw MediaError("A GIF needs at least one frame.");
        writeHeld();
        write(gifTail());
        std::FILE* file = std::exchange(file_, nullptr);
        if (std::fclose(file)) fail();
    }

private:
    imaging::PixelRegion canvas() const { return {0, 0, settings_.sizePx.width, settings_.sizePx.height}; }

    [[noreturn]] void fail() const {
        throw MediaError("Cannot write \"" + settings_.path.string() + "\": " + std::strerror(errno) + ".");
    }

    void write(const std::string& bytes) {
        if (std::fwrite(bytes.data(), 1, bytes.size(), file_) != bytes.size()) fail();
    }

    void writeHeld() {
        if (held_) write(gifFrame(*held_, settings_.sizePx.width));
    }

    template <class Visit> void forEachPixel(const imaging::ConstBitmapView& picture, Visit visit) {
        std::size_t at = 0;
        for (int y = 0; y < picture.size.height; ++y) {
            const std::uint8_t* row = picture.row(y);
            for (int x = 0; x < picture.size.width; ++x, ++at)
                visit(x, y, at, shownOf(row + std::ptrdiff_t{x} * 4));
        }
    }

    bool makesPixelsVanish(const imaging::ConstBitmapView& picture) {
        bool vanish = false;
        forEachPixel(picture, [&](int, int, std::size_t at, const Shown& pixel) {
            vanish = vanish || (shown_[at].isThere && !pixel.isThere);
        });
        return vanish;
    }

    void hold(const imaging::ConstBitmapView& picture) {
        GifFrame& frame = held_ ? *held_ : held_.emplace();
        frame.disposal = GifDisposal::keep;
        frame.delayCentisec = nextDelay();
        count_.clear();
        forEachPixel(picture, [&](int, int, std::size_t at, const Shown& pixel) {
            if (pixel != shown_[at]) count_.add(pixel.color);
        });
        frame.palette = count_.palette();
        dither_.setPalette(frame.palette, count_.isExact());
        frame.area = draw(picture, frame);
    }

    // Fills in the indices; returns the area that holds all that is new, a single pixel when nothing is.
    imaging::PixelRegion draw(const imaging::ConstBitmapView& picture, GifFrame& frame) {
        frame.indices.assign(shown_.size(), frame.transparentIndex());
        imaging::PixelRegion changed{settings_.sizePx.width, settings_.sizePx.height, 0, 0};
        forEachPixel(picture, [&](int x, int y, std::size_t at, const Shown& pixel) {
            if (pixel == shown_[at]) return;
            shown_[at] = pixel;
            frame.indices[at] = dither_.indexOf(pixel.color, x, y);
            changed = {std::min(changed.x0, x), std::min(changed.y0, y), std::max(changed.x1, x + 1),
                std::max(changed.y1, y + 1)};
        });
        return changed.isEmpty() ? imaging::PixelRegion{0, 0, 1, 1} : changed;
    }

    // Rounds the instants, not the delays between them.
    int nextDelay() {
        const auto centisecAt = [&](std::int64_t frame) {
            return (200 * frame * settings_.frameDuration + settings_.timescale) / (2 * settings_.timescale);
        };
        const std::int64_t delay = centisecAt(frames_ + 1) - centisecAt(frames_);
        ++frames_;
        return static_cast<int>(
            std::max<std::int64_t>(delay, 1));   // none would be read as a tenth of a second
    }

    GifSettings settings_;
    std::FILE* file_ = nullptr;
    std::vector<Shown> shown_;       // what the canvas holds once the held frame is drawn
    std::optional<GifFrame> held_;   // the latest frame, not yet written
    ColorCount count_;
    GifDither dither_;
    std::int64_t frames_ = 0;
};

GifWriter::GifWriter(const GifSettings& settings) : session_(std::make_unique<Session>(settings)) {}
GifWriter::~GifWriter() = default;
void GifWriter::append(const imaging::ConstBitmapView& frame) { session_->append(frame); }
void GifWriter::finish() { session_->finish(); }

}   // namespace tavix::media
