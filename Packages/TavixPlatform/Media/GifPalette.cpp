#include "TavixPlatform/Media/GifPalette.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tavix::media {
namespace {

constexpr unsigned binBits = 5;
constexpr std::size_t hashSlots = 1024;
constexpr int refinements = 3;

// Square roots of each channel's share of lightness, evened out a little so that blue still counts.
constexpr float redWeight = 0.55F, greenWeight = 0.74F, blueWeight = 0.39F;

struct Sample {
    PerceivedColor color;
    float count;   // of pixels
};

struct Box {
    std::size_t begin, end;   // of the samples
    PerceivedColor mean{};
    std::size_t widestAxis = 0;
    float squaredError = 0;   // of all its pixels against the mean, along the widest axis
};

Box measured(std::span<const Sample> samples, std::size_t begin, std::size_t end) {
    Box box{begin, end};
    std::array<double, 3> sum{}, squares{};
    double count = 0;
    for (const Sample& s : samples.subspan(begin, end - begin)) {
        count += s.count;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            sum[axis] += double{s.count} * s.color[axis];
            squares[axis] += double{s.count} * s.color[axis] * s.color[axis];
        }
    }
    for (std::size_t axis = 0; axis < 3; ++axis) {
        box.mean[axis] = static_cast<float>(sum[axis] / count);
        const auto error = static_cast<float>(squares[axis] - sum[axis] * sum[axis] / count);
        if (error > box.squaredError) {
            box.squaredError = error;
            box.widestAxis = axis;
        }
    }
    return box;
}

// Cuts the box of the largest error at its mean until there are enough of them.
std::vector<Box> cut(std::span<Sample> samples, std::size_t wanted) {
    std::vector<Box> boxes{measured(samples, 0, samples.size())};
    while (boxes.size() < wanted) {
        const auto largest = std::max_element(boxes.begin(), boxes.end(),
            [](const Box& a, const Box& b) { return a.squaredError < b.squaredError; });
        if (largest->squaredError <= 0) break;
        const Box box = *largest;
        const auto middle = std::partition(samples.begin() + static_cast<std::ptrdiff_t>(box.begin),
            samples.begin() + static_cast<std::ptrdiff_t>(box.end),
            [&](const Sample& s) { return s.color[box.widestAxis] <= box.mean[box.widestAxis]; });
        const auto at = static_cast<std::size_t>(middle - samples.begin());
        if (at == box.begin || at == box.end) {   // all in one place but for rounding
            largest->squaredError = 0;
            continue;
        }
        *largest = measured(samples, box.begin, at);
        boxes.push_back(measured(samples, at, box.end));
    }
    return boxes;
}

// Moves every colour to the middle of the samples that are nearest to it.
void refine(std::span<const Sample> samples, std::vector<PerceivedColor>& colors) {
    std::vector<std::array<double, 4>> sums(colors.size());
    for (const Sample& s : samples) {
        auto& sum = sums[nearest(colors, s.color)];
        for (std::size_t axis = 0; axis < 3; ++axis) sum[axis] += double{s.count} * s.color[axis];
        sum[3] += s.count;
    }
    for (std::size_t i = 0; i < colors.size(); ++i)
        if (sums[i][3] > 0)
            for (std::size_t axis = 0; axis < 3; ++axis)
                colors[i][axis] = static_cast<float>(sums[i][axis] / sums[i][3]);
}

Rgb rgbOf(const PerceivedColor& color) {
    const auto level = [](float value) {
        return static_cast<std::uint8_t>(std::clamp(std::lround(value), 0L, 255L));
    };
    return {level(color[0] / redWeight), level(color[1] / greenWeight), level(color[2] / blueWeight)};
}

}   // namespace

PerceivedColor perceived(float red, float green, float blue) {
    return {red * redWeight, green * greenWeight, blue * blueWeight};
}

float distanceSquared(const PerceivedColor& a, const PerceivedColor& b) {
    const float x = a[0] - b[0], y = a[1] - b[1], z = a[2] - b[2];
    return x * x + y * y + z * z;
}

std::size_t nearest(std::span<const PerceivedColor> colors, const PerceivedColor& wanted) {
    std::size_t best = 0;
    float bestDistance = std::numeric_limits<float>::infinity();
    for (std::size_t i = 0; i < colors.size(); ++i) {
        const float distance = distanceSquared(colors[i], wanted);
        if (distance >= bestDistance) continue;
        bestDistance = distance;
        best = i;
    }
    return best;
}

ColorCount::ColorCount() : bins_(std::size_t{1} << (3 * binBits)), distinctSlots_(hashSlots) {}

void ColorCount::clear() {
    std::fill(bins_.begin(), bins_.end(), Bin{});
    std::fill(distinctSlots_.begin(), distinctSlots_.end(), std::uint16_t{0});
    distinct_.clear();
    hasTooMany_ = false;
}

void ColorCount::add(Rgb color) {
    const auto upper = [](unsigned level) { return level >> (8 - binBits); };
    Bin& bin = bins_[upper(color.red) << (2 * binBits) | upper(color.green) << binBits | upper(color.blue)];
    ++bin.count;
    bin.sums[0] += color.red;
    bin.sums[1] += color.green;
    bin.sums[2] += color.blue;
    if (!hasTooMany_ && (distinct_.empty() || color != last_)) noteDistinct(color);
    last_ = color;
}

void ColorCount::noteDistinct(Rgb color) {
    std::size_t slot = color.packed() * 2654435761U >> 22;   // Fibonacci hashing, to ten bits
    for (; distinctSlots_[slot]; slot = (slot + 1) % hashSlots)
        if (distinct_[distinctSlots_[slot] - std::size_t{1}] == color) return;
    hasTooMany_ = distinct_.size() == maxColors;
    if (hasTooMany_) return;
    distinct_.push_back(color);
    distinctSlots_[slot] = static_cast<std::uint16_t>(distinct_.size());
}

std::vector<Rgb> ColorCount::palette() const {
    if (isExact()) return distinct_;
    std::vector<Sample> samples;
    for (const Bin& bin : bins_) {
        if (!bin.count) continue;
        const auto mean = [&](std::size_t c) {
            return static_cast<float>(bin.sums[c]) / static_cast<float>(bin.count);
        };
        samples.push_back({perceived(mean(0), mean(1), mean(2)), static_cast<float>(bin.count)});
    }
    std::vector<PerceivedColor> colors;
    for (const Box& box : cut(samples, maxColors)) colors.push_back(box.mean);
    for (int i = 0; i < refinements; ++i) refine(samples, colors);
    std::vector<Rgb> palette;
    for (const PerceivedColor& color : colors)
        if (const Rgb rgb = rgbOf(color); std::find(palette.begin(), palette.end(), rgb) == palette.end())
            palette.push_back(rgb);
    return palette;
}

}   // namespace tavix::media
