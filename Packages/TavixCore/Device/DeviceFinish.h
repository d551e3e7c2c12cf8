// The colour of a phone's body.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <string_view>
#include <type_traits>

namespace tavix {

enum class DeviceFinish { silver, cosmicOrange, deepBlue };

std::string_view displayName(DeviceFinish finish);

const Names<DeviceFinish>& namesOf(std::type_identity<DeviceFinish>);

}   // namespace tavix
