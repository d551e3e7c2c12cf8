#include "TavixRender/Assets/BundledBackgrounds.h"

#include "TavixRender/Assets/ResourceFolders.h"

#include <string>

namespace tavix::BundledBackgrounds {

std::optional<std::filesystem::path> url(const BundledBackground& background) {
    return ResourceFolders::find(
        "backgrounds/" + std::string(background.resourceName) + "." + std::string(background.fileExtension));
}

}   // namespace tavix::BundledBackgrounds
