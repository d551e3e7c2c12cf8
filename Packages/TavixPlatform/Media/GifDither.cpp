#include "TavixPlatform/Media/GifDither.h"

#include <algorithm>
#include <numeric>

namespace tavix::media {
namespace {

constexpr unsigned mixBits = 6;
// How much the grain of a mix counts against being off in colour.
constexpr float grainPenalty = 0.05F;

// Thresholds in 0 to 1 that are spread evenly over every small area without a visible pattern: the additive
// recurrence of the plastic number, in two dimensions (M. Roberts, 2018), in parts of 2^32.
float thresholdAt(int x, int y) {
    const std::uint32_t turn =
        static_cast<std::uint32_t>(x) * 3242174889U + static_cast<std::uint32_t>(y) * 2447445414U;
    return (static_cast<float>(turn >> 16) + 0.5F) / 65536;
}

float middleOfMix(unsigned upperBits) {
    constexpr float width = 1U << (8 - mixBits);
    return static_cast<float>(upperBits) * width + (width - 1) / 2;
}

}   // namespace

GifDither::GifDither() : mixes_(std::size_t{1} << (3 * mixBits)) {}

void GifDither::setPalette(const std::vector<Rgb>& palette, bool isExact) {
    isExact_ = isExact;
    colors_.clear();
    sorted_.clear();
    for (const Rgb color : palette) {
        sorted_.push_back(color.packed() << 8 | static_cast<std::uint32_t>(colors_.size()));
        colors_.push_back(perceived(color));
    }
    std::sort(sorted_.begin(), sorted_.end());
    lastIndex_ = static_cast<std::uint8_t>(sorted_.empty() ? 0 : sorted_[0] & 255);
    last_ = palette.empty() ? Rgb{} : palette[lastIndex_];
    if (isExact) return;
    std::fill(mixes_.begin(), mixes_.end(), Mix{});
    listNeighbors();
}

void GifDither::listNeighbors() {
    const std::size_t count = std::min(neighborCount, colors_.size() - 1);
    neighbors_.clear();
    std::vector<std::uint8_t> order(colors_.size());
    for (const PerceivedColor& color : colors_) {
        std::iota(order.begin(), order.end(), std::uint8_t{0});
        const auto isNearer = [&](std::uint8_t a, std::uint8_t b) {
            const float toA = distanceSquared(colors_[a], color), toB = distanceSquared(colors_[b], color);
            return toA != toB ? toA < toB : a < b;
        };
        // The nearest is the colour itself.
        std::partial_sort(
            order.begin(), order.begin() + static_cast<std::ptrdiff_t>(count) + 1, order.end(), isNearer);
        neighbors_.insert(
            neighbors_.end(), order.begin() + 1, order.begin() + 1 + static_cast<std::ptrdiff_t>(count));
    }
}

std::uint8_t GifDither::indexOf(Rgb color, int x, int y) {
    if (isExact_) return exactIndexOf(color);
    const auto upper = [](unsigned level) { return level >> (8 - mixBits); };
    const unsigned red = upper(color.red), green = upper(color.green), blue = upper(color.blue);
    Mix& mix = mixes_[red << (2 * mixBits) | green << mixBits | blue];
    if (!mix.isKnown) mix = mixFor(perceived(middleOfMix(red), middleOfMix(green), middleOfMix(blue)));
    return shareOfSecond(mix, perceived(color)) > thresholdAt(x, y) ? mix.second : mix.first;
}

std::uint8_t GifDither::exactIndexOf(Rgb color) {
    if (color == last_) return lastIndex_;
    const auto found = std::lower_bound(sorted_.begin(), sorted_.end(), color.packed() << 8);
    last_ = color;
    lastIndex_ = static_cast<std::uint8_t>(*found & 255);
    return lastIndex_;
}

float GifDither::shareOfSecond(const Mix& mix, const PerceivedColor& color) const {
    const PerceivedColor &from = colors_[mix.first], &to = colors_[mix.second];
    float along = 0;
    for (std::size_t axis = 0; axis < 3; ++axis)
        along += (color[axis] - from[axis]) * (to[axis] - from[axis]);
    const float length = distanceSquared(from, to);
    return length > 0 ? std::clamp(along / length, 0.0F, 1.0F) : 0;
}

GifDither::Mix GifDither::mixFor(const PerceivedColor& color) const {
    const std::size_t first = nearest(colors_, color);
    Mix best{static_cast<std::uint8_t>(first), static_cast<std::uint8_t>(first), true};
    float bestCost = distanceSquared(colors_[first], color);
    const std::size_t count = neighbors_.size() / colors_.size();
    for (std::size_t i = first * count; i < (first + 1) * count; ++i) {
        const Mix mix{static_cast<std::uint8_t>(first), neighbors_[i], true};
        const PerceivedColor &from = colors_[mix.first], &to = colors_[mix.second];
        const float share = shareOfSecond(mix, color);
        PerceivedColor mixed;
        for (std::size_t axis = 0; axis < 3; ++axis)
            mixed[axis] = from[axis] + share * (to[axis] - from[axis]);
        const float cost =
            distanceSquared(mixed, color) + grainPenalty * share * (1 - share) * distanceSquared(from, to);
        if (cost >= bestCost) continue;
        bestCost = cost;
        best = mix;
    }
    return best;
}

}   // namespace tavix::media
