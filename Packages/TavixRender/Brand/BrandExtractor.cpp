#include "TavixRender/Brand/BrandExtractor.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/Decimals.h"
#include "TavixCore/Values/ColorMixing.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixRender/Brand/AppHints.h"
#include "TavixRender/Brand/BrandColorset.h"
#include "TavixRender/Brand/BrandFonts.h"
#include "TavixRender/Brand/IconPalette.h"

#include <cmath>
#include <optional>
#include <system_error>

namespace tavix::BrandExtractor {
namespace {

namespace fs = std::filesystem;

constexpr RGBAColor neutralAccent{0.2, 0.45, 0.95, 1};
constexpr std::size_t paletteSize = 6;

struct Icon {
    fs::path file;
    IconPaletteExtractor::Colors colors;
};

std::optional<Icon> iconIn(const fs::path& bundle, const AppHints::Hints& hints) {
    const auto file = hints.icon ? hints.icon : IconPaletteExtractor::findIconImage(bundle);
    if (!file) return std::nullopt;
    try {
        return Icon{*file, IconPaletteExtractor::dominantColors(media::loadStillImage(*file), paletteSize)};
    } catch (const media::MediaError&) {
        return std::nullopt;   // a broken picture is no icon
    }
}

std::optional<RGBAColor> declaredAccent(
    const fs::path& bundle, const AppHints::Hints& hints, std::vector<std::string>& notes) {
    const auto colorset = BrandColorsetParser::findAccentColorset(bundle);
    const auto color = colorset ? BrandColorsetParser::parseColorset(*colorset) : std::nullopt;
    if (color) {
        notes.push_back("accent from AccentColor.colorset");
        return color;
    }
    if (hints.accent) notes.push_back("accent from " + hints.accentSource);
    return hints.accent;
}

RGBAColor accentFrom(
    std::optional<RGBAColor> declared, const std::optional<Icon>& icon, std::vector<std::string>& notes) {
    if (declared) return *declared;
    if (!icon) {
        notes.push_back("no AccentColor and no icon image found — using a neutral accent");
        return neutralAccent;
    }
    const auto picked = IconPaletteExtractor::pickAccent(icon->colors.colors);
    if (picked) notes.push_back("accent derived from app icon (" + icon->file.filename().string() + ")");
    return picked.value_or(neutralAccent);
}

// The first colour after the icon's main one that is not the accent again.
std::optional<RGBAColor> secondaryOf(const std::vector<RGBAColor>& colors, const RGBAColor& accent) {
    constexpr double leastDistance = 0.25;
    for (std::size_t i = 1; i < colors.size(); ++i) {
        const RGBAColor& c = colors[i];
        if (std::abs(c.r - accent.r) + std::abs(c.g - accent.g) + std::abs(c.b - accent.b) > leastDistance)
            return c;
    }
    return std::nullopt;
}

void addFonts(const fs::path& bundle, Report& report) {
    const text::FontBook book{std::vector<fs::path>{}};
    BrandKit& brand = report.brand;
    brand.fonts = BrandFontResolver::allEmbeddedFonts(bundle, book);
    const auto primary = BrandFontResolver::extractPrimaryFont(bundle, brand.fonts, book);
    if (!primary) {
        report.notes.push_back(
            "no embedded font found — captions use the system font (or pick one via captionFont)");
        return;
    }
    brand.primaryFontName = primary->name;
    brand.primaryFontPath = primary->path;
    if (brand.fonts.size() <= 1) {
        report.notes.push_back("font: " + primary->name);
        return;
    }
    std::string all;
    for (const BrandKit::BrandFont& font : brand.fonts) all.append(all.empty() ? "" : ", ").append(font.name);
    report.notes.push_back("fonts: " + primary->name + " (primary) + " +
                           std::to_string(brand.fonts.size() - 1) + " more — " + all);
}

}   // namespace

Report extract(const fs::path& bundle) {
    std::error_code ignored;
    if (!fs::exists(bundle, ignored)) throw Failure("Brand bundle not found: " + bundle.string());
    Report report;
    BrandKit& brand = report.brand;
    const AppHints::Hints hints = AppHints::hintsIn(bundle);
    const auto declared = declaredAccent(bundle, hints, report.notes);
    const auto icon = iconIn(bundle, hints);
    brand.accent = accentFrom(declared, icon, report.notes);
    for (const std::string& note : hints.notes) report.notes.push_back(note);

    const double light = icon ? icon->colors.weightedLuminance : luminance(brand.accent);
    brand.appMode = light >= 0.5 ? BrandKit::AppMode::light : BrandKit::AppMode::dark;
    report.notes.push_back(std::string("app mode: ") + (light >= 0.5 ? "light" : "dark") + " (luminance " +
                           twoDecimals(light) + ")");
    addFonts(bundle, report);
    if (icon) brand.palette = icon->colors.colors;
    brand.secondary = secondaryOf(brand.palette, brand.accent);
    if (brand.palette.empty()) brand.palette = {brand.accent};
    brand.sourceBundlePath = bundle.string();
    return report;
}

}   // namespace tavix::BrandExtractor
