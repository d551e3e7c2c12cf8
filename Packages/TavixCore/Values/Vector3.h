// Three numbers along the axes of space: a position, or angles in degrees.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <type_traits>

namespace tavix {

struct Vector3 {
    double x = 0, y = 0, z = 0;
    bool operator==(const Vector3&) const = default;
};

const Fields<Vector3>& fieldsOf(std::type_identity<Vector3>);

}   // namespace tavix
