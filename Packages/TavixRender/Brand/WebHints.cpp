#include "TavixRender/Brand/WebHints.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/JsonParser.h"
#include "TavixRender/Brand/BrandFiles.h"
#include "TavixRender/Brand/IconPalette.h"

#include <algorithm>
#include <cstdlib>
#include <system_error>

namespace tavix::AppHints {
namespace {

namespace fs = std::filesystem;

// Other files are called manifest.json too; one of an application has icons or a theme colour.
std::optional<Json> manifestIn(const fs::path& file) {
    try {
        Json manifest = parseJson(BrandFiles::textOf(file));
        const Json* icons = manifest.find("icons");
        if ((icons && icons->array()) || manifest.find("theme_color")) return manifest;
    } catch (const Failure&) {}
    return std::nullopt;
}

bool isManifestName(const fs::path& file) {
    const std::string name = BrandFiles::lowerName(file);
    return name == "manifest.json" || name == "site.webmanifest" ||
           BrandFiles::lowerExtension(file) == "webmanifest";
}

// The larger side that "48x48 192x192" promises; 0 for "any".
long sideOf(const Json& icon) {
    const Json* sizes = icon.find("sizes");
    if (!sizes || !sizes->text()) return 0;
    long most = 0;
    const std::string& text = *sizes->text();
    for (std::size_t at = 0; at < text.size();) {
        char* end = nullptr;
        most = std::max(most, std::strtol(text.c_str() + at, &end, 10));
        at = std::min(text.find(' ', at), text.size() - 1) + 1;
    }
    return most;
}

// A path within the site: from its root, or from the manifest.
fs::path placed(const std::string& source, const fs::path& manifest, const fs::path& root) {
    return source.starts_with('/') ? root / source.substr(1) : manifest.parent_path() / source;
}

std::optional<fs::path> iconOf(const Json& manifest, const fs::path& file, const fs::path& root) {
    const Json* icons = manifest.find("icons");
    if (!icons || !icons->array()) return std::nullopt;
    std::optional<fs::path> best;
    long bestSide = -1;
    for (const Json& icon : *icons->array()) {
        const Json* source = icon.find("src");
        if (!source || !source->text()) continue;
        const fs::path path = placed(*source->text(), file, root);
        std::error_code ignored;
        if (!IconPaletteExtractor::isIconPicture(path) || !fs::is_regular_file(path, ignored)) continue;
        if (const long side = sideOf(icon); side > bestSide) {
            best = path;
            bestSide = side;
        }
    }
    return best;
}

}   // namespace

std::optional<Hints> webHints(const fs::path& bundle) {
    std::error_code ignored;
    std::vector<fs::path> files = BrandFiles::under(bundle);
    if (fs::is_regular_file(bundle, ignored)) files = {bundle};
    for (const fs::path& file : files) {
        const auto manifest = isManifestName(file) ? manifestIn(file) : std::nullopt;
        if (!manifest) continue;
        Hints hints;
        const fs::path root = fs::is_directory(bundle, ignored) ? bundle : bundle.parent_path();
        hints.icon = iconOf(*manifest, file, root);
        const Json* theme = manifest->find("theme_color");
        if (!theme || !theme->text()) return hints;
        const auto color = RGBAColor::fromHex(*theme->text());
        const std::string told = "theme_color \"" + *theme->text() + "\"";
        if (!color)
            hints.notes.push_back(told + " is no hex colour and was passed over");
        else if (!IconPaletteExtractor::isDistinct(*color))
            hints.notes.push_back(told + " is nearly black or white and was passed over");
        else {
            hints.accent = color;
            hints.accentSource = "theme_color of " + file.filename().string();
        }
        return hints;
    }
    return std::nullopt;
}

}   // namespace tavix::AppHints
