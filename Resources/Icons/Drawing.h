// A picture of a few rounded shapes, drawn as pixels of any size or told as SVG: both from the same points.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"

#include <string>
#include <vector>

namespace tavix::icons {

struct Point {
    double x = 0, y = 0;   // down
};

struct Level {
    double red = 0, green = 0, blue = 0;   // 0 to 1, sRGB
};

// From one corner of the square to the other.
struct Ramp {
    struct Stop {
        double at = 0;   // 0 to 1
        Level level;
    };
    Point from, to;
    std::vector<Stop> stops;   // in order; one alone is a plain colour

    Level at(const Point& point) const;
};

// All that lies within `radius` of a convex polygon, whose points turn one way.
struct Rounded {
    std::vector<Point> points;
    double radius = 0;
    Ramp fill;

    // In the units of the points; below 0 inside.
    double distance(const Point& point) const;
};

// A box by its outer edges.
Rounded roundedBox(double left, double top, double right, double bottom, double radius, Ramp fill);

struct Drawing {
    double side = 128;             // the square that it stands in
    std::vector<Rounded> shapes;   // from back to front

    imaging::Bitmap drawn(int sidePx) const;
    std::string svg() const;
};

}   // namespace tavix::icons
