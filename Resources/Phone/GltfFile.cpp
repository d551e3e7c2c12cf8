#include "Phone/GltfFile.h"

#include "TavixCore/Support/JsonWriter.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <fstream>
#include <limits>
#include <stdexcept>
#include <string>

namespace tavix::phone {

namespace {

static_assert(std::endian::native == std::endian::little, "glTF's numbers are little-endian");

constexpr double metresPerMm = 0.001;
// Names of glTF's enumerations.
constexpr int floatComponents = 5126, wordComponents = 5125, vertexTarget = 34962, indexTarget = 34963;

void append(std::vector<std::uint8_t>& bytes, auto value) {
    const auto raw = std::bit_cast<std::array<std::uint8_t, sizeof value>>(value);
    bytes.insert(bytes.end(), raw.begin(), raw.end());
}

// Of a surface that reflects 8 % times `specular` at normal incidence (Fresnel).
double indexOfRefraction(double specular) {
    const double root = std::sqrt(0.08 * specular);
    return (1 + root) / (1 - root);
}

class Writer {
public:
    std::vector<std::uint8_t> file(const Model& model) {
        for (const Part& part : model.parts()) add(part);
        JsonArray nodes;
        for (std::size_t i = 0; i < nodes_.size(); ++i) nodes.push_back(i);
        const Json document = JsonObject{
            {"asset", JsonObject{{"version", "2.0"}, {"generator", "tavix_phone_model"}}},
            {"scene", 0},
            {"scenes", JsonArray{JsonObject{{"nodes", nodes}}}},
            {"nodes", nodes_},
            {"meshes", meshes_},
            {"materials", materials_},
            {"accessors", accessors_},
            {"bufferViews", views_},
            {"buffers", JsonArray{JsonObject{{"byteLength", data_.size()}}}},
            {"extensionsUsed", JsonArray{"KHR_materials_clearcoat", "KHR_materials_ior"}},
        };
        return container(writeJson(document));
    }

private:
    void add(const Part& part) {
        const auto& vertices = part.surface.vertices;
        JsonObject attributes{
            {"POSITION", positions(vertices)},
            {"NORMAL", floats(vertices, 3, [](const Vertex& v) { return v.normal; })},
        };
        if (part.hasPicture)
            attributes.set("TEXCOORD_0", floats(vertices, 2, [](const Vertex& v) {
                return Vec3{v.picture.x, v.picture.y, 0};
            }));
        const JsonObject primitive{
            {"attributes", attributes}, {"indices", indices(part.surface)}, {"material", materials_.size()}};
        nodes_.push_back(JsonObject{{"name", part.name}, {"mesh", meshes_.size()}});
        meshes_.push_back(JsonObject{{"name", part.name}, {"primitives", JsonArray{primitive}}});
        materials_.push_back(material(part));
    }

    static Json material(const Part& part) {
        const Look& look = part.look;
        JsonObject result{
            {"name", part.name},
            {"pbrMetallicRoughness",
                JsonObject{
                    {"baseColorFactor", JsonArray{look.color[0], look.color[1], look.color[2], look.alpha}},
                    {"metallicFactor", look.metallic}, {"roughnessFactor", look.roughness}}},
            {"extensions",
                JsonObject{{"KHR_materials_ior", JsonObject{{"ior", indexOfRefraction(look.specular)}}},
                    {"KHR_materials_clearcoat", JsonObject{{"clearcoatFactor", look.clearcoat},
                                                    {"clearcoatRoughnessFactor", look.clearcoatRoughness}}}}},
        };
        if (look.alpha < 1) result.set("alphaMode", "BLEND");
        return result;
    }

    std::size_t positions(const std::vector<Vertex>& vertices) {
        const auto index = floats(vertices, 3, [](const Vertex& v) { return v.at * metresPerMm; });
        std::array<float, 3> least, most;
        least.fill(std::numeric_limits<float>::max());
        most.fill(std::numeric_limits<float>::lowest());
        for (const Vertex& vertex : vertices) {
            const Vec3 at = vertex.at * metresPerMm;
            const std::array<float, 3> p{float(at.x), float(at.y), float(at.z)};
            for (std::size_t i = 0; i < 3; ++i) {
                least[i] = std::min(least[i], p[i]);
                most[i] = std::max(most[i], p[i]);
            }
        }
        accessors_.back().object()->set(
            "min", JsonArray{double(least[0]), double(least[1]), double(least[2])});
        accessors_.back().object()->set("max", JsonArray{double(most[0]), double(most[1]), double(most[2])});
        return index;
    }

    std::size_t floats(const std::vector<Vertex>& vertices, int components, auto&& valueOf) {
        const std::size_t start = data_.size();
        for (const Vertex& vertex : vertices) {
            const Vec3 value = valueOf(vertex);
            append(data_, float(value.x));
            append(data_, float(value.y));
            if (components == 3) append(data_, float(value.z));
        }
        return accessor(
            start, vertices.size(), components == 3 ? "VEC3" : "VEC2", floatComponents, vertexTarget);
    }

    std::size_t indices(const Surface& surface) {
        const std::size_t start = data_.size();
        for (const Triangle& triangle : surface.triangles)
            for (const std::uint32_t index : triangle) append(data_, index);
        return accessor(start, surface.triangles.size() * 3, "SCALAR", wordComponents, indexTarget);
    }

    std::size_t accessor(std::size_t start, std::size_t count, const char* type, int component, int target) {
        accessors_.push_back(JsonObject{
            {"bufferView", views_.size()}, {"componentType", component}, {"count", count}, {"type", type}});
        views_.push_back(JsonObject{
            {"buffer", 0}, {"byteOffset", start}, {"byteLength", data_.size() - start}, {"target", target}});
        return accessors_.size() - 1;
    }

    std::vector<std::uint8_t> container(std::string document) const {
        document.resize((document.size() + 3) / 4 * 4, ' ');
        std::vector<std::uint8_t> file;
        append(file, std::uint32_t{0x46546C67});   // "glTF"
        append(file, std::uint32_t{2});
        append(file, static_cast<std::uint32_t>(12 + 8 + document.size() + 8 + data_.size()));
        append(file, static_cast<std::uint32_t>(document.size()));
        append(file, std::uint32_t{0x4E4F534A});   // "JSON"
        file.insert(file.end(), document.begin(), document.end());
        append(file, static_cast<std::uint32_t>(data_.size()));
        append(file, std::uint32_t{0x004E4942});   // "BIN"
        file.insert(file.end(), data_.begin(), data_.end());
        return file;
    }

    std::vector<std::uint8_t> data_;
    JsonArray nodes_, meshes_, materials_, accessors_, views_;
};

}   // namespace

std::vector<std::uint8_t> binaryGltf(const Model& model) { return Writer().file(model); }

void writeFile(const std::vector<std::uint8_t>& bytes, const std::filesystem::path& path) {
    if (path.has_parent_path()) std::filesystem::create_directories(path.parent_path());
    const std::filesystem::path partial = path.string() + ".partial";
    std::ofstream file(partial, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) throw std::runtime_error("Could not write " + partial.string() + ".");
    std::filesystem::rename(partial, path);
}

}   // namespace tavix::phone
