// The files of the sound catalog.
#pragma once

#include "TavixCore/Document/SFXCatalog.h"

#include <filesystem>
#include <optional>

namespace tavix::BundledSounds {

// Nothing when the program was installed without its sounds.
std::optional<std::filesystem::path> url(SFXCatalog::Sound sound);

}   // namespace tavix::BundledSounds
