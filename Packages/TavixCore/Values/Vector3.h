// Three numbers along the axes of space: a position, or angles in degrees.
#pragma once

#include "TavixBase/Vec3.h"
#include "TavixCore/Support/Tables.h"

#include <type_traits>

namespace tavix {

using Vector3 = Vec3Of<double>;

const Fields<Vector3>& fieldsOf(std::type_identity<Vector3>);

}   // namespace tavix
