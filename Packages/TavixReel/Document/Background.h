// The backdrop of a reel: what fills the frame and how the recording stands in it.
#pragma once

#include "TavixCore/Device/DeviceMockup.h"
#include "TavixCore/Support/Tables.h"
#include "TavixCore/Theme/BackgroundFill.h"
#include "TavixCore/Values/Shadow.h"

#include <type_traits>

namespace tavix {

struct Background {
    BackgroundFill fill = BackgroundImage{};
    double padding = 120;   // output pixels around the recording
    Shadow shadow;
    DeviceMockup device;
    bool operator==(const Background&) const = default;
};

const Fields<Background>& fieldsOf(std::type_identity<Background>);

}   // namespace tavix
