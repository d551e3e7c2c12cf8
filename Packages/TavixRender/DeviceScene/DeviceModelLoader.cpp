#include "TavixRender/DeviceScene/DeviceModelLoader.h"

#include "TavixPlatform/Scene3D/ModelFile.h"
#include "TavixRender/Assets/FileIdentity.h"
#include "TavixRender/Assets/ResourceFolders.h"

#include <mutex>

namespace tavix::DeviceModelLoader {

namespace {

// Shared by all scenes of the process, so that the file is read once while it stays. The tree is never drawn
// or changed.
struct CachedMaster {
    std::mutex lock;
    std::optional<FileIdentity> file;
    scene3d::EntityRef tree;
};

CachedMaster& cachedMaster() {
    static CachedMaster master;
    return master;
}

}   // namespace

std::optional<std::filesystem::path> modelPath() { return ResourceFolders::find("models/device-phone.glb"); }

scene3d::EntityRef freshModelInstance() {
    const auto url = modelPath();
    if (!url) return nullptr;
    CachedMaster& master = cachedMaster();
    const std::lock_guard guard(master.lock);
    const auto file = FileIdentity::of(*url);
    if (!master.tree || master.file != file) {
        master.tree = scene3d::loadModel(*url);
        master.file = file;
    }
    return master.tree->clone();
}

}   // namespace tavix::DeviceModelLoader
