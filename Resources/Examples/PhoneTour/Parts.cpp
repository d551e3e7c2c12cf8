#include "Parts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace tavix::phonetour {

namespace {

double distanceToSegment(double x, double y, const Spot& a, const Spot& b) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double length2 = std::max(dx * dx + dy * dy, 1e-9);
    const double t = std::clamp(((x - a.x) * dx + (y - a.y) * dy) / length2, 0.0, 1.0);
    return std::hypot(x - a.x - t * dx, y - a.y - t * dy);
}

Color faded(const Color& color, double share) { return {color.r, color.g, color.b, color.a * share}; }

}   // namespace

void statusBar(Canvas& canvas) {
    canvas.text("9:41", 68, 38, {17, 0.32, ink, Align::middle});
    const double right = canvas.screen().widthPt - 34;
    // Bars of the network, and the battery.
    for (int i = 0; i < 4; ++i)
        canvas.fill({right - 68 + i * 4.7, 36 - (4 + i * 2.4), 3.2, 4 + i * 2.4}, 1, ink);
    canvas.fill({right - 26, 25, 23, 11.5}, 3.6, hex(0x14181F, 0.35));
    canvas.fill({right - 25, 26, 21, 9.5}, 2.8, paper);
    canvas.fill({right - 24.2, 26.8, 17, 7.9}, 2.1, ink);
    canvas.fill({right - 2.2, 28.7, 1.5, 4.2}, 0.7, hex(0x14181F, 0.4));
    for (int i = 0; i < 3; ++i) {
        const double outer = 4.4 + 4.0 * i;
        canvas.paint({right - 47, 23, 16, 14}, [&](double x, double y) {
            const double dx = x - (right - 39), dy = y - 36;
            const double r = std::hypot(dx, dy);
            const double band = i == 0 ? r - 2.3 : std::abs(r - outer + 1.2) - 1.1;
            const double wedge = (std::abs(dx) + dy) * std::numbers::sqrt2 / 2;
            return faded(ink, covered(std::max(band, i == 0 ? band : wedge), canvas.screen()));
        });
    }
}

void homeIndicator(Canvas& canvas) {
    const Screen& s = canvas.screen();
    canvas.fill({s.widthPt / 2 - 70, s.heightPt - 13, 140, 5}, 2.5, ink);
}

void tabBar(Canvas& canvas) {
    const Screen& s = canvas.screen();
    const double top = s.heightPt - 84;
    canvas.fill({0, top, s.widthPt, 84}, 0, hex(0xFCFCFD, 0.97));
    canvas.fill({0, top, s.widthPt, 0.6}, 0, hairline);
    constexpr std::array labels{"Trails", "Journal", "Plan", "You"};
    for (int i = 0; i < 4; ++i) {
        const double x = s.widthPt * (i + 0.5) / 4;
        const Color color = i == 1 ? forest : paleInk;
        if (i == 0) {
            const std::array<Spot, 5> peak{{{x - 11, top + 30}, {x - 4, top + 17}, {x, top + 23},
                {x + 4, top + 15}, {x + 11, top + 30}}};
            path(canvas, peak, 2.2, color);
        } else if (i == 1) {
            for (int bar = 0; bar < 3; ++bar)
                canvas.fill({x - 10 + bar * 7.4, top + 30 - (7 + bar * 5), 5.2, 7.0 + bar * 5}, 1.8, color);
        } else if (i == 2) {
            canvas.fill({x - 10, top + 13, 20, 18}, 4, color);
            canvas.fill({x - 7.6, top + 19.4, 15.2, 9.2}, 2, hex(0xFCFCFD));
        } else {
            canvas.fill({x - 4.8, top + 12, 9.6, 9.6}, 4.8, color);
            canvas.fill({x - 9, top + 23.4, 18, 8.6}, 4.3, color);
        }
        canvas.text(labels[std::size_t(i)], x, top + 46, {10.5, 0.23, color, Align::middle});
    }
    homeIndicator(canvas);
}

