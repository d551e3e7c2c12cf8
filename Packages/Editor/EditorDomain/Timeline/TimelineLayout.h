// Where everything of the timeline stands, and what lies under the pointer. Points of the content: x from its
// left end, y from the upper edge of the view, with what scrolls up and down at its place before scrolling.
#pragma once

#include "Editor/EditorDomain/Timeline/TimelineScale.h"
#include "Editor/EditorDomain/Timeline/TimelineScene.h"

#include <cstddef>
#include <optional>

namespace tavix::timeline {

struct Box {
    double x = 0, y = 0, width = 0, height = 0;

    double right() const { return x + width; }
    double bottom() const { return y + height; }
    bool contains(double px, double py) const { return px >= x && px < right() && py >= y && py < bottom(); }
    bool operator==(const Box&) const = default;
};

enum class Part {
    nothing,
    ruler,
    chevron,   // of a band: folds its layers away
    bandBody,
    bandEnd,   // its length
    transition,
    transitionStart,   // the transition's length
    barBody,
    barStart,
    barEnd,
    keyframe,
    keyframeRow,
    cue,
    sound
};
// `index` is that of the band, bar, row or cue; `mark` that of the keyframe in its row.
struct Hit {
    Part part = Part::nothing;
    std::size_t index = 0, mark = 0;
    bool operator==(const Hit&) const = default;
};

struct Layout {
    static constexpr int rulerHeight = 18, sceneBandHeight = 24, rowHeight = 24, rowSpacing = 2, gap = 6;
    static constexpr int headHeight = rulerHeight + sceneBandHeight + 4;   // stays when the rest scrolls
    static constexpr int cueHeight = 14, waveHeight = 40;
    static constexpr double edgePoints = 5, markPoints = 5, leastTransitionPoints = 3;
    static constexpr double transitionOpacity = 0.45;

    Scale scale;

    double laneTop(int row) const { return headHeight + row * (rowHeight + rowSpacing); }
    double soundTop(const Scene& scene) const { return laneTop(scene.rows) + gap; }
    bool hasSound(const Scene& scene) const { return scene.hasMusic || !scene.cues.empty(); }
    double waveTop(const Scene& scene) const;
    double keyframesTop(const Scene& scene) const;
    double keyframeRowTop(const Scene& scene, std::size_t row) const;
    double contentHeight(const Scene& scene) const;
    // Sounds and keyframes: the lower end of a view, while the layers scroll above it. 0 in a view too low
    // for that.
    double footHeight(const Scene& scene, double viewHeight) const;

    Box bandBox(const Band& band) const;
    Box chevronBox(const Band& band) const;
    Box transitionBox(const Scene& scene, std::size_t band) const;   // at the start of the scene that comes
    Box barBox(const Bar& bar) const;
    double cueX(const Cue& cue) const { return scale.xOf(cue.sec); }
    double markX(const Scene& scene, const KeyframeRow::Mark& mark) const;
    // Ticks of keyframes on a bar, from its left edge: never before its first point nor at its last one.
    double tickX(const Bar& bar, double keyframeSec) const;

    // What the pointer would take. Things that are drawn later come first.
    Hit hit(const Scene& scene, double x, double y) const;
    // Bars that a rectangle touches.
    std::vector<std::size_t> barsIn(const Scene& scene, const Box& area) const;
};

}   // namespace tavix::timeline
