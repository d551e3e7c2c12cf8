// The files of the background catalog.
#pragma once

#include "TavixCore/Theme/BackgroundCatalog.h"

#include <filesystem>
#include <optional>

namespace tavix::BundledBackgrounds {

// Nothing when the program was installed without its pictures.
std::optional<std::filesystem::path> url(const BundledBackground& background);

}   // namespace tavix::BundledBackgrounds
