#include "TavixCore/Theme/FontCatalog.h"

#include "TavixBase/TextTrimming.h"
#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Theme/BrandKit.h"
#include "TavixCore/Theme/CaptionStyle.h"

#include <algorithm>

namespace tavix {

const Fields<FontOption>& fieldsOf(std::type_identity<FontOption>) {
    static const Fields<FontOption> table{
        "FontOption", {field<&FontOption::id>("id", "The short name.").required(),
                          field<&FontOption::displayName>("displayName", "What people are shown.").required(),
                          field<&FontOption::postScriptName>("postScriptName", "What the font calls itself."),
                          field<&FontOption::fontPath>("fontPath", "The font file.")}};
    return table;
}

namespace FontCatalog {

namespace {

FontOption ofBrand(const std::string& id, const std::string& name, const std::optional<std::string>& path) {
    return {id, "App Font (" + name + ")", name, path};
}

template <class Key>
const FontOption* find(
    const std::vector<FontOption>& options, Key FontOption::*key, const std::string& wanted) {
    const auto found = std::ranges::find(options, wanted, key);
    return found == options.end() ? nullptr : &*found;
}

}   // namespace

const FontOption& system() {
    static const FontOption option{"system", "System (SF Pro)", std::nullopt, std::nullopt};
    return option;
}

const std::vector<FontOption>& iosTop10() {
    static const std::vector<FontOption> options = {
        {"helvetica-neue", "Helvetica Neue", "HelveticaNeue-Medium", std::nullopt},
        {"avenir-next", "Avenir Next", "AvenirNext-Medium", std::nullopt},
        {"futura", "Futura", "Futura-Medium", std::nullopt},
        {"gill-sans", "Gill Sans", "GillSans-SemiBold", std::nullopt},
        {"optima", "Optima", "Optima-Regular", std::nullopt},
        {"georgia", "Georgia", "Georgia", std::nullopt},
        {"palatino", "Palatino", "Palatino-Roman", std::nullopt},
        {"baskerville", "Baskerville", "Baskerville", std::nullopt},
        {"american-typewriter", "American Typewriter", "AmericanTypewriter", std::nullopt},
        {"menlo", "Menlo", "Menlo-Regular", std::nullopt},
    };
    return options;
}

const std::vector<FontOption>& standardOptions() {
    static const std::vector<FontOption> options = [] {
        std::vector<FontOption> all{system()};
        all.insert(all.end(), iosTop10().begin(), iosTop10().end());
        return all;
    }();
    return options;
}

std::optional<FontOption> appFont(const BrandKit* brand) {
    if (!brand || !brand->primaryFontName || brand->primaryFontName->empty()) return std::nullopt;
    return ofBrand("app", *brand->primaryFontName, brand->primaryFontPath);
}

std::vector<FontOption> brandFonts(const BrandKit* brand) {
    std::vector<FontOption> options;
    if (!brand) return options;
    if (const auto main = appFont(brand)) options.push_back(*main);
    for (const BrandKit::BrandFont& font : brand->fonts)
        if (!font.name.empty() && !find(options, &FontOption::id, font.name))
            options.push_back(ofBrand(font.name, font.name, font.path));
    return options;
}

std::optional<FontOption> resolve(std::string_view value, const BrandKit* brand) {
    const std::string wanted = lowered(trimmed(value));
    if (wanted == "app") return appFont(brand).value_or(system());
    const FontOption* known = find(standardOptions(), &FontOption::id, wanted);
    return known ? std::optional(*known) : std::nullopt;
}

FontOption option(const std::optional<std::string>& fontName, const std::optional<std::string>& fontPath,
    const BrandKit* brand) {
    if (!fontName || fontName->empty()) return system();
    const std::vector<FontOption> own = brandFonts(brand);
    if (const FontOption* known = find(own, &FontOption::postScriptName, *fontName)) return *known;
    if (const FontOption* known = find(standardOptions(), &FontOption::postScriptName, *fontName))
        return *known;
    return {*fontName, *fontName, *fontName, fontPath};
}

FontOption option(const CaptionStyle& style, const BrandKit* brand) {
    return option(style.fontName, style.fontPath, brand);
}

}   // namespace FontCatalog

}   // namespace tavix
