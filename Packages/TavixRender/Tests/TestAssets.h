// Files that films of the tests show: pictures and clips of one colour each, a font and the frame of a
// device.
#pragma once

#include "TavixCore/Values/RGBAColor.h"

#include <filesystem>
#include <string>

namespace tavix::testing {

// As far from those of its neighbours in number as the wheel allows.
RGBAColor ownColor(int number);

std::string pictureName(int number);   // 240 x 160 pixels of its own colour
std::string clipName(int number);      // 256 x 160 pixels, two seconds; slowly growing lighter
constexpr const char* testFont = "bars.ttf";
constexpr const char* testDeviceFrame = "device.png";   // 120 x 220; its screen is a tenth in from every side

void writeTestAssets(const std::filesystem::path& folder, int pictures, int clips);

}   // namespace tavix::testing
