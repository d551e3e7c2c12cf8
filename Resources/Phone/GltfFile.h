// The model as a file: binary glTF 2.0 (Khronos), metres, one node, mesh and material per part.
#pragma once

#include "Phone/Model.h"

#include <cstdint>
#include <filesystem>
#include <vector>

namespace tavix::phone {

std::vector<std::uint8_t> binaryGltf(const Model& model);

// Creates the folder; the file appears whole or not at all. Throws std::runtime_error.
void writeFile(const std::vector<std::uint8_t>& bytes, const std::filesystem::path& path);

}   // namespace tavix::phone
