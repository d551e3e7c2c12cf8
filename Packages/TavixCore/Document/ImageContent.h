// A picture layer.
#pragma once

#include "TavixCore/Support/Tables.h"
#include "TavixCore/Values/NormalizedRect.h"

#include <optional>
#include <string>
#include <type_traits>

namespace tavix {

struct ImageContent {
    std::string path;
    std::optional<double> heightFraction;   // of the canvas height; absent: the picture's own pixels
    double cornerRadiusFraction = 0;
    std::optional<NormalizedRect> sourceRect;   // the part of the picture that is shown
    bool operator==(const ImageContent&) const = default;
};

const Fields<ImageContent>& fieldsOf(std::type_identity<ImageContent>);

}   // namespace tavix
