// What the `font` of a document means.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace tavix {

namespace text {
class FontBook;
}

struct ResolvedFont {
    std::optional<std::string> name, path;   // neither: the font of user interfaces
    bool operator==(const ResolvedFont&) const = default;
};

namespace CompositionFontResolver {

// A key of the document's `fonts` stands for its value. Then, in this order: a font file below the asset
// root, a short name of the font catalog, the name of a font as it stands. Never fails.
ResolvedFont resolve(const std::optional<std::string>& font, const std::map<std::string, std::string>& fonts,
    const std::optional<std::filesystem::path>& assetRoot, const text::FontBook& book);

}   // namespace CompositionFontResolver

}   // namespace tavix
