#include "TavixCore/Geometry/CanvasGeometry.h"

#include "TavixCore/Values/TextWords.h"

#include <algorithm>
#include <cmath>

namespace tavix::CanvasGeometry {
namespace {

constexpr double marginFraction = 0.04;           // of the canvas height, at its edges
constexpr double airFraction = 0.01;              // that a block needs around it
constexpr double characterWidthFraction = 0.52;   // of the font size: an average of Latin letters
constexpr double lineHeightFactor = 1.3;

}   // namespace

PixelRect deviceFrameRect(const CanvasSize& output, double paddingPx, double frameAspect) {
    const double roomWidth = std::max(output.widthPx - 2 * paddingPx, 1.0);
    const double roomHeight = std::max(output.heightPx - 2 * paddingPx, 1.0);
    const double aspect = std::max(frameAspect, 0.01);
    const double height = std::min(roomHeight, roomWidth / aspect), width = aspect * height;
    return {paddingPx + (roomWidth - width) / 2, paddingPx + (roomHeight - height) / 2, width, height};
}

BlockSize blockSize(
    std::string_view text, double fontSizeFraction, double maxTextWidthPx, double outputHeightPx) {
    const double fontPx = fontSizeFraction * outputHeightPx;
    double lengthPx = 0;
    for (const KineticMath::Word& word : KineticMath::words(text))
        lengthPx +=
            fontPx * characterWidthFraction * static_cast<double>(word.range.end - word.range.begin + 1);
    const double wrapPx = std::max(maxTextWidthPx, 1.0);
    const double lines = std::max(std::ceil(lengthPx / wrapPx), 1.0);
    return {std::min(wrapPx, lengthPx), fontPx + fontPx * lines * lineHeightFactor};
}

ZonePlacement zonePlacement(
    std::string_view zone, const BlockSize& block, const PixelRect& frame, const CanvasSize& output) {
    const double margin = marginFraction * output.heightPx, air = airFraction * output.heightPx;
    // Between two places along an axis of the canvas: the middle of the strip, as a fraction, and its room.
    const auto upright = [&](double from, double to) {
        return ZonePlacement{{0.5, (from + to) / (2 * output.heightPx)}, block.heightPx + air <= to - from};
    };
    const auto sideways = [&](double from, double to) {
        return ZonePlacement{{(from + to) / (2 * output.widthPx), 0.5}, block.widthPx + air <= to - from};
    };
    if (zone == "upper") return upright(margin, frame.y);
    if (zone == "lower") return upright(frame.maxY(), output.heightPx - margin);
    if (zone == "left") return sideways(margin, frame.x);
    if (zone == "right") return sideways(frame.maxX(), output.widthPx - margin);
    return {{0.5, 0.5}, true};
}

std::vector<std::string> fallbackChain(std::string_view zone) {
    std::vector<std::string> chain;
    for (const std::string_view next :
        {zone, std::string_view("lower"), std::string_view("upper"), std::string_view("center")})
        if (std::ranges::find(chain, next) == chain.end()) chain.emplace_back(next);
    return chain;
}

}   // namespace tavix::CanvasGeometry
