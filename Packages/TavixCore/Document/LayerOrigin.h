// Where a layer of a document that was read came from. Reading turns a formation into several layers and a
// named motion into keyframes; messages speak of what the author wrote. It holds until the layers are
// rearranged.
#pragma once

#include <cstddef>
#include <optional>

namespace tavix {

struct LayerOrigin {
    enum class Baked { nothing, motion, formation };   // what of it the author only named

    std::optional<std::size_t>
        writtenAs;   // its place among the layers of its scene; absent: it was never read
    Baked baked = Baked::nothing;

    // Where a value comes from is no part of what it is.
    bool operator==(const LayerOrigin&) const { return true; }
};

}   // namespace tavix
