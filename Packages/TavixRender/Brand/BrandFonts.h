// The fonts inside an application's bundle.
#pragma once

#include "TavixCore/Theme/BrandKit.h"
#include "TavixPlatform/Text/FontBook.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace tavix::BrandFontResolver {

// All of them, by what they call themselves, each once: a medium cut first, then regular, then semibold, then
// the others. They can be used by name from then on.
std::vector<BrandKit::BrandFont> allEmbeddedFonts(
    const std::filesystem::path& under, const text::FontBook& fonts);

// The one that the bundle declares in its Info.plist, or else the first of those.
std::optional<BrandKit::BrandFont> extractPrimaryFont(const std::filesystem::path& appBundle,
    const std::vector<BrandKit::BrandFont>& scanned, const text::FontBook& fonts);

}   // namespace tavix::BrandFontResolver
