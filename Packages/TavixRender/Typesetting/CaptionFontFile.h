// A font named by its file.
#pragma once

#include "TavixCore/Theme/FontCatalog.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tavix {

namespace text {
class FontBook;
}

namespace CaptionFontFile {

// Whether a string ends as font files do: ttf, otf or ttc, whatever the case.
bool looksLikePath(std::string_view string);

// The font of an existing file, below the base directory (or the current one) unless its path is absolute; a
// leading "~/" is the home folder. Nothing for any other string, and for a file that is no usable font.
std::optional<FontOption> option(std::string_view string,
    const std::optional<std::filesystem::path>& baseDirectory, const text::FontBook& fonts);

}   // namespace CaptionFontFile

}   // namespace tavix
