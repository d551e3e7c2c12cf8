#include "Canvas.h"

#include "TavixPlatform/Text/FontBook.h"
#include "TavixPlatform/Text/LineDrawing.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <tuple>

namespace tavix::phonetour {

namespace {

struct DrawnLine {
    Image image;   // its baseline begins at the origin
    double widthPx = 0;
};

DrawnLine drawnLine(const std::string& words, const TextStyle& style, double pxPerPt) {
    const text::Font font = text::FontBook().interfaceFont(style.sizePt).withWeightTrait(style.weight);
    const auto lines = text::wrappedLines({words, font, style.color}, 1e5);
    const text::TypesetLine& line = lines.front();
    const text::LinePart part{line.range(), {0, line.widthPx()}};
    const imaging::PixelRegion ink = text::inkRegion(line, {0, 0}, part, pxPerPt);
    if (ink.isEmpty()) return {Image(), line.widthPx() * pxPerPt};
    auto pixels = std::make_shared<imaging::Bitmap>(text::drawn(line, {0, 0}, part, pxPerPt, ink));
    pixels->indexCoverage();
    return {Image::bitmap(pixels, {double(ink.x0), double(ink.y0)}), line.widthPx() * pxPerPt};
}

// Lines are set once; most of a screen stays the same from frame to frame.
const DrawnLine& keptLine(const std::string& words, const TextStyle& style, double pxPerPt) {
    using Key = std::tuple<std::string, double, double, double, double, double, double>;
    static std::map<Key, DrawnLine> kept;
    const Color& c = style.color;
    const Key key{words, style.sizePt, style.weight, c.r, c.g, c.b, c.a};
    const auto found = kept.find(key);
    if (found != kept.end()) return found->second;
    return kept.emplace(key, drawnLine(words, style, pxPerPt)).first->second;
}

}   // namespace

Color hex(unsigned rgb, double alpha) {
    return {(rgb >> 16 & 255) / 255.0, (rgb >> 8 & 255) / 255.0, (rgb & 255) / 255.0, alpha};
}

Color mixed(const Color& from, const Color& to, double share) {
    const auto channel = [&](double a, double b) { return a + (b - a) * share; };
    return {channel(from.r, to.r), channel(from.g, to.g), channel(from.b, to.b), channel(from.a, to.a)};
}

double covered(double distancePt, const Screen& screen) {
    return std::clamp(0.5 - distancePt * screen.pxPerPt, 0.0, 1.0);
}

double roundedDistance(const Frame& frame, double radiusPt, double x, double y) {
    const double qx = std::abs(x - frame.x - frame.width / 2) - frame.width / 2 + radiusPt;
    const double qy = std::abs(y - frame.y - frame.height / 2) - frame.height / 2 + radiusPt;
    return std::hypot(std::max(qx, 0.0), std::max(qy, 0.0)) + std::min(std::max(qx, qy), 0.0) - radiusPt;
}

imaging::Rect Canvas::pixels(const Frame& frame) const {
    const double s = screen_.pxPerPt;
    return {frame.x * s, screen_.heightPx() - frame.maxY() * s, frame.width * s, frame.height * s};
}

void Canvas::fill(const Frame& frame, double radiusPt, const Color& color) {
    if (frame.width <= 0 || frame.height <= 0) return;
    place(Image::roundedRectangle(pixels(frame), radiusPt * screen_.pxPerPt, color));
}

void Canvas::fillGradient(const Frame& frame, double radiusPt, const Color& top, const Color& bottom) {
    const imaging::Rect rect = pixels(frame);
    const Image ramp = Image::smoothLinearGradient({0, rect.maxY()}, top, {0, rect.y}, bottom).cropped(rect);
    place(ramp.blendedWithMask(
        Image(), Image::roundedRectangle(rect, radiusPt * screen_.pxPerPt, Color::white())));
}

void Canvas::shadow(const Frame& frame, double radiusPt, double softnessPt, double opacity) {
    const imaging::Rect rect = pixels({frame.x, frame.y + softnessPt * 0.6, frame.width, frame.height});
    place(Image::roundedRectangle(rect, radiusPt * screen_.pxPerPt, hex(0x101828, opacity))
              .gaussianBlurred(softnessPt * screen_.pxPerPt));
}

void Canvas::text(const std::string& words, double x, double y, const TextStyle& style) {
    const DrawnLine& line = keptLine(words, style, screen_.pxPerPt);
    const double shift = style.align == Align::left ? 0 : style.align == Align::middle ? 0.5 : 1;
    place(line.image.translated(std::round(x * screen_.pxPerPt - shift * line.widthPx),
        std::round(screen_.heightPx() - y * screen_.pxPerPt)));
}

void Canvas::paint(const Frame& frame, const std::function<Color(double x, double y)>& colorAt) {
    const imaging::PixelRegion r = imaging::pixelsCovering(pixels(frame));
    if (r.isEmpty()) return;
    auto bitmap = std::make_shared<imaging::Bitmap>(imaging::Size{r.width(), r.height()});
    for (int row = 0; row < r.height(); ++row)
        for (int column = 0; column < r.width(); ++column) {
            const double x = (r.x0 + column + 0.5) / screen_.pxPerPt;
            const double y = (screen_.heightPx() - (r.y1 - row - 0.5)) / screen_.pxPerPt;
            const Color c = colorAt(x, y);
            const double levels[] = {c.b * c.a, c.g * c.a, c.r * c.a, c.a};
            for (int i = 0; i < 4; ++i)
                bitmap->view().row(row)[column * 4 + i] =
                    std::uint8_t(std::lround(std::clamp(levels[i], 0.0, c.a) * 255));
        }
    bitmap->indexCoverage();
    place(Image::bitmap(bitmap, {double(r.x0), double(r.y0)}));
}

void Canvas::group(
    double dx, double dy, double opacity, const Frame& clip, const std::function<void(Canvas&)>& draw) {
    Canvas inner(screen_);
    draw(inner);
    const double s = screen_.pxPerPt;
    const Image moved =
        inner.image().translated(std::round(dx * s), -std::round(dy * s)).cropped(pixels(clip));
    place(opacity < 1 ? moved.withOpacity(opacity) : moved);
}

}   // namespace tavix::phonetour
