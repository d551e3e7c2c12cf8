#include "TavixRender/Brand/DesktopHints.h"

#include "TavixBase/TextTrimming.h"
#include "TavixPlatform/System/StandardFolders.h"
#include "TavixRender/Brand/BrandFiles.h"
#include "TavixRender/Brand/IconPalette.h"
#include "TavixRender/Brand/MarkupScan.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <system_error>

namespace tavix::AppHints {
namespace {

namespace fs = std::filesystem;

// A key of the entry's main group; empty when it has none.
std::string valueOf(const fs::path& entry, std::string_view key) {
    std::istringstream lines(BrandFiles::textOf(entry));
    bool isMain = false;
    for (std::string line; std::getline(lines, line);) {
        const std::string_view text = trimmed(line);
        if (text.starts_with('[')) isMain = text == "[Desktop Entry]";
        const std::size_t equals = text.find('=');
        if (isMain && equals != std::string_view::npos && trimmed(text.substr(0, equals)) == key)
            return std::string(trimmed(text.substr(equals + 1)));
    }
    return {};
}

// Where desktop data is kept, the user's own first (XDG Base Directory specification).
std::vector<fs::path> dataFolders() {
    const auto variable = [](const char* name) {
        return std::string(std::getenv(name) ? std::getenv(name) : "");
    };
    std::vector<fs::path> folders{system::StandardFolders::ofDesktop().data};
    std::string shared = variable("XDG_DATA_DIRS");
    if (shared.empty()) shared = "/usr/local/share:/usr/share";
    std::istringstream parts(shared);
    for (std::string part; std::getline(parts, part, ':');)
        if (!part.empty()) folders.emplace_back(part);
    return folders;
}

std::optional<fs::path> entryIn(const fs::path& bundle) {
    std::error_code ignored;
    if (fs::is_regular_file(bundle, ignored))
        return BrandFiles::lowerExtension(bundle) == "desktop" ? std::optional(bundle) : std::nullopt;
    for (const fs::path& file : BrandFiles::under(bundle))
        if (BrandFiles::lowerExtension(file) == "desktop" && !valueOf(file, "Icon").empty()) return file;
    return std::nullopt;
}

// The largest picture of that name: files of a theme lie in folders by their size, so the bytes tell.
std::optional<fs::path> iconNamed(const std::string& name, const std::vector<fs::path>& folders) {
    std::error_code ignored;
    if (const fs::path path = name; path.is_absolute() && fs::is_regular_file(path, ignored)) return path;
    for (const fs::path& folder : folders) {
        std::optional<fs::path> best;
        for (const char* place : {"icons/hicolor", "pixmaps", ""}) {
            if (best) break;
            if (*place == '\0' && folder != folders.front()) break;
            for (const fs::path& file : BrandFiles::under(folder / place))
                if (file.stem() == name && IconPaletteExtractor::isIconPicture(file) &&
                    (!best || BrandFiles::sizeBytes(file) > BrandFiles::sizeBytes(*best)))
                    best = file;
        }
        if (best) return best;
    }
    return std::nullopt;
}

// The colour for a light surface before one for a dark one.
void addAppStream(const std::vector<fs::path>& folders, const std::string& id, Hints& hints) {
    for (const fs::path& folder : folders)
        for (const char* ending : {".metainfo.xml", ".appdata.xml"})
            for (const char* place : {"metainfo", "appdata", ""}) {
                const fs::path file = folder / place / (id + ending);
                for (const auto& element : MarkupScan::elements(BrandFiles::textOf(file), "color")) {
                    const auto color = RGBAColor::fromHex(element.text);
                    if (element.attribute("type") != "primary" || !color) continue;
                    if (hints.accent && element.attribute("scheme_preference") != "light") continue;
                    hints.accent = color;
                    hints.accentSource = "branding of " + file.filename().string();
                }
                if (hints.accent) return;
            }
}

}   // namespace

std::optional<fs::path> installedApp(const std::string& name) {
    for (const fs::path& folder : dataFolders())
        for (const fs::path& file : BrandFiles::under(folder / "applications")) {
            if (BrandFiles::lowerExtension(file) != "desktop") continue;
            const std::string wanted = lowered(name);
            if (BrandFiles::lowerName(file) == wanted || lowered(file.stem().string()) == wanted ||
                lowered(valueOf(file, "Name")) == wanted)
                return file;
        }
    return std::nullopt;
}

std::optional<Hints> desktopHints(const fs::path& bundle) {
    const auto entry = entryIn(bundle);
    if (!entry) return std::nullopt;
    // The data folder that the entry lies in, before those of the machine.
    std::vector<fs::path> folders{entry->parent_path().filename() == "applications"
                                      ? entry->parent_path().parent_path()
                                      : entry->parent_path()};
    std::ranges::copy(dataFolders(), std::back_inserter(folders));
    Hints hints;
    const std::string icon = valueOf(*entry, "Icon");
    hints.icon = iconNamed(icon, folders);
    if (!hints.icon && !icon.empty())
        hints.notes.push_back(
            "no picture was found for the icon \"" + icon + "\" of " + entry->filename().string());
    addAppStream(folders, entry->stem().string(), hints);
    return hints;
}

}   // namespace tavix::AppHints
