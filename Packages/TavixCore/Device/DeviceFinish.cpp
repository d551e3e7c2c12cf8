#include "TavixCore/Device/DeviceFinish.h"

#include "TavixCore/Support/Names.h"

namespace tavix {

std::string_view displayName(DeviceFinish finish) {
    switch (finish) {
    case DeviceFinish::silver: return "Silver";
    case DeviceFinish::cosmicOrange: return "Cosmic Orange";
    case DeviceFinish::deepBlue: return "Deep Blue";
    }
    return {};
}

const Names<DeviceFinish>& namesOf(std::type_identity<DeviceFinish>) {
    using enum DeviceFinish;
    static const Names<DeviceFinish> table{"device finish",
        {{silver, "silver"}, {cosmicOrange, "cosmicOrange"}, {deepBlue, "deepBlue"}}, silver};
    return table;
}

}   // namespace tavix
