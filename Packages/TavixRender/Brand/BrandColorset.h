// Accent colours as asset catalogs keep them.
#pragma once

#include "TavixCore/Values/RGBAColor.h"

#include <filesystem>
#include <optional>

namespace tavix::BrandColorsetParser {

// The `Contents.json` of a colour set, or of the AccentColor.colorset somewhere in a folder.
std::optional<std::filesystem::path> findAccentColorset(const std::filesystem::path& under);

// Its colour for any appearance; nothing when the file is no colour set.
std::optional<RGBAColor> parseColorset(const std::filesystem::path& contents);

}   // namespace tavix::BrandColorsetParser