void ring(Canvas& canvas, double x, double y, double radius, double thickness, double share,
    const Color& from, const Color& to) {
    const double outer = radius + thickness;
    const Spot end{x + radius * std::sin(2 * std::numbers::pi * share),
        y - radius * std::cos(2 * std::numbers::pi * share)};
    canvas.paint({x - outer, y - outer, 2 * outer, 2 * outer}, [&](double px, double py) {
        const double dx = px - x, dy = py - y, r = std::hypot(dx, dy);
        const double band = std::abs(r - radius) - thickness / 2;
        double turn = std::atan2(dx, -dy) / (2 * std::numbers::pi);
        if (turn < 0) turn += 1;
        const double caps = std::min(std::hypot(dx, dy + radius), std::hypot(px - end.x, py - end.y));
        const double arc = turn <= share ? band : std::max(caps - thickness / 2, 0.0);
        const double there = covered(share > 0 ? std::min(arc, caps - thickness / 2) : 1, canvas.screen());
        // The round end beyond the share has its colour, the one before the start that of the start.
        const double along = turn <= share ? turn / share : turn < (1 + share) / 2 ? 1 : 0;
        const Color track = hex(0xE8EBEF, covered(band, canvas.screen()));
        return there > 0 ? mixed(track, mixed(from, to, along), there) : track;
    });
}

void curve(Canvas& canvas, const Frame& frame, const std::function<double(double)>& heightAt,
    double thickness, const Color& line, const Color& under, double drawn) {
    const auto heightOver = [&](double x) {
        return frame.maxY() - frame.height * heightAt(std::clamp((x - frame.x) / frame.width, 0.0, 1.0));
    };
    const double end = frame.x + frame.width * drawn;
    canvas.paint(
        {frame.x, frame.y - thickness, frame.width, frame.height + 2 * thickness}, [&](double x, double y) {
            const double there = std::clamp((end - x) * canvas.screen().pxPerPt + 0.5, 0.0, 1.0);
            if (there <= 0) return Color::clear();
            const double top = heightOver(x), slope = (heightOver(x + 0.5) - heightOver(x - 0.5));
            const double away = std::abs(y - top) / std::sqrt(1 + slope * slope);
            const double onLine = covered(away - thickness / 2, canvas.screen());
            const double depth = std::clamp((y - top) / std::max(frame.maxY() - top, 1.0), 0.0, 1.0);
            const Color fill = faded(under, y > top ? (1 - depth) * (1 - depth) : 0);
            return faded(mixed(fill, line, onLine), there);
        });
}

void path(Canvas& canvas, std::span<const Spot> spots, double thickness, const Color& color) {
    double left = 1e9, top = 1e9, right = -1e9, bottom = -1e9;
    for (const Spot& spot : spots) {
        left = std::min(left, spot.x);
        right = std::max(right, spot.x);
        top = std::min(top, spot.y);
        bottom = std::max(bottom, spot.y);
    }
    canvas.paint(
        {left - thickness, top - thickness, right - left + 2 * thickness, bottom - top + 2 * thickness},
        [&](double x, double y) {
            double away = 1e9;
            for (std::size_t i = 1; i < spots.size(); ++i)
                away = std::min(away, distanceToSegment(x, y, spots[i - 1], spots[i]));
            return faded(color, covered(away - thickness / 2, canvas.screen()));
        });
}

void touch(Canvas& canvas, double x, double y, double strength) {
    if (strength <= 0) return;
    const double radius = 19 + 7 * (1 - strength);
    canvas.fill({x - radius, y - radius, 2 * radius, 2 * radius}, radius, hex(0x1F2937, 0.22 * strength));
    canvas.fill({x - radius + 2, y - radius + 2, 2 * radius - 4, 2 * radius - 4}, radius - 2,
        hex(0xFFFFFF, 0.28 * strength));
}

}   // namespace tavix::phonetour
