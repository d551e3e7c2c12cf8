#include "Editor/EditorDomain/Timeline/TimelineScale.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace tavix::timeline {

namespace {

constexpr double shortestSec = 0.001, leastPps = 1;
constexpr double leastRoomPoints = 6;
constexpr int beatsInBar = 4;

}   // namespace

Scale Scale::of(double outputDurationSec, double widthPoints, double zoom) {
    const double total = outputDurationSec > shortestSec ? outputDurationSec : shortestSec;
    return {total, widthPoints, std::clamp(zoom, leastZoom, mostZoom)};
}

double Scale::pps() const { return std::max((widthPoints - 2 * insetPoints) / totalSec, leastPps) * zoom; }

double Scale::clampedScroll(double scrollX) const {
    return std::clamp(scrollX, 0.0, std::max(contentWidth() - widthPoints, 0.0));
}

View zoomedAt(const Scale& scale, double scrollX, double pointerX, double factor) {
    const double sec = scale.secOf(scrollX + pointerX);
    Scale zoomed = scale;
    zoomed.zoom = std::clamp(scale.zoom * factor, leastZoom, mostZoom);
    return {zoomed.zoom, zoomed.clampedScroll(zoomed.xOf(sec) - pointerX)};
}

double scrolledToShow(const Scale& scale, double scrollX, double sec, double marginPoints) {
    const double x = scale.xOf(sec), margin = std::min(marginPoints, scale.widthPoints / 2);
    if (x - margin < scrollX) scrollX = x - margin;
    if (x + margin > scrollX + scale.widthPoints) scrollX = x + margin - scale.widthPoints;
    return scale.clampedScroll(scrollX);
}

double rulerStepSec(double totalSec) {
    return totalSec < 5 ? 0.5 : totalSec < 15 ? 1 : totalSec < 40 ? 5 : 10;
}

std::vector<RulerTick> rulerTicks(double totalSec) {
    const double step = rulerStepSec(totalSec);
    std::vector<RulerTick> ticks;
    for (int i = 0; i <= static_cast<int>(std::floor(totalSec / step)); ++i) {
        const double sec = i * step;
        char label[32];
        std::snprintf(label, sizeof label, sec == std::floor(sec) ? "%.0f" : "%.1f", sec);
        ticks.push_back({sec, label});
    }
    return ticks;
}

std::vector<BeatTick> beatTicks(const BeatGrid& grid, const Scale& scale, double fromX, double toX) {
    const double beat = scale.pps() * 60 / std::max(grid.bpm, 1.0);
    std::vector<BeatTick> ticks;
    if (beatsInBar * beat < leastRoomPoints) return ticks;
    const double firstX = scale.xOf(grid.offsetSec);
    for (auto i = static_cast<long>(std::ceil((fromX - firstX) / beat)); firstX + double(i) * beat <= toX;
         ++i) {
        const bool isStrong = i % beatsInBar == 0;
        if (isStrong || beat >= leastRoomPoints) ticks.push_back({firstX + double(i) * beat, isStrong});
    }
    return ticks;
}

std::string timecode(double sec) {
    const auto hundredths = static_cast<long>(std::lround(std::max(sec, 0.0) * 100));
    char text[40];
    std::snprintf(
        text, sizeof text, "%02ld:%02ld.%02ld", hundredths / 6000, hundredths / 100 % 60, hundredths % 100);
    return text;
}

}   // namespace tavix::timeline
