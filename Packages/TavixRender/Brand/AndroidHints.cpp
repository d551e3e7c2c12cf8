#include "TavixRender/Brand/AndroidHints.h"

#include "TavixRender/Brand/BrandFiles.h"
#include "TavixRender/Brand/IconPalette.h"
#include "TavixRender/Brand/MarkupScan.h"

#include <algorithm>
#include <array>
#include <map>
#include <tuple>

namespace tavix::AppHints {
namespace {

namespace fs = std::filesystem;

// What themes call the colour that stands for the application, the likeliest first.
constexpr std::array<std::string_view, 8> accentNames{"colorPrimary", "colorAccent", "md_theme_primary",
    "md_theme_light_primary", "primary", "accent", "brand", "seed"};

// "values" and its variants hold colours and "mipmap-xxhdpi" and so on icons, all below a folder "res".
bool isIn(const fs::path& file, std::string_view folder) {
    const std::string parent = file.parent_path().filename().string();
    return parent == folder || parent.starts_with(std::string(folder) + "-");
}

using NamedColors = std::map<std::string, RGBAColor, std::less<>>;

// Those of the plain folder win over those for the night or for one version.
void addColors(const fs::path& file, NamedColors& colors) {
    const bool isPlain = file.parent_path().filename() == "values";
    for (const auto& element : MarkupScan::elements(BrandFiles::textOf(file), "color")) {
        const auto name = element.attribute("name");
        const auto color = androidColor(element.text);
        if (!name || !color) continue;
        if (isPlain)
            colors.insert_or_assign(*name, *color);
        else
            colors.emplace(*name, *color);
    }
}

// The launcher's own picture before its round and its layered forms, and of those the largest.
std::tuple<int, std::uintmax_t> iconRank(const fs::path& file) {
    const std::string stem = file.stem().string();
    const int likeness = stem == "ic_launcher"                        ? 3
                         : stem == "ic_launcher_round"                ? 2
                         : stem.starts_with("ic_launcher_foreground") ? 1
                                                                      : 0;
    return {likeness, BrandFiles::sizeBytes(file)};
}

}   // namespace

std::optional<RGBAColor> androidColor(std::string_view text) {
    const bool hasAlpha = text.size() == 5 || text.size() == 9;
    if (!text.starts_with('#')) return std::nullopt;
    if (!hasAlpha) return RGBAColor::fromHex(text);
    const std::size_t alphaDigits = text.size() == 5 ? 1 : 2;
    return RGBAColor::fromHex(
        "#" + std::string(text.substr(1 + alphaDigits)) + std::string(text.substr(1, alphaDigits)));
}

std::optional<Hints> androidHints(const fs::path& bundle) {
    NamedColors colors;
    std::optional<fs::path> icon;
    bool isAndroid = false;
    for (const fs::path& file : BrandFiles::under(bundle)) {
        if (isIn(file, "values") && BrandFiles::lowerExtension(file) == "xml") {
            addColors(file, colors);
            isAndroid = true;
        }
        const bool isLauncher = (isIn(file, "mipmap") || isIn(file, "drawable")) &&
                                file.stem().string().starts_with("ic_launcher") &&
                                IconPaletteExtractor::isIconPicture(file);
        if (isLauncher && (!icon || iconRank(file) > iconRank(*icon))) icon = file;
    }
    if (!icon && (!isAndroid || colors.empty())) return std::nullopt;
    Hints hints;
    hints.icon = icon;
    for (const std::string_view name : accentNames) {
        const auto color = colors.find(name);
        if (color == colors.end() || !IconPaletteExtractor::isDistinct(color->second)) continue;
        hints.accent = color->second;
        hints.accentSource = std::string(name) + " of the Android resources";
        break;
    }
    return hints;
}

}   // namespace tavix::AppHints
