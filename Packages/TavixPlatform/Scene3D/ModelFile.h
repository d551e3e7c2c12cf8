// Models from files: binary glTF 2.0 (Khronos).
#pragma once

#include "TavixPlatform/Scene3D/Entity.h"

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

namespace tavix::scene3d {

// The default scene of the file as a tree below a new entity. A primitive becomes a part of its mesh, and
// takes its base colour, metallic and roughness factors, clearcoat, specular and index of refraction.
// Textures, animations, skins, cameras and lights of the file are not read; materials are drawn opaque.
//
// Throws SceneError with a sentence that names the file: not a model, damaged, compressed in a way that is
// not read, without triangles, with numbers that are not finite, or larger than Mesh's limits.
EntityRef loadModel(const std::filesystem::path& path);
EntityRef loadModel(std::span<const std::uint8_t> bytes, const std::string& nameForErrors);

}   // namespace tavix::scene3d
