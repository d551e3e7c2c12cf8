// One word of a family of presets: a column of text for people, and everything for machines.
#pragma once

#include "TavixCore/Support/Json.h"

#include <string>

namespace tavix::engine {

struct Preset {
    std::string id, about;
    JsonObject details;
};

}   // namespace tavix::engine
