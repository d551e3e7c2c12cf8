// The scene clock: where each scene stands on the global time line. Scene transitions overlap: the incoming
// scene begins before the outgoing one has ended, and the overlap shortens the whole.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace tavix {

struct CompositionTimeline {
    struct ActiveScene {
        std::size_t index = 0;
        double localSeconds = 0;   // runs on through an overlap
        bool operator==(const ActiveScene&) const = default;
    };
    struct Sample {
        ActiveScene outgoing;
        std::optional<ActiveScene> incoming;   // while a transition runs
        double progress = 0;                   // of the transition, 0 to 1
        bool operator==(const Sample&) const = default;
    };

    explicit CompositionTimeline(const CompositionSpec& spec);

    std::vector<double> startSec;   // global start of each scene
    double totalSec = 0;
    std::vector<double> transitionDurations;   // overlap of each scene with the next; the last one's is 0

    // What is on screen at a time, which is moved into 0 to `totalSec`; nothing without scenes.
    std::optional<Sample> sample(double atSec) const;
    // Nothing for a scene that there is not.
    std::optional<double> globalTime(std::size_t sceneIndex, double localSeconds) const;
};

// The moment that stands for the whole film, as in thumbnails: the middle of what its longest scene has for
// itself, between its transitions. In seconds from the start; 0 without scenes.
double tellingSec(const CompositionSpec& spec);

}   // namespace tavix
