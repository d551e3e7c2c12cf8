#include "Engine/Reel/PlotCanvas.h"

#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Text/FontBook.h"
#include "TavixPlatform/Text/LineDrawing.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace tavix::engine {

namespace {

using imaging::Color;
using imaging::Image;

std::uint8_t level(double value) { return std::uint8_t(std::lround(std::clamp(value, 0.0, 1.0) * 255)); }

}   // namespace

PlotCanvas::PlotCanvas(imaging::Size size, const Color& ground)
    : size_(size), layers_{Image::solid(ground).cropped({0, 0, double(size.width), double(size.height)})} {}

void PlotCanvas::fill(const PlotBox& box, double radiusPx, const Color& color) {
    place(
        Image::roundedRectangle({box.x, size_.height - box.maxY(), box.width, box.height}, radiusPx, color));
}

double PlotCanvas::text(
    const std::string& words, double x, double y, double sizePx, const Color& color, double roomPx) {
    const text::Font font = text::FontBook().interfaceFont(sizePx);
    const auto lines = text::wrappedLines({words, font, color}, 1e5);
    const text::TypesetLine& line = lines.front();
    if (line.widthPx() > roomPx) {
        // The longest beginning that leaves room for the ellipsis, in whole characters of UTF-8.
        std::size_t length = words.size() * std::size_t(roomPx) / std::size_t(line.widthPx() + 1);
        length -= std::min<std::size_t>(length, 1);
        while (length > 0 && (words[length] & 0xC0) == 0x80) --length;
        return length > 1 ? text(words.substr(0, length) + "…", x, y, sizePx, color) : 0;
    }
    const text::LinePart part{line.range(), {0, line.widthPx()}};
    const imaging::PixelRegion ink = text::inkRegion(line, {0, 0}, part, 1);
    if (ink.isEmpty()) return line.widthPx();
    auto pixels = std::make_shared<imaging::Bitmap>(text::drawn(line, {0, 0}, part, 1, ink));
    pixels->indexCoverage();
    place(Image::bitmap(pixels, {std::round(x) + ink.x0, std::round(size_.height - y) + ink.y0}));
    return line.widthPx();
}

void PlotCanvas::curve(const PlotBox& box, const std::vector<double>& values, const Color& color) {
    constexpr double halfPenPx = 1.1, air = 2;
    if (values.size() < 2) return;
    const imaging::Size size{int(std::ceil(box.width)), int(std::ceil(box.height + 2 * air))};
    auto bitmap = std::make_shared<imaging::Bitmap>(size);
    const auto heightAt = [&](double column) {
        const double at = std::clamp(column / box.width, 0.0, 1.0) * double(values.size() - 1);
        const auto i = std::min(std::size_t(at), values.size() - 2);
        const double value = values[i] + (values[i + 1] - values[i]) * (at - double(i));
        return air + (1 - std::clamp(value, 0.0, 1.0)) * box.height;
    };
    for (int x = 0; x < size.width; ++x) {
        const double a = heightAt(x), b = heightAt(x + 1);
        const double middle = (a + b) / 2, reach = std::abs(b - a) / 2 + halfPenPx;
        const int first = std::max(0, int(middle - reach - 1)),
                  last = std::min(size.height - 1, int(middle + reach + 1));
        for (int y = first; y <= last; ++y) {
            const double coverage = color.a * std::clamp(reach + 0.5 - std::abs(y + 0.5 - middle), 0.0, 1.0);
            std::uint8_t* pixel = bitmap->view().row(y) + 4 * x;
            pixel[0] = level(color.b * coverage);
            pixel[1] = level(color.g * coverage);
            pixel[2] = level(color.r * coverage);
            pixel[3] = level(coverage);
        }
    }
    bitmap->indexCoverage();
    place(Image::bitmap(bitmap, {std::round(box.x), std::round(size_.height - box.maxY() - air)}));
}

imaging::Bitmap PlotCanvas::draw() const {
    imaging::Evaluator evaluator;
    return evaluator.draw(Image::stacked(layers_), {0, 0, size_.width, size_.height});
}

}   // namespace tavix::engine
