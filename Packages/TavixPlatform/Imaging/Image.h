// A lazy picture. An `Image` is a cheap immutable handle on a node of a graph: building one touches no pixel,
// and an `Evaluator` draws it once, at the end. Copying is sharing; every thread may read.
//
// Coordinates: bottom-left origin, y up. Pixels: premultiplied, sRGB-encoded values, so every blend and
// filter works on encoded values unless it says otherwise. Outside its extent an image is transparent black.
// Extents may be infinite and are rounded outward to whole pixels where an operation crops.
#pragma once

#include "TavixBase/Digest.h"
#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixPlatform/Imaging/Geometry.h"

#include <array>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace tavix {
class Hash;
}

namespace tavix::imaging {

class Node;
using NodeRef = std::shared_ptr<const Node>;

// Straight (not premultiplied), sRGB-encoded, nominally 0 to 1.
struct Color {
    double r = 0, g = 0, b = 0, a = 1;
    bool operator==(const Color&) const = default;
    static constexpr Color white() { return {1, 1, 1, 1}; }
    static constexpr Color black() { return {0, 0, 0, 1}; }
    static constexpr Color clear() { return {0, 0, 0, 0}; }
};

// out = rows * (r, g, b, a), on straight colour. The identity by default.
struct ColorMatrix {
    std::array<float, 4> r{1, 0, 0, 0}, g{0, 1, 0, 0}, b{0, 0, 1, 0}, a{0, 0, 0, 1};
    bool operator==(const ColorMatrix&) const = default;
};

// Geometry of a transition between two pictures: for each destination pixel, where to look in either picture
// and how much of the second to show. Immutable; called from many threads. Positions are pixel centres.
struct WarpSample {
    float fromX, fromY, toX, toY;
    float mix;   // 0 is all `from`, 1 all `to`
};
class Warp {
public:
    virtual ~Warp() = default;
    virtual void describe(Hash& hash) const = 0;   // the kind of warp and all its arguments
    // Fills `count` samples for the pixels (x + i, y), i = 0 ... count - 1.
    virtual void row(int x, int y, int count, WarpSample* out) const = 0;
};

// Where the corners of a picture go.
struct Quad {
    Point topLeft, topRight, bottomLeft, bottomRight;
    bool operator==(const Quad&) const = default;
};

// Of a gradient: what colour it has where, 0 at its start and 1 at its end.
struct ColorStop {
    double location = 0;
    Color color;
};

class Image {
public:
    Image();   // empty: transparent everywhere, with an empty extent

    // Sources.
    static Image solid(const Color& color);   // infinite
    static Image bitmap(
        BitmapRef pixels, Point origin = {});   // `origin`: where its bottom-left corner stands
    // From one colour at p0 to another at p1, along the line between them, eased by 3t² - 2t³; infinite.
    static Image smoothLinearGradient(Point p0, const Color& color0, Point p1, const Color& color1);
    // Through the colours of the stops, which are in order, along the line from p0 to p1, and past its ends
    // the first and the last colour; infinite. Clear without stops.
    static Image linearGradient(Point p0, Point p1, std::vector<ColorStop> stops);
    // An antialiased rounded rectangle; the radius is limited to half the smaller side.
    static Image roundedRectangle(const Rect& rect, double radiusPx, const Color& color);

    Rect extent() const;
    bool isEmpty() const { return extent().isEmpty(); }
    // Equal hashes mean equal pixels: of the structure, in which bitmaps count by identity.
    Digest hash() const;

    // Geometry.
    Image cropped(const Rect& rect) const;
    Image clampedToExtent() const;   // edge pixels continue for ever; an empty image stays empty
    Image transformed(
        const Affine& transform) const;   // bilinear over a prefiltered source, edges antialiased
    Image translated(double dx, double dy) const { return transformed(Affine::translation(dx, dy)); }
    // The corners of the extent onto four points, straight lines staying straight. A picture seen from its
    // edge, or turned inside out, is empty; an infinite one stays as it is.
    Image inPerspective(const Quad& onto) const;
    // Maps the extent onto a rectangle with a wide cubic filter: for scaling once, at its best.
    Image placedInto(const Rect& target) const;
    Image tiled() const;   // repeats the extent over the plane

    // Combination.
    Image over(const Image& background) const;                     // source-over
    static Image stacked(const std::vector<Image>& bottomToTop);   // the same for many, as one flat node
    Image atop(const Image& background) const;      // over it, but only where it is: its alpha stays
    Image adding(const Image& other) const;         // per channel, limited to 1
    Image lightestWith(const Image& other) const;   // per channel, the larger of the two
    // Screened with a light, which shows beyond the picture too: light that never clips.
    Image litBy(const Image& light, double intensity) const;
    // Where the mask's luminance (premultiplied, so clear is 0) is 1 this image shows, where 0 the
    // background.
    Image blendedWithMask(const Image& background, const Image& mask) const;
    // `from` and `to` looked up through a warp; both are continued past `extent` by their edge pixels.
    static Image warped(
        const Image& from, const Image& to, std::shared_ptr<const Warp> warp, const Rect& extent);

    // Colour, per pixel, on straight colour.
    Image withColorMatrix(const ColorMatrix& matrix) const;
    Image withOpacity(double alpha) const;   // multiplies alpha, and so the premultiplied colour
    Image withColorControls(double brightness, double contrast, double saturation) const;
    Image withMonochrome(const Color& color, double intensity) const;
    Image withFalseColor(const Color& dark, const Color& light) const;   // by luminance
    // Darkens away from the middle of a rectangle, which is finite.
    Image withVignette(double intensity, double radius, const Rect& about) const;

    // Neighbourhood.
    Image gaussianBlurred(
        double sigmaPx) const;   // sigma is the standard deviation; grows the extent by 3 sigma
    // The mean along a line of that length to both sides; the angle is counter-clockwise from the x axis.
    // Grows the extent by the line.
    Image motionBlurred(double radiusPx, double angleRad) const;
    Image bloomed(double intensity, double sigmaPx) const;   // lit by its own blur
    Image pixellated(Point center, double scalePx) const;    // squares of that side, averaged

    // For the evaluator and for node families.
    explicit Image(NodeRef node) : node_(std::move(node)) {}
    const NodeRef& node() const { return node_; }

private:
    NodeRef node_;
};

}   // namespace tavix::imaging
