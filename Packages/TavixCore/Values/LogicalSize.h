// A size in the points of a recorded device screen: pixels divided by the display scale.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <type_traits>

namespace tavix {

struct LogicalSize {
    double width = 0, height = 0;
    bool operator==(const LogicalSize&) const = default;
};

const Fields<LogicalSize>& fieldsOf(std::type_identity<LogicalSize>);

}   // namespace tavix
