// What a drag along the timeline makes of the document in which it began. Each move starts from there again,
// so nothing adds up on the way, and a drag that comes back changes nothing.
#pragma once

#include "Editor/EditorDomain/Timeline/TimelineLayout.h"
#include "TavixLive/Operations/EditState.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tavix::timeline {

// A press becomes a drag when it has gone further than this, across.
inline constexpr double dragThresholdPoints = 3;

struct Drag {
    enum class Kind { moveLayers, layerStart, layerEnd, sceneEnd, transition, keyframes, cue };
    struct MarkPlace {
        std::size_t row = 0, mark = 0;
        auto operator<=>(const MarkPlace&) const = default;
    };
    struct Pull {
        double toSec = 0;   // the pointer, on the film's clock
        double playheadSec = 0, pps = 1;
        bool isSnapping = true;
        bool stretches = false;        // of a scene's length: all that is in the scene goes with it
        std::optional<int> row = {};   // under the pointer, of one layer that moves
    };

    Kind kind = Kind::moveLayers;
    EditState before;
    LayerPlace place;   // of layers and keyframes; its scene of scenes and transitions
    std::size_t cue = 0;
    std::optional<std::size_t> track;   // of keyframes; absent: those of the device
    std::vector<double> marksSec;   // of the keyframes, since the layer's start; the one that is held first
    double grabbedSec = 0;          // from the start of what is dragged to the pointer

    // What a press on that part would drag; nothing where there is nothing to drag. The layer that is pressed
    // is selected in `state` already.
    static std::optional<Drag> of(const EditState& state, const Scene& scene, const Hit& hit,
        double pressedSec, const std::vector<MarkPlace>& marks);

    EditState at(const Pull& pull) const;
    std::string stepName() const;   // of the undo
};

// To another scene, on its clock, behind all but those in the rows above.
void moveToScene(EditState& state, const LayerPlace& place, std::size_t scene, double toFromSec, int row);

// The shortest that a scene may be: its transitions and its layers with a length of their own must fit.
double minimumSceneDurationSec(const CompositionSpec& spec, std::size_t scene);
// The scene's length, with all later scenes following; layers keep their times.
void setSceneDuration(EditState& state, std::size_t scene, double toSec);
// Within the scenes on both sides.
void setTransitionDuration(EditState& state, std::size_t scene, double toSec);

}   // namespace tavix::timeline
