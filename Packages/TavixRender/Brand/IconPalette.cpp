#include "TavixRender/Brand/IconPalette.h"

#include "TavixBase/TextTrimming.h"
#include "TavixCore/Values/ColorMixing.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixRender/Brand/BrandFiles.h"

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <tuple>

namespace tavix::IconPaletteExtractor {
namespace {

namespace fs = std::filesystem;

constexpr int sampledPx = 48;

int scoreOf(const fs::path& file) {
    const std::string path = lowered(file.string());
    const auto holds = [](const std::string& text, const char* word) {
        return text.find(word) != std::string::npos;
    };
    return (holds(path, "appicon") ? 2 : 0) + (holds(path, ".appiconset") ? 2 : 0) +
           (holds(BrandFiles::lowerName(file), "icon") ? 1 : 0);
}

// Pixels of one of 16 levels a channel.
struct Bucket {
    double r = 0, g = 0, b = 0;
    int count = 0;

    RGBAColor mean() const { return {r / count, g / count, b / count, 1}; }
};

imaging::Bitmap sampled(const imaging::Bitmap& icon) {
    const imaging::ConstBitmapView source = icon.view();
    auto copy = std::make_shared<imaging::Bitmap>(icon.size());
    for (int y = 0; y < source.size.height; ++y)
        std::copy_n(source.row(y), 4 * source.size.width, copy->view().row(y));
    copy->indexCoverage();
    imaging::Evaluator evaluator({.threadCount = 1, .cacheBytes = 0});
    return evaluator.draw(imaging::Image::bitmap(std::move(copy)).placedInto({0, 0, sampledPx, sampledPx}),
        {0, 0, sampledPx, sampledPx});
}

double saturation(const RGBAColor& c) {
    const auto [least, most] = std::minmax({c.r, c.g, c.b});
    return most > 0 ? (most - least) / most : 0;
}

}   // namespace

bool isIconPicture(const fs::path& file) {
    static constexpr std::array<std::string_view, 5> kinds{"png", "jpg", "jpeg", "heic", "webp"};
    return std::ranges::find(kinds, BrandFiles::lowerExtension(file)) != kinds.end();
}

std::optional<fs::path> findIconImage(const fs::path& under) {
    if (isIconPicture(under)) return under;
    std::optional<fs::path> best;
    std::pair<int, std::uintmax_t> bestRank{-1, 0};
    for (const fs::path& file : BrandFiles::under(under)) {
        if (!isIconPicture(file)) continue;
        const std::pair rank{scoreOf(file.lexically_relative(under)), BrandFiles::sizeBytes(file)};
        if (rank > bestRank) {
            best = file;
            bestRank = rank;
        }
    }
    return best;
}

Colors dominantColors(const imaging::Bitmap& icon, std::size_t maxColors) {
    const imaging::Bitmap pixels = sampled(icon);
    std::map<std::tuple<int, int, int>, Bucket> buckets;
    double luminances = 0;
    int counted = 0;
    for (int y = 0; y < sampledPx; ++y)
        for (int x = 0; x < sampledPx; ++x) {
            const std::uint8_t* p = pixels.view().row(y) + 4 * x;
            const double alpha = p[3] / 255.0;
            if (!(alpha > 0.5)) continue;
            const auto straight = [alpha](
                                      std::uint8_t level) { return std::min(level / 255.0 / alpha, 1.0); };
            const RGBAColor c{straight(p[2]), straight(p[1]), straight(p[0]), 1};
            Bucket& bucket = buckets[{int(15 * c.r), int(15 * c.g), int(15 * c.b)}];
            bucket.r += c.r;
            bucket.g += c.g;
            bucket.b += c.b;
            ++bucket.count;
            luminances += luminance(c);
            ++counted;
        }
    std::vector<Bucket> sorted;
    for (const auto& [level, bucket] : buckets) sorted.push_back(bucket);
    std::ranges::stable_sort(sorted, std::ranges::greater(), &Bucket::count);
    Colors result;
    for (std::size_t i = 0; i < std::min(maxColors, sorted.size()); ++i)
        result.colors.push_back(sorted[i].mean());
    if (counted > 0) result.weightedLuminance = luminances / counted;
    return result;
}

bool isDistinct(const RGBAColor& color) {
    constexpr double nearlyBlack = 0.08, nearlyWhite = 0.95;
    const double light = luminance(color);
    return light > nearlyBlack && light < nearlyWhite;
}

std::optional<RGBAColor> pickAccent(std::span<const RGBAColor> colors) {
    const RGBAColor* best = nullptr;
    for (const RGBAColor& color : colors)
        if (isDistinct(color) && (!best || saturation(color) > saturation(*best))) best = &color;
    if (best) return *best;
    return colors.empty() ? std::nullopt : std::optional(colors.front());
}

}   // namespace tavix::IconPaletteExtractor
