#include "TavixRecorder/Film/Overlay.h"

#include "TavixRecorder/Film/PointerShape.h"
#include "TavixReel/Recording/SyncFlash.h"
#include "TavixRender/Recording/SyncFrameDetector.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tavix::recorder {

namespace {

struct Tone {
    double level, alpha;   // a grey, 0 to 1
};

// Sizes in points, for a fingertip of about nine millimetres.
constexpr double fingerRadius = 21, rimWidth = 2.5, shadowWidth = 9;
constexpr double growSec = 0.1;

void blend(std::uint8_t* pixel, const Tone& tone, double coverage) {
    const double alpha = tone.alpha * coverage;
    for (int channel = 0; channel < 3; ++channel)
        pixel[channel] = static_cast<std::uint8_t>(
            std::lround(pixel[channel] + (tone.level * 255 - pixel[channel]) * alpha));
}

double smooth(double t) {
    t = std::clamp(t, 0.0, 1.0);
    return t * t * (3 - 2 * t);
}

// Calls for each pixel of a square around a point, with its centre's distance from there.
template <class Paint>
void around(imaging::BitmapView picture, double x, double y, double reach, const Paint& paint) {
    const int left = std::max(0, static_cast<int>(x - reach)), top = std::max(0, static_cast<int>(y - reach));
    const int right = std::min(picture.size.width, static_cast<int>(x + reach) + 2);
    const int bottom = std::min(picture.size.height, static_cast<int>(y + reach) + 2);
    for (int row = top; row < bottom; ++row)
        for (int column = left; column < right; ++column)
            paint(picture.row(row) + column * 4, column + 0.5 - x, row + 0.5 - y);
}

// How much of a pixel lies inside an edge that is this far away; the edge is a pixel wide.
double inside(double distancePx) { return std::clamp(0.5 - distancePx, 0.0, 1.0); }

// Comes down large and faint, lies small and clear, goes up growing and fading.
void drawRing(const TouchRing& ring, double scale, imaging::BitmapView picture) {
    const double come = smooth(ring.sinceDownSec / growSec);
    const double gone = ring.sinceUpSec ? smooth(*ring.sinceUpSec / TouchRing::fadeSec) : 0;
    const double strength = come * (1 - gone);
    if (strength <= 0) return;
    const double radius = fingerRadius * scale * (1.3 - 0.3 * come + 0.35 * gone), rim = rimWidth * scale;
    const double shadow = shadowWidth * scale;
    around(picture, ring.x, ring.y, radius + shadow, [&](std::uint8_t* pixel, double dx, double dy) {
        const double distance = std::hypot(dx, dy) - radius;
        const double halo = distance > 0 ? std::max(0.0, 1 - distance / shadow) : 0;
        blend(pixel, {0, 0.22 * strength}, halo * halo);
        blend(pixel, {0.55, 0.30 * strength}, inside(distance));
        blend(pixel, {1, 0.92 * strength}, inside(distance) * (1 - inside(distance + rim)));
    });
}

void drawPointer(const Pointer& pointer, double scale, imaging::BitmapView picture) {
    const double size = scale * (pointer.isPressed ? 0.9 : 1);
    const double reach = (PointerShape::heightPt + 4) * size;
    around(picture, pointer.x, pointer.y, reach, [&](std::uint8_t* pixel, double dx, double dy) {
        const double shade = PointerShape::distance(dx / size - 1, dy / size - 1.5) * size;
        blend(pixel, {0, 0.3}, std::clamp(0.5 - shade / (3 * size), 0.0, 1.0));
        const double edge = PointerShape::distance(dx / size, dy / size) * size;
        blend(pixel, {1, 1}, inside(edge));
        blend(pixel, {0.08, 1}, inside(edge + 1.4 * size));
    });
}

void fillWithMarkColor(imaging::BitmapView picture, int top, int width) {
    const std::uint8_t color[4] = {static_cast<std::uint8_t>(SyncFlash::blue * 255),
        static_cast<std::uint8_t>(SyncFlash::green * 255), static_cast<std::uint8_t>(SyncFlash::red * 255),
        255};
    for (int row = top; row < picture.size.height; ++row)
        for (int column = 0; column < width; ++column) std::copy_n(color, 4, picture.row(row) + column * 4);
}

}   // namespace

void draw(const Overlay& overlay, double pixelsPerPoint, imaging::BitmapView picture) {
    if (overlay.isFlash) return fillWithMarkColor(picture, 0, picture.size.width);
    if (overlay.ring) drawRing(*overlay.ring, pixelsPerPoint, picture);
    if (overlay.pointer) drawPointer(*overlay.pointer, pixelsPerPoint, picture);
    if (!overlay.isMarked) return;
    const int side = SyncFrameDetector::markSidePx(picture.size.width);
    fillWithMarkColor(picture, std::max(picture.size.height - side, 0), std::min(side, picture.size.width));
}

}   // namespace tavix::recorder
