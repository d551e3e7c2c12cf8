#include "TavixRender/Typesetting/CompositionFontResolver.h"

#include "TavixCore/Theme/FontCatalog.h"
#include "TavixRender/Typesetting/CaptionFontFile.h"

namespace tavix::CompositionFontResolver {

ResolvedFont resolve(const std::optional<std::string>& font, const std::map<std::string, std::string>& fonts,
    const std::optional<std::filesystem::path>& assetRoot, const text::FontBook& book) {
    if (!font || font->empty()) return {};
    const auto alias = fonts.find(*font);
    const std::string& value = alias == fonts.end() ? *font : alias->second;
    if (const auto option = CaptionFontFile::option(value, assetRoot, book))
        return {option->postScriptName, option->fontPath};
    if (const auto option = FontCatalog::resolve(value, nullptr))
        return {option->postScriptName, option->fontPath};
    return {value, std::nullopt};
}

}   // namespace tavix::CompositionFontResolver
