#include "Editor/EditorDomain/Timeline/TimelineLayout.h"

#include <algorithm>
#include <cmath>

namespace tavix::timeline {

namespace {

constexpr double chevronPoints = 18, leastBandForChevron = 44;
constexpr double cueReachPoints = 5, mostFootShare = 0.67;

// Edges leave at least half of a short bar to its body.
double edgeOf(const Box& box) { return std::min(Layout::edgePoints, box.width / 4); }

Hit hitBand(const Layout& layout, const Scene& scene, double x, double y) {
    for (std::size_t i = 0; i + 1 < scene.bands.size(); ++i) {
        if (scene.bands[i].transitionSec <= 0) continue;
        const Box box = layout.transitionBox(scene, i);
        if (x >= box.x - 2 && x < box.x + std::max(edgeOf(box), 3.0) && y < box.bottom() + 4)
            return {Part::transitionStart, i};
        if (box.contains(x, y)) return {Part::transition, i};
    }
    for (std::size_t i = scene.bands.size(); i-- > 0;) {
        const Box box = layout.bandBox(scene.bands[i]);
        if (!box.contains(x, y)) continue;
        if (x >= box.right() - edgeOf(box)) return {Part::bandEnd, i};
        return {layout.chevronBox(scene.bands[i]).contains(x, y) ? Part::chevron : Part::bandBody, i};
    }
    return {};
}

Hit hitBar(const Layout& layout, const Scene& scene, double x, double y) {
    for (std::size_t i = scene.bars.size(); i-- > 0;) {
        const Box box = layout.barBox(scene.bars[i]);
        if (!box.contains(x, y)) continue;
        const double edge = edgeOf(box);
        const bool isStart = x < box.x + edge, isEnd = x >= box.right() - edge;
        return {isStart ? Part::barStart : isEnd ? Part::barEnd : Part::barBody, i};
    }
    return {};
}

Hit hitKeyframes(const Layout& layout, const Scene& scene, double x, double y) {
    for (std::size_t row = 0; row < scene.keyframeRows.size(); ++row) {
        const double top = layout.keyframeRowTop(scene, row);
        if (y < top || y >= top + Layout::rowHeight) continue;
        Hit hit{Part::keyframeRow, row};
        double nearest = Layout::markPoints + 1;
        for (std::size_t i = 0; i < scene.keyframeRows[row].marks.size(); ++i)
            if (const double away = std::abs(layout.markX(scene, scene.keyframeRows[row].marks[i]) - x);
                away < nearest) {
                nearest = away;
                hit = {Part::keyframe, row, i};
            }
        return hit;
    }
    return {};
}

Hit hitSound(const Layout& layout, const Scene& scene, double x, double y) {
    if (!layout.hasSound(scene) || y < layout.soundTop(scene)) return {};
    if (y < layout.waveTop(scene))
        for (std::size_t i = scene.cues.size(); i-- > 0;)
            if (std::abs(layout.cueX(scene.cues[i]) - x) <= cueReachPoints) return {Part::cue, i};
    return y < layout.keyframesTop(scene) - Layout::gap ? Hit{Part::sound} : Hit{};
}

}   // namespace

double Layout::waveTop(const Scene& scene) const {
    return soundTop(scene) + (scene.cues.empty() ? 0 : cueHeight);
}

double Layout::keyframesTop(const Scene& scene) const {
    if (!hasSound(scene)) return soundTop(scene);
    return waveTop(scene) + (scene.hasMusic ? waveHeight : 0) + gap;
}

double Layout::keyframeRowTop(const Scene& scene, std::size_t row) const {
    return keyframesTop(scene) + double(row) * (rowHeight + rowSpacing);
}

double Layout::contentHeight(const Scene& scene) const {
    return keyframeRowTop(scene, scene.keyframeRows.size()) + gap;
}

double Layout::footHeight(const Scene& scene, double viewHeight) const {
    const double foot = contentHeight(scene) - soundTop(scene);
    return foot > gap && foot <= (viewHeight - headHeight) * mostFootShare ? foot : 0;
}

Box Layout::bandBox(const Band& band) const {
    return {scale.xOf(band.startSec), rulerHeight, band.durationSec() * scale.pps(), sceneBandHeight};
}

Box Layout::chevronBox(const Band& band) const {
    const Box box = bandBox(band);
    const double covered = band.incomingSec * scale.pps();   // by the transition's mark
    const double room = box.width - covered - band.transitionSec * scale.pps();
    return {box.x + covered, box.y, room < leastBandForChevron ? 0 : chevronPoints, box.height};
}

Box Layout::transitionBox(const Scene& scene, std::size_t band) const {
    if (band + 1 >= scene.bands.size()) return {};
    const double width = std::max(scene.bands[band].transitionSec * scale.pps(), leastTransitionPoints);
    return {scale.xOf(scene.bands[band + 1].startSec), rulerHeight + 4, width, sceneBandHeight - 8};
}

Box Layout::barBox(const Bar& bar) const {
    return {scale.xOf(bar.startSec), laneTop(bar.row) + 1, (bar.endSec - bar.startSec) * scale.pps(),
        rowHeight - 2};
}

double Layout::markX(const Scene& scene, const KeyframeRow::Mark& mark) const {
    return scale.xOf(scene.layerStartSec + mark.sec);
}

double Layout::tickX(const Bar& bar, double keyframeSec) const {
    const double width = (bar.endSec - bar.startSec) * scale.pps();
    return std::min(std::max(keyframeSec * scale.pps(), 1.0), width - 1);
}

Hit Layout::hit(const Scene& scene, double x, double y) const {
    if (y < rulerHeight) return {Part::ruler};
    if (y < headHeight) return hitBand(*this, scene, x, y);
    for (const auto& look : {hitKeyframes, hitBar, hitSound})
        if (const Hit found = look(*this, scene, x, y); found.part != Part::nothing) return found;
    return {};
}

std::vector<std::size_t> Layout::barsIn(const Scene& scene, const Box& area) const {
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < scene.bars.size(); ++i) {
        const Box box = barBox(scene.bars[i]);
        if (box.x < area.right() && area.x < box.right() && box.y < area.bottom() && area.y < box.bottom())
            found.push_back(i);
    }
    return found;
}

}   // namespace tavix::timeline
