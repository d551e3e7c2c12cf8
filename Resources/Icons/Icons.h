// The pictures by which a desktop knows the application and its documents.
#pragma once

#include "Icons/Drawing.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::icons {

// Sides that the themes of desktops ask for, in pixels; others are scaled from the drawing.
inline constexpr std::array sidesPx{16, 22, 24, 32, 48, 64, 128, 256, 512};

struct Icon {
    std::string_view context, name;   // of a theme: "apps", "mimetypes"
    // A small one has less air and plainer forms, on whole pixels.
    Drawing (*drawing)(int sidePx);
};
const std::vector<Icon>& all();

}   // namespace tavix::icons
