#include "TavixRender/Assets/BundledSounds.h"

#include "TavixCore/Support/Names.h"
#include "TavixRender/Assets/ResourceFolders.h"

#include <string>

namespace tavix::BundledSounds {

std::optional<std::filesystem::path> url(SFXCatalog::Sound sound) {
    return ResourceFolders::find("sounds/" + std::string(nameOf(sound)) + ".wav");
}

}   // namespace tavix::BundledSounds
