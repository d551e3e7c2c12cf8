// Moments of a film as people name them.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"

#include <cstddef>
#include <optional>
#include <string>

namespace tavix {

// The first scene of that display name. Throws `UsageError`, with the names that there are.
std::size_t sceneNamed(const CompositionSpec& spec, const std::string& name);

// A time on the clock of the film, or of a scene.
struct MomentWish {
    std::optional<double> atSec;
    std::optional<std::string> scene;
    std::optional<double> localSec;   // 0 by default
};
// On the clock of the film. Throws `UsageError` for a wish that names no moment or none of this film.
double momentOf(const CompositionSpec& spec, const MomentWish& wish);

}   // namespace tavix
