// One scene: its length, its layers from back to front, and how it gives way to the next.
#pragma once

#include "TavixCore/Document/CompositionLayer.h"
#include "TavixCore/Document/SceneTransition.h"
#include "TavixCore/Support/Tables.h"
#include "TavixCore/Theme/BackgroundFill.h"

#include <cstddef>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace tavix {

struct CompositionScene {
    std::optional<std::string> id;
    double durationSec = 0;
    std::optional<double> durationBeats;        // symbolic: resolved into `durationSec`, then cleared
    std::optional<BackgroundFill> background;   // absent: the composition's
    std::vector<CompositionLayer> layers;
    std::optional<SceneTransition> transition;   // into the next scene; absent: a hard cut

    // The id, or "scene-" with the index from 0.
    std::string displayName(std::size_t index) const { return id ? *id : "scene-" + std::to_string(index); }
    bool operator==(const CompositionScene&) const = default;
};

const Fields<CompositionScene>& fieldsOf(std::type_identity<CompositionScene>);

}   // namespace tavix
