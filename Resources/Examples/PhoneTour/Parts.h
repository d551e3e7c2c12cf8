// What the screens of the imaginary app share: its colours, its bars, and small pictures drawn by formulas.
#pragma once

#include "Canvas.h"

#include <functional>
#include <span>
#include <string>

namespace tavix::phonetour {

inline const Color ink = hex(0x14181F), softInk = hex(0x6B7280), paleInk = hex(0xA3AAB5),
                   paper = hex(0xF3F4F7), card = hex(0xFFFFFF), hairline = hex(0xE3E6EB),
                   forest = hex(0x0E9F6E), lime = hex(0x7BD88F), ember = hex(0xF2603C), sky = hex(0x3B82F6),
                   dusk = hex(0x6D5BD0);

void statusBar(Canvas& canvas);
// The bar that people swipe up from.
void homeIndicator(Canvas& canvas);
void tabBar(Canvas& canvas);

// A ring that is full at 1, with round ends, clockwise from the top.
void ring(Canvas& canvas, double x, double y, double radius, double thickness, double share,
    const Color& from, const Color& to);
// A curve over a frame, and what lies under it. `heightAt` gives 0 to 1 for 0 to 1 along the frame; only the
// part up to `drawn` is there.
void curve(Canvas& canvas, const Frame& frame, const std::function<double(double)>& heightAt,
    double thickness, const Color& line, const Color& under, double drawn);
// A line through points, with round joints.
struct Spot {
    double x, y;
};
void path(Canvas& canvas, std::span<const Spot> spots, double thickness, const Color& color);
// A disc where a finger touches the glass.
void touch(Canvas& canvas, double x, double y, double strength);

}   // namespace tavix::phonetour
