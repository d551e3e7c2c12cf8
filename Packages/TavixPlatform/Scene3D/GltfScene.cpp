#include "TavixPlatform/Scene3D/GltfScene.h"

#include "TavixPlatform/Scene3D/SceneError.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include <tiny_gltf.h>

namespace tavix::scene3d {

namespace {

double factor(const tinygltf::Material& material, const char* extension, const char* key, double fallback) {
    const auto found = material.extensions.find(extension);
    if (found == material.extensions.end() || !found->second.IsObject() || !found->second.Has(key))
        return fallback;
    const tinygltf::Value& value = found->second.Get(key);
    const double number = value.IsNumber() ? value.GetNumberAsDouble() : fallback;
    return std::isfinite(number) ? number : fallback;
}

float fraction(double value) { return value >= 0 ? float(std::min(value, 1.0)) : 0.0f; }

// The reflectance towards the normal that the index of refraction makes, as our fraction of 8 %.
float specularOf(const tinygltf::Material& material) {
    const double index = std::clamp(factor(material, "KHR_materials_ior", "ior", 1.5), 1.0, 10.0);
    const double root = (index - 1) / (index + 1);
    return fraction(root * root / 0.08 * factor(material, "KHR_materials_specular", "specularFactor", 1));
}

Material materialOf(const tinygltf::Material& material) {
    const auto& pbr = material.pbrMetallicRoughness;
    LinearColor color;
    if (pbr.baseColorFactor.size() >= 3)
        color = {fraction(pbr.baseColorFactor[0]), fraction(pbr.baseColorFactor[1]),
            fraction(pbr.baseColorFactor[2])};
    const Sides sides = material.doubleSided ? Sides::both : Sides::front;
    if (material.extensions.contains("KHR_materials_unlit"))
        return Unlit{material.name, color, nullptr, sides};
    constexpr const char* coat = "KHR_materials_clearcoat";
    return PhysicallyBased{material.name, color, fraction(pbr.metallicFactor), fraction(pbr.roughnessFactor),
        specularOf(material), fraction(factor(material, coat, "clearcoatFactor", 0)),
        fraction(factor(material, coat, "clearcoatRoughnessFactor", 0)), sides};
}

Transform fromMatrix(const std::vector<double>& m) {
    Transform t;
    const auto column = [&](std::size_t c) {
        return Vec3{float(m[4 * c]), float(m[4 * c + 1]), float(m[4 * c + 2])};
    };
    Vec3 x = column(0);
    const Vec3 y = column(1), z = column(2);
    const float sign = dot(cross(x, y), z) < 0 ? -1.0f : 1.0f;   // a mirror turns x around
    t.position = column(3);
    t.scale = {sign * length(x), length(y), length(z)};
    x = normalized(x) * sign;
    t.orientation = Rotation::ofAxes(x, normalized(y), normalized(z));
    return t;
}

Transform transformOf(const tinygltf::Node& node) {
    if (node.matrix.size() == 16) return fromMatrix(node.matrix);
    Transform t;
    const auto vec3 = [](const std::vector<double>& v) {
        return Vec3{float(v[0]), float(v[1]), float(v[2])};
    };
    if (node.translation.size() == 3) t.position = vec3(node.translation);
    if (node.scale.size() == 3) t.scale = vec3(node.scale);
    if (node.rotation.size() == 4) {
        const auto& q = node.rotation;
        const double size = std::sqrt(q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3]);
        if (size > 0) t.orientation = {q[0] / size, q[1] / size, q[2] / size, q[3] / size};
    }
    return t;
}

bool isFinite(const Transform& t) {
    const auto& q = t.orientation;
    return scene3d::isFinite(t.position) && scene3d::isFinite(t.scale) &&
           std::isfinite(q.x + q.y + q.z + q.w);
}

// Strips and fans as separate triangles.
std::vector<std::uint32_t> separated(const std::vector<std::uint32_t>& line, bool isFan) {
    std::vector<std::uint32_t> triangles;
    for (std::size_t i = 2; i < line.size(); ++i) {
        const bool isTurned = !isFan && i % 2 == 1;
        const std::uint32_t first = line[isFan ? 0 : i - 2], second = line[i - 1];
        triangles.insert(triangles.end(), {isTurned ? second : first, isTurned ? first : second, line[i]});
    }
    return triangles;
}

// Each corner a vertex of its own, so that it can have the normal of its triangle.
template <class T>
std::vector<T> unshared(const std::vector<T>& values, const std::vector<std::uint32_t>& indices) {
    std::vector<T> result;
    result.reserve(indices.size());
    for (const std::uint32_t i : indices) result.push_back(values[i]);
    return result;
}

}   // namespace

void GltfScene::requireKnownExtensions() const {
    constexpr std::array compressions{"KHR_draco_mesh_compression", "EXT_meshopt_compression"};
    for (const std::string& used : model_.extensionsUsed)
        if (std::ranges::find(compressions, std::string_view(used)) != compressions.end())
            access_.refuse(
                "is compressed with " + used + ", which is not read; export it again without compression.");
    for (const std::string& required : model_.extensionsRequired)
        if (!required.starts_with("KHR_materials_") && required != "KHR_mesh_quantization" &&
            required != "KHR_texture_transform" && required != "KHR_texture_basisu")
            access_.refuse(
                "needs the extension " + required + ", which is not read; export it again without.");
}

EntityRef GltfScene::build() {
    requireKnownExtensions();
    if (model_.nodes.size() > mostNodes)
        access_.refuse("has more than " + std::to_string(mostNodes) + " nodes.");
    isVisited_.assign(model_.nodes.size(), false);
    models_.resize(model_.meshes.size());
    EntityRef root = Entity::make();
    const int scene = std::max(model_.defaultScene, 0);
    if (std::size_t(scene) >= model_.scenes.size()) access_.refuse("holds no scene.");
    for (const int node : model_.scenes[std::size_t(scene)].nodes) addNode(*root, node, 0);
    if (triangleCount_ == 0) access_.refuse("holds no triangles.");
    return root;
}

