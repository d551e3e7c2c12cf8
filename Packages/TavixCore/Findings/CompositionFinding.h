// A problem of a composition, told to an author who mends the document by its path.
#pragma once

#include <optional>
#include <string>

namespace tavix::CompositionLint {

enum class Level { error, warning };   // an error stops rendering; a warning passes

struct Finding {
    Level level = Level::error;
    std::string path;   // keys and [indices] from the root: "scenes[2].layers[0].fromSec"
    std::string message;
    std::optional<std::string> suggestion;
    bool operator==(const Finding&) const = default;
};

}   // namespace tavix::CompositionLint
