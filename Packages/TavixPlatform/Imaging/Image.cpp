#include "TavixPlatform/Imaging/Image.h"

#include "TavixPlatform/Imaging/Nodes/Nodes.h"

#include <algorithm>
#include <cmath>

namespace tavix::imaging {

namespace {

void put(float (&out)[4], const Color& c) {
    const double values[4] = {c.r, c.g, c.b, c.a};
    for (int i = 0; i < 4; ++i) out[i] = float(values[i]);
}

}   // namespace

Image::Image() : node_(emptyNode()) {}

Image Image::solid(const Color& color) { return Image(makeSolid(color)); }

Image Image::bitmap(BitmapRef pixels, Point origin) {
    if (!pixels || pixels->isEmpty()) return {};
    const Rect all{0, 0, double(pixels->size().width), double(pixels->size().height)};
    return Image(makeBitmap(std::move(pixels), 0, 0, all)).translated(origin.x, origin.y);
}

Image Image::smoothLinearGradient(Point p0, const Color& color0, Point p1, const Color& color1) {
    return Image(makeSmoothGradient(p0, color0, p1, color1));
}

Image Image::linearGradient(Point p0, Point p1, std::vector<ColorStop> stops) {
    return Image(makeLinearGradient(p0, p1, std::move(stops)));
}

Image Image::roundedRectangle(const Rect& rect, double radiusPx, const Color& color) {
    return Image(makeRoundedRectangle(rect, radiusPx, color));
}

Image Image::stacked(const std::vector<Image>& bottomToTop) {
    std::vector<NodeRef> layers;
    for (const Image& image : bottomToTop) layers.push_back(image.node());
    return Image(makeStack(std::move(layers)));
}

Image Image::warped(
    const Image& from, const Image& to, std::shared_ptr<const Warp> warp, const Rect& extent) {
    return Image(makeWarped(from.node_, to.node_, std::move(warp), extent));
}

Rect Image::extent() const { return node_->extent(); }
Digest Image::hash() const { return node_->hash(); }

Image Image::cropped(const Rect& rect) const { return Image(makeCropped(node_, rect)); }
Image Image::clampedToExtent() const { return Image(makeContinued(node_)); }
Image Image::transformed(const Affine& transform) const { return Image(makeTransformed(node_, transform)); }
Image Image::inPerspective(const Quad& onto) const { return Image(makePerspective(node_, onto)); }
Image Image::placedInto(const Rect& target) const { return Image(makePlaced(node_, target)); }
Image Image::tiled() const { return Image(makeTiled(node_)); }

Image Image::over(const Image& background) const { return Image(makeStack({background.node_, node_})); }
Image Image::atop(const Image& background) const { return Image(makeAtop(node_, background.node_)); }
Image Image::adding(const Image& other) const { return Image(makeJoined(node_, other.node_, Joining::sum)); }
Image Image::lightestWith(const Image& other) const {
    return Image(makeJoined(node_, other.node_, Joining::lightest));
}
Image Image::litBy(const Image& light, double intensity) const {
    return Image(makeLit(node_, light.node_, intensity));
}
Image Image::blendedWithMask(const Image& background, const Image& mask) const {
    return Image(makeMasked(node_, background.node_, mask.node_));
}

Image Image::withColorMatrix(const ColorMatrix& matrix) const {
    MatrixRows rows{};
    std::copy(matrix.r.begin(), matrix.r.end(), rows.r);
    std::copy(matrix.g.begin(), matrix.g.end(), rows.g);
    std::copy(matrix.b.begin(), matrix.b.end(), rows.b);
    std::copy(matrix.a.begin(), matrix.a.end(), rows.a);
    return matrix == ColorMatrix{} ? *this : Image(makeColored(node_, rows));
}

Image Image::withOpacity(double alpha) const { return Image(makeFaded(node_, alpha)); }

Image Image::withColorControls(double brightness, double contrast, double saturation) const {
    if (brightness == 0 && contrast == 1 && saturation == 1) return *this;
    return Image(makeColored(node_, ControlValues{float(brightness), float(contrast), float(saturation)}));
}

Image Image::withMonochrome(const Color& color, double intensity) const {
    return Image(
        makeColored(node_, Monochrome{{float(color.r), float(color.g), float(color.b)}, float(intensity)}));
}

Image Image::withFalseColor(const Color& dark, const Color& light) const {
    ColorPair colors{};
    put(colors.dark, dark);
    put(colors.light, light);
    return Image(makeColored(node_, colors));
}

Image Image::withVignette(double intensity, double radius, const Rect& about) const {
    if (about.isEmpty() || about.isInfinite() || intensity == 0) return *this;
    return Image(makeColored(node_, Vignette{about.center(), std::hypot(about.width, about.height) / 2,
                                        float(intensity), float(radius)}));
}

Image Image::gaussianBlurred(double sigmaPx) const { return Image(makeBlurred(node_, sigmaPx)); }
Image Image::motionBlurred(double radiusPx, double angleRad) const {
    return Image(makeMotionBlurred(node_, radiusPx, angleRad));
}
Image Image::bloomed(double intensity, double sigmaPx) const {
    return litBy(gaussianBlurred(sigmaPx), intensity);
}
Image Image::pixellated(Point center, double scalePx) const {
    return Image(makePixellated(node_, center, scalePx));
}

}   // namespace tavix::imaging