void GltfScene::addNode(Entity& parent, int index, int depth) {
    if (index < 0 || std::size_t(index) >= model_.nodes.size())
        access_.refuse("is damaged: it names a node that is not there.");
    if (isVisited_[std::size_t(index)] || depth > mostDepth)
        access_.refuse(
            "is damaged: its nodes are not a tree, or one deeper than " + std::to_string(mostDepth) + ".");
    isVisited_[std::size_t(index)] = true;
    const tinygltf::Node& node = model_.nodes[std::size_t(index)];
    EntityRef entity = Entity::make(node.name);
    entity->transform = transformOf(node);
    if (!isFinite(entity->transform)) access_.refuse("is damaged: a node's place is not a finite number.");
    if (node.mesh >= 0) {
        Model model = modelOf(node.mesh);
        triangleCount_ += model.mesh->triangleCount();
        if (triangleCount_ > Mesh::mostTriangles)
            access_.refuse(
                "has more than " + std::to_string(Mesh::mostTriangles) + " triangles; simplify it.");
        entity->model = std::move(model);
    }
    parent.add(entity);
    for (const int child : node.children) addNode(*entity, child, depth + 1);
}

Model GltfScene::modelOf(int index) {
    if (std::size_t(index) >= models_.size())
        access_.refuse("is damaged: it names a mesh that is not there.");
    auto& kept = models_[std::size_t(index)];
    if (kept) return *kept;
    Model model;
    MeshData data;
    for (const tinygltf::Primitive& primitive : model_.meshes[std::size_t(index)].primitives)
        addPrimitive(primitive, model, data);
    try {
        model.mesh = Mesh::make(std::move(data));
    } catch (const SceneError& error) {
        access_.refuse(std::string("cannot be used. ") + error.what());
    }
    kept = model;
    return model;
}

std::vector<std::uint32_t> GltfScene::trianglesOf(
    const tinygltf::Primitive& primitive, std::size_t vertices) const {
    std::vector<std::uint32_t> indices;
    if (primitive.indices >= 0) {
        indices = access_.indices(primitive.indices);
        if (std::ranges::any_of(indices, [&](std::uint32_t i) { return i >= vertices; }))
            access_.refuse("is damaged: a triangle names a vertex that is not there.");
    } else {
        for (std::size_t i = 0; i < vertices; ++i) indices.push_back(std::uint32_t(i));
    }
    switch (primitive.mode) {
    case TINYGLTF_MODE_TRIANGLE_STRIP: return separated(indices, false);
    case TINYGLTF_MODE_TRIANGLE_FAN: return separated(indices, true);
    default: indices.resize(indices.size() / 3 * 3); return indices;
    }
}

void GltfScene::addPrimitive(const tinygltf::Primitive& primitive, Model& model, MeshData& data) {
    const int mode = primitive.mode < 0 ? TINYGLTF_MODE_TRIANGLES : primitive.mode;
    if (mode < TINYGLTF_MODE_TRIANGLES) return;   // points and lines
    const auto attribute = [&](const char* name) {
        const auto found = primitive.attributes.find(name);
        return found == primitive.attributes.end() ? -1 : found->second;
    };
    const int positionAt = attribute("POSITION"), normalAt = attribute("NORMAL"),
              texcoordAt = attribute("TEXCOORD_0");
    if (positionAt < 0) return;
    std::vector<Vec3> positions = access_.vec3s(positionAt, "positions"), normals;
    std::vector<Vec2> texcoords;
    if (normalAt >= 0) normals = access_.vec3s(normalAt, "normals");
    if (texcoordAt >= 0) texcoords = access_.vec2s(texcoordAt, "texture coordinates");
    if ((normalAt >= 0 && normals.size() != positions.size()) ||
        (texcoordAt >= 0 && texcoords.size() != positions.size()))
        access_.refuse("is damaged: its vertices do not all have the same attributes.");
    std::vector<std::uint32_t> indices = trianglesOf(primitive, positions.size());
    if (normalAt < 0) {
        positions = unshared(positions, indices);
        if (texcoordAt >= 0) texcoords = unshared(texcoords, indices);
        for (std::size_t i = 0; i < indices.size(); ++i) indices[i] = std::uint32_t(i);
    }
    const std::size_t before = data.positions.size(), after = before + positions.size();
    if (after > Mesh::mostVertices)
        access_.refuse(
            "has a mesh of more than " + std::to_string(Mesh::mostVertices) + " vertices; simplify it.");
    for (std::uint32_t& i : indices) i += std::uint32_t(before);
    data.positions.insert(data.positions.end(), positions.begin(), positions.end());
    if (!normals.empty() || !data.normals.empty()) {
        data.normals.resize(before);
        data.normals.insert(data.normals.end(), normals.begin(), normals.end());
        data.normals.resize(after);   // missing ones are made by the mesh
    }
    if (!texcoords.empty() || !data.texcoords.empty()) {
        data.texcoords.resize(before);
        data.texcoords.insert(data.texcoords.end(), texcoords.begin(), texcoords.end());
        data.texcoords.resize(after);
    }
    data.parts.push_back({std::move(indices), std::uint32_t(model.materials.size())});
    static const tinygltf::Material plain;
    const bool hasMaterial =
        primitive.material >= 0 && std::size_t(primitive.material) < model_.materials.size();
    model.materials.push_back(
        materialOf(hasMaterial ? model_.materials[std::size_t(primitive.material)] : plain));
}

}   // namespace tavix::scene3d
