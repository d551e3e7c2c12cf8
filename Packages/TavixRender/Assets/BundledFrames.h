// The frame pictures of the device catalog.
#pragma once

#include <filesystem>
#include <optional>

namespace tavix {

struct BundledDevice;

namespace BundledFrames {

// Nothing when the program was installed without its pictures.
std::optional<std::filesystem::path> url(const BundledDevice& device);

}   // namespace BundledFrames

}   // namespace tavix
