// A desktop entry (freedesktop.org Desktop Entry and Icon Theme specifications): the icon that it names, and
// the colours that its AppStream metadata gives it.
#pragma once

#include "TavixRender/Brand/AppHints.h"

namespace tavix::AppHints {

std::optional<Hints> desktopHints(const std::filesystem::path& bundle);

}   // namespace tavix::AppHints
