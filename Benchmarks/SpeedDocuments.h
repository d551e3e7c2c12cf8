// The documents that speed is measured on: the same scenes at any size and rate.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"

#include <string_view>
#include <vector>

namespace tavix::benchmarks {

struct SpeedDocument {
    std::string_view name;
    CompositionSpec spec;
};

// Two scenes of layers at rest; a dozen layers that all move; layers blurred by changing amounts and glowing.
std::vector<SpeedDocument> speedDocuments(int widthPx, int heightPx, int fps, double seconds);

}   // namespace tavix::benchmarks
