#include "TavixRender/Assets/BundledFrames.h"

#include "TavixCore/Device/DeviceCatalog.h"
#include "TavixRender/Assets/ResourceFolders.h"

namespace tavix::BundledFrames {

std::optional<std::filesystem::path> url(const BundledDevice& device) {
    return ResourceFolders::find("device-frames/" + device.resourceName + ".png");
}

}   // namespace tavix::BundledFrames
