// A rectangle in the points of a recorded device screen: pixels divided by the display scale.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <type_traits>

namespace tavix {

struct LogicalRect {
    double x = 0, y = 0, width = 0, height = 0;
    bool operator==(const LogicalRect&) const = default;
};

const Fields<LogicalRect>& fieldsOf(std::type_identity<LogicalRect>);

}   // namespace tavix
