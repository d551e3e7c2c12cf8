// Strengths of the warping transitions; what is absent takes the style's own.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <optional>
#include <type_traits>

namespace tavix {

struct TransitionParams {
    std::optional<double> amplitude;   // 5 to 120
    std::optional<double> speed;       // 5 to 120
    std::optional<double> rotation;    // 0 to 30
    std::optional<double> scale;       // 1 to 2.5

    TransitionParams() = default;
    // Moves each into its range, as reading a document does.
    TransitionParams(std::optional<double> rawAmplitude, std::optional<double> rawSpeed,
        std::optional<double> rawRotation, std::optional<double> rawScale);
    bool operator==(const TransitionParams&) const = default;
};

const Fields<TransitionParams>& fieldsOf(std::type_identity<TransitionParams>);

}   // namespace tavix
