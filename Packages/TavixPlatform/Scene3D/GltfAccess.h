// Numbers out of a parsed glTF file, with every index, offset and count checked. Inside the library only.
#pragma once

#include "TavixPlatform/Scene3D/Vectors.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tinygltf {
class Model;
struct Accessor;
}   // namespace tinygltf

namespace tavix::scene3d {

// Throws SceneError; `name` is the file's, for its sentences.
class GltfAccess {
public:
    GltfAccess(const tinygltf::Model& model, std::string name) : model_(model), name_(std::move(name)) {}

    std::vector<Vec3> vec3s(int accessor, const char* what) const;
    std::vector<Vec2> vec2s(int accessor, const char* what) const;
    std::vector<std::uint32_t> indices(int accessor) const;
    std::size_t count(int accessor, const char* what) const;
    [[noreturn]] void refuse(const std::string& why) const;

private:
    struct Elements {
        const std::uint8_t* first;
        std::size_t count, strideBytes, componentBytes;
        int components, componentType;
        bool isNormalized;
    };
    Elements elementsOf(int accessor, const char* what) const;
    const tinygltf::Accessor& accessorAt(int accessor, const char* what) const;
    float number(const Elements& elements, std::size_t element, int component) const;

    const tinygltf::Model& model_;
    std::string name_;
};

}   // namespace tavix::scene3d
