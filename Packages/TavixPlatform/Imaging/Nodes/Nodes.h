// The node families of the image graph, one maker per operation of `Image`. Inside the library only.
#pragma once

#include "TavixPlatform/Imaging/Node.h"
#include "TavixPlatform/Imaging/RenderContext.h"

#include <memory>
#include <variant>
#include <vector>

namespace tavix::imaging {

// Sources.cpp
const NodeRef& emptyNode();
NodeRef makeSolid(const Color& color);
// A bitmap whose bottom-left corner stands at (x0, y0). The extent may be larger than its pixels.
NodeRef makeBitmap(BitmapRef bitmap, int x0, int y0, const Rect& extent);
NodeRef makeSmoothGradient(Point p0, const Color& color0, Point p1, const Color& color1);
NodeRef makeRoundedRectangle(const Rect& rect, double radiusPx, const Color& color);
const Picture* asBitmap(const Node& node);   // null when it is none
// LinearGradient.cpp
NodeRef makeLinearGradient(Point p0, Point p1, std::vector<ColorStop> stops);

// Bounds.cpp
NodeRef makeCropped(const NodeRef& input, const Rect& rect);
NodeRef makeContinued(const NodeRef& input);   // edge pixels go on for ever
NodeRef makeTiled(const NodeRef& input);
// What is cut; a node that is no cutting is itself.
const NodeRef& insideCropping(const NodeRef& node);
// What a node shows, looked at past its continuation, and whether that has a border that goes on.
struct Behind {
    const NodeRef& node;
    bool isContinued;
};
Behind behind(const NodeRef& node);

// Transform.cpp
NodeRef makeTransformed(const NodeRef& input, const Affine& transform);
// Perspective.cpp
NodeRef makePerspective(const NodeRef& input, const Quad& onto);
// Resample.cpp
NodeRef makePlaced(const NodeRef& input, const Rect& target);

// Stack.cpp
NodeRef makeStack(std::vector<NodeRef> bottomToTop);
// Combine.cpp
enum class Joining : std::uint64_t { sum, lightest };   // channel by channel
NodeRef makeJoined(const NodeRef& a, const NodeRef& b, Joining joining);
NodeRef makeAtop(const NodeRef& front, const NodeRef& back);
NodeRef makeMasked(const NodeRef& front, const NodeRef& back, const NodeRef& mask);
// Warped.cpp
NodeRef makeWarped(
    const NodeRef& from, const NodeRef& to, std::shared_ptr<const Warp> warp, const Rect& extent);

// Color.cpp
struct Vignette {
    Point center;
    double halfDiagonalPx;
    float intensity, radius;
};
struct Monochrome {
    float color[3], intensity;
};
using ColorStep = std::variant<MatrixRows, ControlValues, Monochrome, ColorPair, Vignette>;
NodeRef makeColored(const NodeRef& input, const ColorStep& step);
NodeRef makeFaded(const NodeRef& input, double alpha);

// Lit.cpp
NodeRef makeLit(const NodeRef& input, const NodeRef& light, double intensity);
// Blur.cpp, MotionBlur.cpp, Pixellate.cpp
NodeRef makeBlurred(const NodeRef& input, double sigmaPx);
NodeRef makeMotionBlurred(const NodeRef& input, double radiusPx, double angleRad);
NodeRef makePixellated(const NodeRef& input, Point center, double scalePx);

// The kinds, as the first field of a node's structure.
enum class NodeKind : std::uint64_t {
    empty = 1,
    solid,
    bitmap,
    smoothGradient,
    linearGradient,
    roundedRectangle,
    cropped,
    continued,
    tiled,
    transformed,
    placed,
    stack,
    layersOfStack,
    joined,
    atop,
    masked,
    warped,
    colored,
    faded,
    blurred,
    lit,
    pixellated,
    motionBlurred,
    perspective
};
inline Hash hashOf(NodeKind kind) { return Hash().kind(kind); }

// A straight colour as a premultiplied 8-bit pixel.
std::uint32_t pixelOf(const Color& color);

}   // namespace tavix::imaging
