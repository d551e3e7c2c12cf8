// A small canvas for drawing app screens: points from the top left, drawn sharp at whole pixels.
#pragma once

#include "TavixPlatform/Imaging/Image.h"

#include <cmath>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::phonetour {

using imaging::Color;
using imaging::Image;

Color hex(unsigned rgb, double alpha = 1);
Color mixed(const Color& from, const Color& to, double share);

// In points, y down.
struct Frame {
    double x = 0, y = 0, width = 0, height = 0;
    double maxX() const { return x + width; }
    double maxY() const { return y + height; }
    Frame inset(double by) const { return {x + by, y + by, width - 2 * by, height - 2 * by}; }
};

enum class Align { left, middle, right };

struct TextStyle {
    double sizePt = 17;
    double weight = 0;   // a trait: 0 regular, 0.4 bold
    Color color{};
    Align align = Align::left;
};

struct Screen {
    double widthPt, heightPt, pxPerPt;
    int widthPx() const { return int(std::lround(widthPt * pxPerPt)); }
    int heightPx() const { return int(std::lround(heightPt * pxPerPt)); }
};

class Canvas {
public:
    explicit Canvas(const Screen& screen) : screen_(screen) {}

    void fill(const Frame& frame, double radiusPt, const Color& color);
    // From the top to the bottom of the frame.
    void fillGradient(const Frame& frame, double radiusPt, const Color& top, const Color& bottom);
    // Soft, and a little below what casts it.
    void shadow(const Frame& frame, double radiusPt, double softnessPt, double opacity);
    // The baseline's left end, middle or right end stands at (x, y).
    void text(const std::string& words, double x, double y, const TextStyle& style);
    // Pixels of a frame: the colour, with as much alpha as the function says at a place of it, in points.
    void paint(const Frame& frame, const std::function<Color(double x, double y)>& colorAt);
    void place(const Image& image) { layers_.push_back(image); }

    // What `draw` draws, moved, faded and cut to a frame.
    void group(
        double dx, double dy, double opacity, const Frame& clip, const std::function<void(Canvas&)>& draw);

    Image image() const { return Image::stacked(layers_); }
    const Screen& screen() const { return screen_; }

private:
    imaging::Rect pixels(const Frame& frame) const;

    Screen screen_;
    std::vector<Image> layers_;
};

// The share of a pixel of the canvas that is covered where its middle lies that far outside a shape.
double covered(double distancePt, const Screen& screen);
// How far outside a frame with round corners a place lies; negative inside.
double roundedDistance(const Frame& frame, double radiusPt, double x, double y);

}   // namespace tavix::phonetour
