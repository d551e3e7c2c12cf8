// What the timeline shows of a document, as plain values. Times are seconds of the film unless said
// otherwise.
#pragma once

#include "TavixCore/Animation/TimingCurve.h"
#include "TavixCore/Document/BeatGrid.h"
#include "TavixLive/Operations/EditState.h"
#include "TavixLive/Operations/LayerOperations.h"

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tavix::timeline {

struct Band {
    double startSec = 0, endSec = 0;
    double transitionSec = 0;   // its overlap with the next one; 0: a cut
    double incomingSec = 0;     // that with the one before
    std::string name, length;   // as in "4.0s"
    std::size_t layerCount = 0;
    bool isSelected = false, isCollapsed = false;

    double durationSec() const { return endSec - startSec; }
    bool operator==(const Band&) const = default;
};

struct Bar {
    LayerPlace place;
    int row = 0;   // 0 is the uppermost, in front of all of its scene
    ContentKind kind = ContentKind::text;
    double startSec = 0, endSec = 0;
    std::string label;
    std::vector<double> keyframesSec;   // since the bar's start
    bool isSelected = false;
    bool isOpen = false;   // runs to the end of its scene, wherever that is
    bool isLabelledByKind = false;

    bool operator==(const Bar&) const = default;
};

struct Cue {
    double sec = 0;
    std::string name;
    bool operator==(const Cue&) const = default;
};

// The keyframes of one property of the selected layer, or of its device as a whole.
struct KeyframeRow {
    std::optional<std::size_t> track;   // absent: those of the device
    std::string label;
    struct Mark {
        double sec = 0;   // since the layer's start
        std::optional<TimingCurve> ease;
        double value = 0;   // 0 to 1 within what the row's values span
        bool operator==(const Mark&) const = default;
    };
    std::vector<Mark> marks;
    bool operator==(const KeyframeRow&) const = default;
};

struct Scene {
    double totalSec = 0;
    std::optional<BeatGrid> beats;
    int rows = 0;
    std::vector<Band> bands;
    std::vector<Bar> bars;   // from the backmost to the one that is drawn last
    std::vector<Cue> cues;
    bool hasMusic = false;
    double musicStartsAtSec = 0;   // where in its file the film begins
    std::string musicName;
    std::optional<LayerPlace> layer;   // whose keyframes are shown
    double layerStartSec = 0;
    std::vector<KeyframeRow> keyframeRows;
    bool operator==(const Scene&) const = default;
};

using Collapsed = std::set<std::size_t>;   // scenes whose layers are folded away

Scene sceneOf(const EditState& state, const Collapsed& collapsed);

// What stands on a layer's bar: its name, or else what it shows.
std::string barLabel(const CompositionLayer& layer);
// Whether that is a word for what it is, and not its author's.
bool isLabelledByKind(const CompositionLayer& layer);
// As in "Intro · text layer 2"; empty when nothing is selected.
std::string selectionSummary(const EditState& state);
// Every time at which something of the layer has a keyframe, in rising order, since the layer's start.
std::vector<double> keyframeTimes(const CompositionLayer& layer);
std::string propertyLabel(AnimProperty property);

}   // namespace tavix::timeline
