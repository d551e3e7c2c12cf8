// What a plot is drawn with: bars, words and curves, in pixels from the top left.
#pragma once

#include "TavixPlatform/Imaging/Image.h"

#include <string>
#include <vector>

namespace tavix::engine {

struct PlotBox {
    double x, y, width, height;
    double maxX() const { return x + width; }
    double maxY() const { return y + height; }
};

class PlotCanvas {
public:
    PlotCanvas(imaging::Size size, const imaging::Color& ground);

    void fill(const PlotBox& box, double radiusPx, const imaging::Color& color);
    // The first baseline's left end stands at (x, y); what is wider than the room ends in an ellipsis. Gives
    // the width that was used.
    double text(const std::string& words, double x, double y, double sizePx, const imaging::Color& color,
        double roomPx = 1e5);
    // Values 0 (at the bottom) to 1, evenly over the width of the box.
    void curve(const PlotBox& box, const std::vector<double>& values, const imaging::Color& color);

    imaging::Bitmap draw() const;

private:
    void place(const imaging::Image& image) { layers_.push_back(image); }

    imaging::Size size_;
    std::vector<imaging::Image> layers_;
};

}   // namespace tavix::engine
