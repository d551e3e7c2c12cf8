// What the files of an application say of its look outside of asset catalogs: the manifest of a web
// application, a desktop entry with its icon theme and AppStream colours, the resources of an Android
// application.
#pragma once

#include "TavixCore/Values/RGBAColor.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tavix::AppHints {

struct Hints {
    std::optional<RGBAColor> accent;
    std::string accentSource;   // of it, as in "theme_color of manifest.webmanifest"
    std::optional<std::filesystem::path> icon;
    std::vector<std::string> notes;   // what was passed over
};

// The first of the three kinds that the folder, or the desktop entry, turns out to be; nothing in it
// otherwise.
Hints hintsIn(const std::filesystem::path& bundle);

// The desktop entry of an installed application: by its file's name with or without ".desktop", or by the
// name that it shows. Null when there is none.
std::optional<std::filesystem::path> installedApp(const std::string& name);

}   // namespace tavix::AppHints
