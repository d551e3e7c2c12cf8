#include "TavixCore/Time/CompositionResolution.h"

#include <algorithm>

namespace tavix {

bool hasErrors(std::span<const CompositionLint::Finding> findings) {
    return std::ranges::any_of(
        findings, [](const auto& finding) { return finding.level == CompositionLint::Level::error; });
}

}   // namespace tavix
