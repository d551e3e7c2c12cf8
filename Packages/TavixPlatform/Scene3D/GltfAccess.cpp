#include "TavixPlatform/Scene3D/GltfAccess.h"

#include "TavixPlatform/Scene3D/Mesh.h"
#include "TavixPlatform/Scene3D/SceneError.h"

#include <algorithm>
#include <cstring>

#include <tiny_gltf.h>

namespace tavix::scene3d {

namespace {

template <class T> const T* at(const std::vector<T>& list, int index) {
    return index >= 0 && std::size_t(index) < list.size() ? &list[std::size_t(index)] : nullptr;
}

template <class T> T read(const std::uint8_t* from) {
    T value;
    std::memcpy(&value, from, sizeof value);
    return value;
}

// 0 for a kind of number that a file of version 2 cannot hold.
std::size_t bytesOf(int componentType) {
    switch (componentType) {
    case TINYGLTF_COMPONENT_TYPE_BYTE:
    case TINYGLTF_COMPONENT_TYPE_UNSIGNED_BYTE: return 1;
    case TINYGLTF_COMPONENT_TYPE_SHORT:
    case TINYGLTF_COMPONENT_TYPE_UNSIGNED_SHORT: return 2;
    case TINYGLTF_COMPONENT_TYPE_UNSIGNED_INT:
    case TINYGLTF_COMPONENT_TYPE_FLOAT: return 4;
    default: return 0;
    }
}

int componentsOf(int type) {
    switch (type) {
    case TINYGLTF_TYPE_SCALAR: return 1;
    case TINYGLTF_TYPE_VEC2: return 2;
    case TINYGLTF_TYPE_VEC3: return 3;
    case TINYGLTF_TYPE_VEC4: return 4;
    default: return 0;
    }
}

}   // namespace

void GltfAccess::refuse(const std::string& why) const { throw SceneError(name_ + " " + why); }

const tinygltf::Accessor& GltfAccess::accessorAt(int accessor, const char* what) const {
    const tinygltf::Accessor* found = at(model_.accessors, accessor);
    if (!found) refuse("is damaged: its " + std::string(what) + " point to data that is not there.");
    if (found->sparse.isSparse)
        refuse("stores its " + std::string(what) +
               " as sparse data, which is not read; export it again without.");
    return *found;
}

std::size_t GltfAccess::count(int accessor, const char* what) const {
    return accessorAt(accessor, what).count;
}

GltfAccess::Elements GltfAccess::elementsOf(int index, const char* what) const {
    const tinygltf::Accessor& accessor = accessorAt(index, what);
    const auto damaged = [&](const char* why) { refuse("is damaged: its " + std::string(what) + " " + why); };
    const tinygltf::BufferView* view = at(model_.bufferViews, accessor.bufferView);
    const tinygltf::Buffer* buffer = view ? at(model_.buffers, view->buffer) : nullptr;
    if (!buffer) damaged("have no buffer.");
    Elements e{};
    e.components = componentsOf(accessor.type);
    e.componentType = accessor.componentType;
    e.componentBytes = bytesOf(accessor.componentType);
    e.isNormalized = accessor.normalized;
    e.count = accessor.count;
    if (e.components == 0 || e.componentBytes == 0) damaged("are of a kind that is not known.");
    if (e.count > std::max(Mesh::mostVertices, 3 * Mesh::mostTriangles)) damaged("are too many.");
    const std::size_t elementBytes = e.componentBytes * std::size_t(e.components);
    e.strideBytes = view->byteStride ? view->byteStride : elementBytes;
    const std::size_t size = buffer->data.size(), limit = std::size_t(1) << 40;
    if (view->byteOffset > size || view->byteLength > size - view->byteOffset ||
        accessor.byteOffset > limit || e.strideBytes > 4096)
        damaged("lie outside their buffer.");
    const std::size_t needed =
        e.count == 0 ? 0 : accessor.byteOffset + (e.count - 1) * e.strideBytes + elementBytes;
    if (needed > view->byteLength) damaged("lie outside their buffer.");
    e.first = buffer->data.data() + view->byteOffset + (e.count == 0 ? 0 : accessor.byteOffset);
    return e;
}

float GltfAccess::number(const Elements& e, std::size_t element, int component) const {
    const std::uint8_t* from = e.first + element * e.strideBytes + std::size_t(component) * e.componentBytes;
    const auto scaled = [&](float value, float most) {
        return e.isNormalized ? std::max(value / most, -1.0f) : value;
    };
    switch (e.componentType) {
    case TINYGLTF_COMPONENT_TYPE_FLOAT: return read<float>(from);
    case TINYGLTF_COMPONENT_TYPE_BYTE: return scaled(read<std::int8_t>(from), 127);
    case TINYGLTF_COMPONENT_TYPE_UNSIGNED_BYTE: return scaled(*from, 255);
    case TINYGLTF_COMPONENT_TYPE_SHORT: return scaled(read<std::int16_t>(from), 32767);
    case TINYGLTF_COMPONENT_TYPE_UNSIGNED_SHORT: return scaled(read<std::uint16_t>(from), 65535);
    default: return float(read<std::uint32_t>(from));
    }
}

std::vector<Vec3> GltfAccess::vec3s(int accessor, const char* what) const {
    const Elements e = elementsOf(accessor, what);
    if (e.components != 3) refuse("is damaged: its " + std::string(what) + " need three numbers each.");
    std::vector<Vec3> result(e.count);
    for (std::size_t i = 0; i < e.count; ++i) result[i] = {number(e, i, 0), number(e, i, 1), number(e, i, 2)};
    return result;
}

std::vector<Vec2> GltfAccess::vec2s(int accessor, const char* what) const {
    const Elements e = elementsOf(accessor, what);
    if (e.components != 2) refuse("is damaged: its " + std::string(what) + " need two numbers each.");
    std::vector<Vec2> result(e.count);
    for (std::size_t i = 0; i < e.count; ++i) result[i] = {number(e, i, 0), number(e, i, 1)};
    return result;
}

std::vector<std::uint32_t> GltfAccess::indices(int accessor) const {
    const Elements e = elementsOf(accessor, "triangles");
    if (e.components != 1) refuse("is damaged: its triangles need single numbers.");
    std::vector<std::uint32_t> result(e.count);
    for (std::size_t i = 0; i < e.count; ++i) {
        const std::uint8_t* from = e.first + i * e.strideBytes;
        switch (e.componentType) {
        case TINYGLTF_COMPONENT_TYPE_UNSIGNED_BYTE: result[i] = *from; break;
        case TINYGLTF_COMPONENT_TYPE_UNSIGNED_SHORT: result[i] = read<std::uint16_t>(from); break;
        case TINYGLTF_COMPONENT_TYPE_UNSIGNED_INT: result[i] = read<std::uint32_t>(from); break;
        default: refuse("is damaged: its triangles need whole numbers.");
        }
    }
    return result;
}

}   // namespace tavix::scene3d
