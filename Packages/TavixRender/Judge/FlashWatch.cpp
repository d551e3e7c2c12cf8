#include "TavixRender/Judge/FlashWatch.h"

#include "TavixRender/Judge/Contrast.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

namespace tavix {
namespace {

constexpr double screenWidth = 1024, screenHeight = 768, fieldWidth = 341, fieldHeight = 256;
constexpr double mostFieldShare = 0.25;
constexpr float leastChange = 0.1F, darkEnough = 0.8F;
constexpr double saturatedShare = 0.8;
constexpr float leastRedChange = 20;
constexpr std::int32_t never = std::numeric_limits<std::int32_t>::min() / 2;
// Sums of eighths of bits: a change of exactly 10 % shall count.
constexpr float rounding = 1e-6F;

const std::array<double, 256>& linearOfByte() {
    static const std::array<double, 256> table = [] {
        std::array<double, 256> values{};
        for (std::size_t i = 0; i < values.size(); ++i) values[i] = Contrast::linear(double(i) / 255);
        return values;
    }();
    return table;
}

}   // namespace

FlashWatch::FlashWatch(imaging::Size frame, double framesPerSec) : size_(frame), framesPerSec_(framesPerSec) {
    const double shown = std::max(frame.width / screenWidth, frame.height / screenHeight);
    fieldWidth_ = fieldWidth * shown;
    fieldHeight_ = fieldHeight * shown;
    const auto count = std::size_t(frame.width) * std::size_t(frame.height);
    Pixel fresh;
    std::ranges::fill(fresh.changes, never);
    general_.pixels.assign(count, fresh);
    red_.pixels.assign(count, fresh);
    sums_.assign(std::size_t(frame.width + 1) * std::size_t(frame.height + 1), 0);
}

void FlashWatch::note(Pixel& pixel, std::int8_t direction, std::int32_t frame) {
    pixel.direction = direction;
    pixel.changes[pixel.next] = frame;
    pixel.next = std::uint8_t((pixel.next + 1) % changesOfFourFlashes);
}

void FlashWatch::takeGeneral(Pixel& pixel, float luminance) const {
    if (frame_ == 0) pixel.low = pixel.high = luminance;
    pixel.low = std::min(pixel.low, luminance);
    pixel.high = std::max(pixel.high, luminance);
    const bool rose = luminance - pixel.low >= leastChange - rounding && pixel.low < darkEnough;
    const bool fell = pixel.high - luminance >= leastChange - rounding && luminance < darkEnough;
    if (rose && pixel.direction != 1) {
        note(pixel, 1, frame_);
        pixel.high = luminance;
    } else if (fell && pixel.direction != -1) {
        note(pixel, -1, frame_);
        pixel.low = luminance;
    }
}

void FlashWatch::takeRed(Pixel& pixel, float redness, bool isSaturated) const {
    if (frame_ == 0 || redness < pixel.low) pixel.low = redness, pixel.lowIsRed = isSaturated;
    if (frame_ == 0 || redness > pixel.high) pixel.high = redness, pixel.highIsRed = isSaturated;
    const bool rose = redness - pixel.low > leastRedChange && (isSaturated || pixel.lowIsRed);
    const bool fell = pixel.high - redness > leastRedChange && (isSaturated || pixel.highIsRed);
    if (rose && pixel.direction != 1) {
        note(pixel, 1, frame_);
        pixel.high = redness, pixel.highIsRed = isSaturated;
    } else if (fell && pixel.direction != -1) {
        note(pixel, -1, frame_);
        pixel.low = redness, pixel.lowIsRed = isSaturated;
    }
}

// Four flashes within the second that ends here, and the last change is not longer ago than half of the usual
// time between two. Where all pixels change at once, all of them count then; where each has its own time, as
// in a list that scrolls, half of them do.
bool FlashWatch::flashesNow(const Pixel& pixel) const {
    const std::int32_t oldest = pixel.changes[pixel.next];
    const std::int32_t latest = pixel.changes[(pixel.next + changesOfFourFlashes - 1) % changesOfFourFlashes];
    return double(frame_ - oldest) <= framesPerSec_ &&
           (frame_ - latest) * 2 * (changesOfFourFlashes - 1) < latest - oldest;
}

void FlashWatch::take(const imaging::ConstBitmapView& frame) {
    const std::array<double, 256>& linear = linearOfByte();
    std::size_t at = 0;
    for (int y = 0; y < size_.height; ++y) {
        const std::uint8_t* pixel = frame.row(y);
        for (int x = 0; x < size_.width; ++x, pixel += 4, ++at) {
            const double b = linear[pixel[0]], g = linear[pixel[1]], r = linear[pixel[2]], sum = r + g + b;
            takeGeneral(general_.pixels[at], float(0.2126 * r + 0.7152 * g + 0.0722 * b));
            takeRed(
                red_.pixels[at], float(std::max(r - g - b, 0.0) * 320), sum > 0 && r / sum >= saturatedShare);
        }
    }
    judge(general_);
    judge(red_);
    ++frame_;
}

void FlashWatch::judge(Kind& kind) {
    const auto across = std::size_t(size_.width + 1);
    std::int32_t total = 0;
    for (std::size_t y = 0, at = 0; y < std::size_t(size_.height); ++y)
        for (std::size_t x = 0; x < std::size_t(size_.width); ++x, ++at) {
            const bool isFlashing = flashesNow(kind.pixels[at]);
            total += isFlashing;
            sums_[(y + 1) * across + x + 1] =
                isFlashing + sums_[y * across + x + 1] + sums_[(y + 1) * across + x] - sums_[y * across + x];
        }
    const double field = fieldWidth_ * fieldHeight_;
    if (total <= mostFieldShare * field) return;
    const auto w = std::min(std::size_t(std::lround(fieldWidth_)), std::size_t(size_.width));
    const auto h = std::min(std::size_t(std::lround(fieldHeight_)), std::size_t(size_.height));
    std::int32_t most = 0;
    for (std::size_t y = h; y <= std::size_t(size_.height); ++y)
        for (std::size_t x = w; x <= std::size_t(size_.width); ++x)
            most = std::max(most, sums_[y * across + x] - sums_[(y - h) * across + x] -
                                      sums_[y * across + x - w] + sums_[(y - h) * across + x - w]);
    if (most <= mostFieldShare * field) return;
    const double nowSec = frame_ / framesPerSec_, fromSec = std::max(nowSec - 1, 0.0);
    if (kind.spans.empty() || fromSec > kind.spans.back().toSec) kind.spans.push_back({fromSec, nowSec, 0});
    kind.spans.back().toSec = nowSec;
    kind.spans.back().areaFraction = std::max(kind.spans.back().areaFraction, most / field);
}

}   // namespace tavix
