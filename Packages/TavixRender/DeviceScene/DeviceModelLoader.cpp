#include "TavixRender/DeviceScene/DeviceModelLoader.h"

#include "TavixPlatform/Scene3D/ModelFile.h"
#include "TavixRender/Assets/ResourceFolders.h"

#include <mutex>

namespace tavix::DeviceModelLoader {

namespace {

// Shared by all scenes of the process, so that the file is read once. The tree is never drawn or changed.
struct CachedMaster {
    std::mutex lock;
    std::filesystem::path path;
    scene3d::EntityRef tree;
};

CachedMaster& cachedMaster() {
    static CachedMaster master;
    return master;
}

}   // namespace

std::optional<std::filesystem::path> modelURL() { return ResourceFolders::find("models/device-phone.glb"); }

scene3d::EntityRef freshModelInstance() {
    const auto url = modelURL();
    if (!url) return nullptr;
    CachedMaster& master = cachedMaster();
    const std::lock_guard guard(master.lock);
    if (!master.tree || master.path != *url) {
        master.tree = scene3d::loadModel(*url);
        master.path = *url;
    }
    return master.tree->clone();
}

}   // namespace tavix::DeviceModelLoader
