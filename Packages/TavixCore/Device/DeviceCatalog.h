// The phones whose frame pictures come with the program, with the measured place of the screen in each.
#pragma once

#include "TavixCore/Values/NormalizedRect.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavix {

struct BundledDevice {
    std::string id, displayName;
    std::string resourceName;                // of the picture, without its extension
    NormalizedRect screen;                   // fractions of the picture
    double screenCornerRadiusFraction = 0;   // of the screen's smaller side
    double frameAspect = 0;                  // width by height of the frame, as layouts count with it
    int pictureWidthPx = 0, pictureHeightPx = 0;
    bool operator==(const BundledDevice&) const = default;
};

namespace DeviceCatalog {

const std::vector<BundledDevice>& all();   // by model, then by colour
const BundledDevice& iPhone16Pro();
const BundledDevice& defaultDevice();

// The device of that id, or nothing.
const BundledDevice* device(std::string_view id);

}   // namespace DeviceCatalog

}   // namespace tavix
