#include "Screens.h"

#include "Parts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>

namespace tavix::phonetour {

namespace {

struct Row {
    const char *name, *about, *length;
    Color from, to;
    double phase;   // of its little chart
};
const std::array<Row, 9>& rows() {
    static const std::array<Row, 9> all{{
        {"Harbour steps", "Tuesday · 48 min", "6.2 km", hex(0x60A5FA), hex(0x2563EB), 0.4},
        {"Fern valley", "Monday · 1 h 12", "9.8 km", hex(0x6EE7B7), hex(0x059669), 1.9},
        {"Old mill and back", "Sunday · 36 min", "4.4 km", hex(0xFBBF77), hex(0xEA7317), 3.1},
        {"Lighthouse", "Saturday · 2 h 05", "14.9 km", hex(0xA5B4FC), hex(0x6366F1), 4.3},
        {"Ridge loop", "Friday · 1 h 38", "12.4 km", hex(0xFDA4AF), hex(0xE5484D), 5.2},
        {"Quarry lake", "Wednesday · 55 min", "7.1 km", hex(0x67E8F9), hex(0x0891B2), 0.9},
        {"Vineyard path", "Tuesday · 1 h 20", "10.3 km", hex(0xD8B4FE), hex(0x9333EA), 2.4},
        {"Two bridges", "Monday · 42 min", "5.6 km", hex(0x93C5FD), hex(0x1D4ED8), 3.7},
        {"Chapel hill", "Sunday · 1 h 02", "8.0 km", hex(0xBEF264), hex(0x4D7C0F), 5.8},
    }};
    return all;
}
constexpr double firstRowY = 442, rowHeight = 76;
constexpr std::size_t openedRow = 4;

double wave(double t, double phase) {
    return 0.5 + 0.26 * std::sin(5.1 * t + phase) + 0.16 * std::sin(11.7 * t + 2 * phase) +
           0.05 * std::sin(27 * t + phase);
}

std::string fixed(double value, int digits) {
    char text[32];
    std::snprintf(text, sizeof text, "%.*f", digits, value);
    return text;
}

void row(Canvas& canvas, const Row& entry, double y, double pressed, double width) {
    const Frame frame{20, y, width - 40, rowHeight - 10};
    const double shrink = 3 * pressed;
    const Frame drawn{
        frame.x + shrink, frame.y + shrink / 3, frame.width - 2 * shrink, frame.height - shrink / 1.5};
    canvas.fill(drawn, 18, mixed(card, hex(0xE9ECF1), pressed));
    const Frame tile{drawn.x + 12, drawn.y + 11, 44, 44};
    canvas.fillGradient(tile, 13, entry.from, entry.to);
    const double cx = tile.x + 22, cy = tile.y + 22;
    const std::array<Spot, 5> peak{
        {{cx - 12, cy + 8}, {cx - 4.5, cy - 5}, {cx - 0.5, cy + 1}, {cx + 4.5, cy - 9}, {cx + 12, cy + 8}}};
    path(canvas, peak, 2.4, hex(0xFFFFFF, 0.95));
    canvas.text(entry.name, drawn.x + 70, drawn.y + 29, {16.5, 0.3, ink});
    canvas.text(entry.about, drawn.x + 70, drawn.y + 49, {13.5, 0, softInk});
    canvas.text(entry.length, drawn.maxX() - 14, drawn.y + 29, {15.5, 0.3, ink, Align::right});
    curve(
        canvas, {drawn.maxX() - 74, drawn.y + 37, 60, 15}, [&](double t) { return wave(t, entry.phase); },
        1.8, entry.to, hex(0xFFFFFF, 0), 1);
}

void summary(Canvas& canvas, double width) {
    const Frame frame{20, 170, width - 40, 224};
    canvas.shadow(frame.inset(4), 24, 12, 0.10);
    canvas.fill(frame, 26, card);
    ring(canvas, frame.x + 92, frame.y + 94, 56, 17, 0.73, lime, forest);
    canvas.text("73%", frame.x + 92, frame.y + 99, {27, 0.4, ink, Align::middle});
    canvas.text("of 50 km", frame.x + 92, frame.y + 119, {12.5, 0.1, softInk, Align::middle});
    const struct {
        const char *value, *unit, *label;
        Color color;
    } facts[] = {{"36.4", "km", "walked", forest}, {"6 h 19", "", "on the way", sky},
        {"1 280", "m", "climbed", ember}};
    for (int i = 0; i < 3; ++i) {
        const double y = frame.y + 50 + i * 56;
        canvas.fill({frame.x + 190, y - 17, 4, 40}, 2, facts[i].color);
        canvas.text(facts[i].value, frame.x + 206, y + 1, {21, 0.4, ink});
        const double shift = i == 0 ? 52 : 62;
        canvas.text(facts[i].unit, frame.x + 206 + shift, y + 1, {14, 0.2, softInk});
        canvas.text(facts[i].label, frame.x + 206, y + 20, {13.5, 0, softInk});
    }
    // The days of the week, as bars.
    constexpr std::array<double, 7> days{0.35, 0.8, 0.5, 0.22, 1, 0.62, 0.1};
    for (int i = 0; i < 7; ++i)
        canvas.fill({frame.x + 32 + i * 17.5, frame.maxY() - 18 - 22 * days[std::size_t(i)], 10,
                        22 * days[std::size_t(i)]},
            3, i == 4 ? forest : hex(0xCDEBDD));
}

// Climb and pulse along the walk, 0 to 1.
double climb(double t) {
    const double hill =
        std::exp(-18 * (t - 0.42) * (t - 0.42)) + 0.62 * std::exp(-70 * (t - 0.76) * (t - 0.76));
    return std::clamp(0.10 + 0.72 * hill + 0.035 * std::sin(21 * t) + 0.018 * std::sin(47 * t + 1), 0.0, 1.0);
}
double pulse(double t) {
    return std::clamp(
        0.30 + 0.38 * (1 - std::exp(-6 * t)) + 0.16 * std::sin(8.2 * t + 0.6) + 0.05 * std::sin(33 * t), 0.0,
        1.0);
}

void route(Canvas& canvas, const Frame& frame, double drawn) {
    constexpr double radius = 24;
    canvas.fillGradient(frame, radius, hex(0xDDF3E4), hex(0xBFE3D6));
    // Contour lines of a hill.
    canvas.paint(frame, [&](double x, double y) {
        const double u = (x - frame.x) / frame.width, v = (y - frame.y) / frame.height;
        const double height = 5.2 * std::exp(-7 * (u - 0.62) * (u - 0.62) - 5 * (v - 0.4) * (v - 0.4)) +
                              2.6 * std::exp(-16 * (u - 0.2) * (u - 0.2) - 9 * (v - 0.75) * (v - 0.75)) +
                              0.5 * std::sin(5 * u + 3 * v);
        const double phase = std::abs(height - std::round(height));
        const double inside = covered(roundedDistance(frame, radius, x, y), canvas.screen());
        return hex(0x4F9D7C, 0.30 * inside * std::clamp(1 - phase * 9, 0.0, 1.0));
    });
    std::vector<Spot> spots;
    constexpr int steps = 90;
    for (int i = 0; i <= int(steps * drawn); ++i) {
        const double a = 2 * std::numbers::pi * i / steps;
        const double r = 1 + 0.22 * std::sin(3 * a + 0.5) + 0.09 * std::sin(7 * a);
        spots.push_back({frame.x + frame.width * (0.5 + 0.33 * r * std::cos(a - 2.2)),
            frame.y + frame.height * (0.5 + 0.31 * r * std::sin(a - 2.2))});
    }
    if (spots.size() < 2) return;
    path(canvas, spots, 7, hex(0xFFFFFF, 0.9));
    path(canvas, spots, 4, ember);
    const Spot head = spots.back();
    canvas.fill({head.x - 8, head.y - 8, 16, 16}, 8, hex(0xFFFFFF));
    canvas.fill({head.x - 5, head.y - 5, 10, 10}, 5, ember);
}

void facts(Canvas& canvas, double y, double drawn) {
    const double eased = 1 - (1 - drawn) * (1 - drawn) * (1 - drawn);
    const int minutes = int(std::lround(98 * eased));
    const struct {
        std::string value;
        const char* label;
    } entries[] = {{fixed(12.4 * eased, 1) + " km", "Distance"},
        {std::to_string(minutes / 60) + ":" + (minutes % 60 < 10 ? "0" : "") + std::to_string(minutes % 60),
            "Hours"},
        {fixed(std::round(486 * eased), 0) + " m", "Climb"}};
    for (int i = 0; i < 3; ++i) {
        const double x = 20 + i * 123;
        canvas.fill({x, y, 116, 70}, 18, card);
        canvas.text(entries[i].value, x + 14, y + 32, {20, 0.4, ink});
        canvas.text(entries[i].label, x + 14, y + 53, {13, 0.05, softInk});
    }
}

void chart(Canvas& canvas, const WalkState& state, double width) {
    const Frame frame{20, 448, width - 40, 316};
    canvas.fill(frame, 24, card);
    const Frame segments{frame.x + 14, 456, frame.width - 28, 36};
    canvas.fill(segments, 12, hex(0xEEF0F4));
    const double third = segments.width / 3;
    const double chosen = 1 + state.toPulse;
    canvas.shadow({segments.x + third * chosen + 5, segments.y + 5, third - 10, 26}, 9, 3, 0.16);
    canvas.fill({segments.x + third * chosen + 3, segments.y + 3, third - 6, 30}, 10, card);
    constexpr std::array labels{"Pace", "Climb", "Pulse"};
    for (int i = 0; i < 3; ++i)
        canvas.text(labels[std::size_t(i)], segments.x + third * (i + 0.5), segments.y + 23,
            {14, std::abs(chosen - i) < 0.5 ? 0.32 : 0.15, std::abs(chosen - i) < 0.5 ? ink : softInk,
                Align::middle});

    const auto heightAt = [&](double t) { return climb(t) + (pulse(t) - climb(t)) * state.toPulse; };
    // The headline makes room for what a finger reads.
    canvas.group(0, 0, 1 - state.scrubStrength, frame, [&](Canvas& headline) {
        headline.text(state.toPulse < 0.5 ? "High point" : "Average", chartLeft, 526, {13, 0.05, softInk});
        headline.text(state.toPulse < 0.5 ? "612 m" : "134 bpm", chartLeft, 552, {23, 0.4, ink});
    });
    const Frame plot{chartLeft, 572, chartWidth, 156};
    for (int i = 0; i < 4; ++i) canvas.fill({plot.x, plot.y + i * 52 - 0.4, plot.width, 0.8}, 0, hairline);
    const Color line = mixed(forest, ember, state.toPulse);
    curve(canvas, plot, heightAt, 3, line, {line.r, line.g, line.b, 0.34}, state.drawn);
    constexpr std::array hours{"8:10", "8:40", "9:10", "9:40"};
    for (int i = 0; i < 4; ++i)
        canvas.text(hours[std::size_t(i)], plot.x + plot.width * i / 3.0, 750,
            {11.5, 0.05, paleInk,
                i == 0   ? Align::left
                : i == 3 ? Align::right
                         : Align::middle});
    if (state.scrubbed < 0 || state.scrubStrength <= 0) return;

    const double x = plot.x + plot.width * state.scrubbed;
    const double y = plot.maxY() - plot.height * heightAt(state.scrubbed);
    canvas.group(0, 0, state.scrubStrength, {0, 0, width, 900}, [&](Canvas& reading) {
        reading.fill({x - 0.8, plot.y - 6, 1.6, plot.height + 6}, 0, hex(0x14181F, 0.35));
        reading.fill({x - 8, y - 8, 16, 16}, 8, hex(0xFFFFFF));
        reading.fill({x - 5.5, y - 5.5, 11, 11}, 5.5, line);
        const double left = std::clamp(x - 46, plot.x, plot.maxX() - 92);
        reading.fill({left, plot.y - 48, 92, 36}, 12, ink);
        reading.text(fixed(88 + 74 * heightAt(state.scrubbed), 0) + " bpm", left + 46, plot.y - 24,
            {15.5, 0.32, card, Align::middle});
    });
}

}   // namespace

void journal(Canvas& canvas, const JournalState& state) {
    const double width = canvas.screen().widthPt, height = canvas.screen().heightPt;
    canvas.fill({0, 0, width, height}, 0, paper);
    canvas.group(0, -state.scrolledPt, 1, {0, 0, width, height}, [&](Canvas& list) {
        list.text("Journal", 22, 112, {33, 0.42, ink});
        list.text("Week 41, four walks so far", 22, 140, {15, 0.05, softInk});
        summary(list, width);
        list.text("Recent walks", 22, 428, {18, 0.36, ink});
        for (std::size_t i = 0; i < rows().size(); ++i) {
            const double y = firstRowY + double(i) * rowHeight;
            if (y - state.scrolledPt < -rowHeight || y - state.scrolledPt > height) continue;
            row(list, rows()[i], y, i == openedRow ? state.pressed : 0, width);
        }
    });
    // What scrolls away goes under a bar.
    const double bar = std::clamp((state.scrolledPt - 40) / 50, 0.0, 1.0);
    canvas.fill({0, 0, width, 96}, 0, hex(0xF7F8FA, 0.96 * bar));
    canvas.fill({0, 95.4, width, 0.6}, 0, hex(0xD9DDE3, bar));
    if (bar > 0.05) canvas.text("Journal", width / 2, 82, {17, 0.32, hex(0x14181F, bar), Align::middle});
    statusBar(canvas);
    tabBar(canvas);
}

void walk(Canvas& canvas, const WalkState& state) {
    const double width = canvas.screen().widthPt, height = canvas.screen().heightPt;
    canvas.fill({0, 0, width, height}, 0, paper);
    const std::array<Spot, 3> chevron{{{30, 70}, {21.5, 78.5}, {30, 87}}};
    path(canvas, chevron, 2.8, forest);
    canvas.text("Journal", 38, 84.5, {16.5, 0.1, forest});
    canvas.text("Ridge loop", width / 2, 84.5, {17, 0.34, ink, Align::middle});
    route(canvas, {20, 110, width - 40, 240}, state.drawn);
    facts(canvas, 364, state.drawn);
    chart(canvas, state, width);
    statusBar(canvas);
    homeIndicator(canvas);
}

}   // namespace tavix::phonetour
