// The phone that device layers show, from the program's resources.
#pragma once

#include "TavixPlatform/Scene3D/Entity.h"

#include <filesystem>
#include <optional>

namespace tavix::DeviceModelLoader {

// "models/device-phone.glb" of the resource folders, or nothing when the program was installed without it.
std::optional<std::filesystem::path> modelPath();

// A tree of one's own over shared meshes: the file is read once per process, while it stays what it is, and
// cloned from then on. Empty
// when there is no file. Throws scene3d::SceneError when the file cannot be read; the next call tries again.
scene3d::EntityRef freshModelInstance();

}   // namespace tavix::DeviceModelLoader
