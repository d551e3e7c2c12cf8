#include "Icons/Icons.h"

#include <cmath>

namespace tavix::icons {

namespace {

constexpr double side = 128;
constexpr int small = 24;   // pixels, and below
const Level white{1, 1, 1};

Ramp plain(const Level& level) { return {{}, {}, {{0, level}}}; }

Ramp dusk() {
    return {{8, 8}, {120, 120},
        {{0, {0.91, 0.463, 0.29}}, {0.55, {0.541, 0.247, 0.42}}, {1, {0.204, 0.125, 0.361}}}};
}

// On the edges of pixels.
double snapped(double at, int sidePx) {
    const double unit = side / sidePx;
    return std::round(at / unit) * unit;
}

// A headline over a play button that hangs: the letter of the name.
void addMark(Drawing& drawing, const Point& middle, double width, int sidePx, const Ramp& fill) {
    const bool isSmall = sidePx <= small;
    const double bar = width * (isSmall ? 0.22 : 0.18), gap = width * (isSmall ? 0.16 : 0.2);
    const double height = bar + gap + width * 0.72;
    const double top = snapped(middle.y - height / 2, sidePx), bottom = middle.y + height / 2;
    const double reach = snapped(width / 2, sidePx);
    drawing.shapes.push_back(roundedBox(
        middle.x - reach, top, middle.x + reach, snapped(top + bar, sidePx), isSmall ? 0 : bar / 2, fill));
    const double round = width * 0.06, half = width * 0.44 - round;
    const double shoulder = top + bar + gap + round;
    drawing.shapes.push_back(
        {{{middle.x - half, shoulder}, {middle.x + half, shoulder}, {middle.x, bottom - round}}, round,
            fill});
}

Drawing application(int sidePx) {
    const double margin = sidePx <= small ? 0 : 8;
    Drawing drawing{side, {roundedBox(margin, margin, side - margin, side - margin, 0.22 * side, dusk())}};
    addMark(drawing, {side / 2, side / 2 + 1}, sidePx <= small ? 72 : 60, sidePx, plain(white));
    return drawing;
}

// A sheet with a corner turned down.
Drawing document(int sidePx) {
    const bool isSmall = sidePx <= small;
    const double left = isSmall ? snapped(18, sidePx) : 22, right = side - left;
    const double top = isSmall ? 0 : 8, bottom = side - top, fold = 30, round = isSmall ? 4 : 8;
    const Level paper{0.965, 0.96, 0.97}, crease{0.80, 0.77, 0.83};
    Drawing drawing{side, {}};
    drawing.shapes.push_back(
        {{{left + round, top + round}, {right - fold, top + round}, {right - round, top + fold},
             {right - round, bottom - round}, {left + round, bottom - round}},
            round, plain(paper)});
    drawing.shapes.push_back(
        {{{right - fold - 2, top + 6}, {right - 6, top + fold + 2}, {right - fold - 2, top + fold + 2}}, 3,
            plain(crease)});
    addMark(drawing, {side / 2, side / 2 + 12}, isSmall ? 60 : 50, sidePx, dusk());
    return drawing;
}

}   // namespace

const std::vector<Icon>& all() {
    static const std::vector<Icon> icons{{"apps", "com.tavix.Editor", application},
        {"mimetypes", "application-vnd.tavix.composition+json", document}};
    return icons;
}

}   // namespace tavix::icons
