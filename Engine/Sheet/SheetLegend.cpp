#include "Engine/Sheet/SheetLegend.h"

#include "Engine/Sheet/StrokeDigits.h"
#include "TavixPlatform/Text/FontBook.h"
#include "TavixPlatform/Text/LineDrawing.h"
#include "TavixPlatform/Text/TypesetLine.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace tavix::engine {

namespace {

using imaging::Color;
using imaging::Image;

constexpr std::size_t mostFindings = 24;
constexpr Color ink{0.95, 0.95, 0.96, 1}, badgeInk{0.08, 0.08, 0.09, 1};

Image drawnLine(const text::TypesetLine& line, imaging::Point origin) {
    const text::LinePart whole{line.range(), {0, line.widthPx()}};
    const imaging::PixelRegion region = text::inkRegion(line, origin, whole, 1);
    if (region.isEmpty()) return {};
    auto bitmap = std::make_shared<imaging::Bitmap>(text::drawn(line, origin, whole, 1, region));
    bitmap->indexCoverage();
    return Image::bitmap(std::move(bitmap), {double(region.x0), double(region.y0)});
}

std::string sentenceOf(const CompositionLint::Finding& finding) {
    const std::string place = finding.path.empty() ? "" : finding.path + ": ";
    return place + finding.message + (finding.suggestion ? " " + *finding.suggestion : "");
}

// Writes line under line, downwards from y = 0.
class Writer {
public:
    Writer(int widthPx, double marginPx)
        : marginPx_(marginPx), sizePx_(std::clamp(widthPx / 75.0, 12.0, 22.0)),
          indentPx_(marginPx + 2.6 * sizePx_), roomPx_(std::max(widthPx - marginPx - indentPx_, 8 * sizePx_)),
          font_(fonts_.interfaceFont(sizePx_)) {}

    void write(const std::string& sentence, const Image* badge = nullptr) {
        bool isFirst = true;
        for (const text::TypesetLine& line : text::wrappedLines({sentence, font_, ink}, roomPx_)) {
            y_ -= std::ceil(1.45 * sizePx_);
            pictures_.push_back(drawnLine(line, {indentPx_, y_}));
            if (isFirst && badge)
                pictures_.push_back(badge->translated(marginPx_, std::round(y_ - 0.28 * sizePx_)));
            isFirst = false;
        }
        y_ -= std::ceil(0.35 * sizePx_);
    }
    double badgePx() const { return std::round(1.25 * sizePx_); }
    SheetLegend finished() const {
        return {Image::stacked(pictures_), static_cast<int>(std::ceil(marginPx_ - y_))};
    }

private:
    double marginPx_, sizePx_, indentPx_, roomPx_;
    text::FontBook fonts_;
    text::Font font_;
    std::vector<Image> pictures_;
    double y_ = 0;
};

}   // namespace

imaging::Color findingColor(bool isError) {
    return isError ? Color{0.98, 0.36, 0.36, 1} : Color{0.98, 0.76, 0.28, 1};
}

Image findingBadge(int number, bool isError, double heightPx) {
    const Image digits = strokeDigits(std::to_string(number), 0.62 * heightPx, badgeInk);
    const double widthPx = std::max(std::ceil(digits.extent().width + 0.6 * heightPx), heightPx);
    const Image ground =
        Image::roundedRectangle({0, 0, widthPx, heightPx}, heightPx / 2, findingColor(isError));
    return digits.translated(std::round((widthPx - digits.extent().width) / 2), std::round(0.19 * heightPx))
        .over(ground);
}

SheetLegend sheetLegend(std::span<const CompositionLint::Finding> findings, int widthPx, double marginPx) {
    Writer writer(widthPx, marginPx);
    for (std::size_t i = 0; i < std::min(findings.size(), mostFindings); ++i) {
        const bool isError = findings[i].level == CompositionLint::Level::error;
        const Image badge = findingBadge(static_cast<int>(i) + 1, isError, writer.badgePx());
        writer.write(sentenceOf(findings[i]), &badge);
    }
    if (findings.size() > mostFindings)
        writer.write(
            "and " + std::to_string(findings.size() - mostFindings) + " more, which tavix lint tells");
    if (findings.empty()) writer.write("Lint finds nothing.");
    return writer.finished();
}

}   // namespace tavix::engine
