#include "Engine/Sheet/SheetPainter.h"

#include "Engine/Sheet/StrokeDigits.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <utility>

namespace tavix::engine {

namespace {

using imaging::Color;
using imaging::Image;

constexpr Color ground{0.085, 0.087, 0.094, 1};
constexpr Color quietInk{0.62, 0.63, 0.66, 1}, brightInk{0.95, 0.95, 0.96, 1};
constexpr Color sceneMark{0.36, 0.78, 0.71, 1}, transitionMark{0.96, 0.68, 0.32, 1};
constexpr double smallestDigitsPx = 7, largestDigitsPx = 26;

std::string clock(double atSec) {
    const auto hundredths = std::llround(atSec * 100);
    char text[64];
    std::snprintf(
        text, sizeof text, "%lld:%02lld.%02lld", hundredths / 6000, hundredths / 100 % 60, hundredths % 100);
    return text;
}

}   // namespace

SheetPainter::SheetPainter(const SheetLayout& layout, imaging::Evaluator& evaluator)
    : layout_(layout), evaluator_(evaluator), pictures_{Image::solid(ground)} {}

void SheetPainter::put(const Image& frame, imaging::Size frameSize, double atSec, SheetMoment::Kind kind) {
    const imaging::PixelRegion whole{0, 0, frameSize.width, frameSize.height};
    const imaging::PixelRegion cell = layout_.cellAt(count_++);
    const Image drawn = Image::bitmap(std::make_shared<const imaging::Bitmap>(evaluator_.draw(frame, whole)));
    const double radiusPx = 0.03 * std::min(layout_.cell.width, layout_.cell.height);
    const Image corners = Image::roundedRectangle(cell.rect(), radiusPx, Color::white());
    pictures_.push_back(
        evaluator_.baked(drawn.placedInto(cell.rect()).blendedWithMask(Image(), corners), cell));
    pictures_.push_back(label(cell, atSec, kind));
}

// Under its picture at the left; a dot tells scene starts and transitions from plain steps.
Image SheetPainter::label(const imaging::PixelRegion& cell, double atSec, SheetMoment::Kind kind) const {
    const double digitsPx = std::clamp(0.42 * layout_.labelPx, smallestDigitsPx, largestDigitsPx);
    const bool isStep = kind == SheetMoment::Kind::step;
    const double dotPx = 0.62 * digitsPx, indentPx = isStep ? 0 : dotPx + 0.45 * digitsPx;
    const double bottom = std::round(cell.y0 - 0.3 * layout_.labelPx - digitsPx);
    const Image time = strokeDigits(clock(atSec), digitsPx, isStep ? quietInk : brightInk)
                           .translated(std::round(cell.x0 + indentPx), bottom);
    if (isStep) return time;
    const imaging::Rect dot{double(cell.x0), bottom + (digitsPx - dotPx) / 2, dotPx, dotPx};
    const Color mark = kind == SheetMoment::Kind::sceneStart ? sceneMark : transitionMark;
    return time.over(Image::roundedRectangle(dot, dotPx / 2, mark));
}

// Badges of one layer stand beside each other on its box, those of a scene in the corner of its picture.
void SheetPainter::mark(const std::vector<FindingMark>& marks, imaging::Size frameSize) {
    const imaging::Rect cell = layout_.cellAt(count_ - 1).rect();
    const double scale = cell.width / frameSize.width;
    const double badgePx = std::round(std::clamp(0.06 * std::max(cell.width, cell.height), 11.0, 26.0));
    std::map<std::pair<double, double>, double> taken;   // where badges stand, and how far to the right
    for (const FindingMark& mark : marks) {
        imaging::Rect box = cell;
        if (mark.box) {
            const imaging::Rect placed{cell.x + mark.box->x * scale, cell.y + mark.box->y * scale,
                mark.box->width * scale, mark.box->height * scale};
            box = imaging::intersection(placed, cell);
            if (box.isEmpty()) continue;
            outline(box, findingColor(mark.isError));
        }
        const Image badge = findingBadge(mark.number, mark.isError, badgePx);
        double& offset = taken[{box.x, box.maxY()}];
        const double most = cell.maxX() - badge.extent().width;
        pictures_.push_back(badge.translated(
            std::round(std::min(box.x + offset, most)), std::round(std::max(box.maxY() - badgePx, cell.y))));
        offset += badge.extent().width + 2;
    }
}

void SheetPainter::outline(const imaging::Rect& box, const Color& color) {
    constexpr double penPx = 2;
    const imaging::Rect outer = imaging::pixelsCovering(box).rect();
    const auto line = [&](double x0, double y0, double x1, double y1) {
        pictures_.push_back(Image::solid(color).cropped(imaging::Rect::fromEdges(x0, y0, x1, y1)));
    };
    line(outer.x, outer.y, outer.maxX(), outer.y + penPx);
    line(outer.x, outer.maxY() - penPx, outer.maxX(), outer.maxY());
    line(outer.x, outer.y, outer.x + penPx, outer.maxY());
    line(outer.maxX() - penPx, outer.y, outer.maxX(), outer.maxY());
}

void SheetPainter::add(const SheetLegend& legend) {
    pictures_.push_back(legend.picture);
    legendPx_ = legend.heightPx;
}

imaging::Bitmap SheetPainter::draw() {
    return evaluator_.draw(
        Image::stacked(pictures_), {0, -legendPx_, layout_.sheet.width, layout_.sheet.height});
}

}   // namespace tavix::engine
