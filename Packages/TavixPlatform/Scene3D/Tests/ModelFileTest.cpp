#include "TavixPlatform/Scene3D/ModelFile.h"

#include "TavixPlatform/Scene3D/SceneError.h"

#include <cmath>
#include <cstring>
#include <functional>
#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavix::scene3d {
namespace {

using Bytes = std::vector<std::uint8_t>;

template <class T> void append(Bytes& bytes, const std::vector<T>& values) {
    const auto* from = reinterpret_cast<const std::uint8_t*>(values.data());
    bytes.insert(bytes.end(), from, from + values.size() * sizeof(T));
}

// A binary glTF file of one description and one buffer.
Bytes glb(std::string text, Bytes data) {
    while (text.size() % 4) text += ' ';
    while (data.size() % 4) data.push_back(0);
    Bytes file;
    append<std::uint32_t>(file, {0x46546c67, 2, std::uint32_t(28 + text.size() + data.size()),
                                    std::uint32_t(text.size()), 0x4e4f534a});
    file.insert(file.end(), text.begin(), text.end());
    append<std::uint32_t>(file, {std::uint32_t(data.size()), 0x004e4942});
    file.insert(file.end(), data.begin(), data.end());
    return file;
}

// A square of two triangles: 4 positions, 4 normals, 4 texture coordinates, 6 short indices.
struct Square {
    std::vector<float> positions{-1, -1, 0, 1, -1, 0, 1, 1, 0, -1, 1, 0};
    std::vector<std::uint16_t> indices{0, 1, 2, 0, 2, 3};
    std::string extra, nodes = R"([{"mesh":0,"name":"square","translation":[1,2,3]}])";
    std::string attributes = R"("POSITION":0,"NORMAL":1,"TEXCOORD_0":2)",
                accessorOfPositions = R"("count":4)";
    std::string materials = R"([{"name":"Body_color2","doubleSided":true,"pbrMetallicRoughness":{
        "baseColorFactor":[0.5,0.25,0.125,1],"metallicFactor":0.25,"roughnessFactor":0.75},"extensions":{
        "KHR_materials_clearcoat":{"clearcoatFactor":0.5,"clearcoatRoughnessFactor":0.125},
        "KHR_materials_ior":{"ior":1.5},"KHR_materials_specular":{"specularFactor":0.5}}}])";

    Bytes file() const {
        Bytes data;
        append(data, positions);
        append<float>(data, {0, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 1});
        append<float>(data, {0, 1, 1, 1, 1, 0, 0, 0});
        append(data, indices);
        return glb(R"({"asset":{"version":"2.0"},)" + extra +
                       R"("scene":0,"scenes":[{"nodes":[0]}],"nodes":)" + nodes + R"(,"materials":)" +
                       materials + R"(,"meshes":[{"primitives":[{"attributes":{)" + attributes +
                       R"(},"indices":3,"material":0}]}],"accessors":[
            {"bufferView":0,"componentType":5126,"type":"VEC3",)" +
                       accessorOfPositions + R"(},
            {"bufferView":1,"componentType":5126,"type":"VEC3","count":4},
            {"bufferView":2,"componentType":5126,"type":"VEC2","count":4},
            {"bufferView":3,"componentType":5123,"type":"SCALAR","count":6}],"bufferViews":[
            {"buffer":0,"byteOffset":0,"byteLength":48},{"buffer":0,"byteOffset":48,"byteLength":48},
            {"buffer":0,"byteOffset":96,"byteLength":32},{"buffer":0,"byteOffset":128,"byteLength":12}],
            "buffers":[{"byteLength":)" +
                       std::to_string(data.size()) + "}]}",
            data);
    }
};

TEST(ModelFile, ReadsTreesMeshesAndMaterials) {
    const EntityRef root = loadModel(Square().file(), "square.glb");
    ASSERT_EQ(root->children().size(), 1u);
    const Entity& square = *root->children()[0];
    EXPECT_EQ(square.name, "square");
    EXPECT_EQ(square.transform.position, (Vec3{1, 2, 3}));
    const MeshData& data = square.model->mesh->data();
    EXPECT_EQ(data.positions[2], (Vec3{1, 1, 0}));
    EXPECT_EQ(data.normals[3], (Vec3{0, 0, 1}));
    EXPECT_EQ(data.texcoords[1], (Vec2{1, 1}));
    EXPECT_EQ(data.parts[0].indices, (std::vector<std::uint32_t>{0, 1, 2, 0, 2, 3}));
    const auto& material = std::get<PhysicallyBased>(square.model->materials[data.parts[0].materialSlot]);
    EXPECT_EQ(material, (PhysicallyBased{"Body_color2", {0.5f, 0.25f, 0.125f}, 0.25f, 0.75f, 0.25f, 0.5f,
                            0.125f, Sides::both}));
    EXPECT_EQ(root->visualBounds(), (Bounds{{0, 1, 3}, {2, 3, 3}}));
}

TEST(ModelFile, MakesFlatNormalsWhereAFileHasNone) {
    Square square;
    square.attributes = R"("POSITION":0)";
    square.positions[11] = 1;   // folded along the diagonal
    const EntityRef root = loadModel(square.file(), "square.glb");
    const MeshData& data = root->children()[0]->model->mesh->data();
    ASSERT_EQ(data.positions.size(), 6u);
    EXPECT_EQ(data.normals[0], (Vec3{0, 0, 1}));
    EXPECT_EQ(data.normals[3], data.normals[5]);
    EXPECT_NE(data.normals[3], data.normals[0]);
}

std::string failureOf(const Bytes& file) {
    try {
        loadModel(file, "phone.glb");
    } catch (const SceneError& error) {
        return error.what();
    }
    return "";
}

TEST(ModelFile, RefusesWithASentence) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const struct {
        std::function<void(Square&)> change;
        const char* sentence;
    } cases[] = {
        {[](Square& s) { s.extra = R"("extensionsUsed":["KHR_draco_mesh_compression"],)"; },
            "phone.glb is compressed with KHR_draco_mesh_compression, which is not read; export it again "
            "without "
            "compression."},
        {[](Square& s) { s.extra = R"("extensionsRequired":["EXT_mesh_gpu_instancing"],)"; },
            "phone.glb needs the extension EXT_mesh_gpu_instancing, which is not read; export it again "
            "without."},
        {[](Square& s) { s.indices[4] = 4; },
            "phone.glb is damaged: a triangle names a vertex that is not there."},
        {[&](Square& s) { s.positions[5] = nan; },
            "phone.glb cannot be used. The position of vertex 1 of the mesh is not a finite number."},
        {[](Square& s) { s.accessorOfPositions = R"("count":400000000)"; },
            "phone.glb is damaged: its positions are too many."},
        {[](Square& s) { s.accessorOfPositions = R"("count":5)"; },
            "phone.glb is damaged: its positions lie outside their buffer."},
        {[](Square& s) { s.accessorOfPositions = R"("count":3)"; },
            "phone.glb is damaged: its vertices do not all have the same attributes."},
        {[](Square& s) { s.accessorOfPositions = R"("count":4,"byteOffset":18446744073709551000)"; },
            "phone.glb is damaged: its positions lie outside their buffer."},
        {[](Square& s) { s.nodes = R"([{"mesh":0,"children":[0]}])"; },
            "phone.glb is damaged: its nodes are not a tree, or one deeper than 256."},
        {[](Square& s) { s.nodes = R"([{"mesh":7}])"; },
            "phone.glb is damaged: it names a mesh that is not there."},
        {[](Square& s) { s.nodes = R"([{"name":"empty"}])"; }, "phone.glb holds no triangles."},
    };
    for (const auto& c : cases) {
        Square square;
        c.change(square);
        EXPECT_EQ(failureOf(square.file()), c.sentence);
    }
}

TEST(ModelFile, RefusesContainersThatAreNotWhole) {
    const Bytes file = Square().file();
    EXPECT_THAT(failureOf({'P', 'N', 'G'}), testing::HasSubstr("is not a binary glTF file"));
    EXPECT_THAT(failureOf(Bytes(file.begin(), file.end() - 9)), testing::HasSubstr("is cut short"));
    Bytes old = file;
    old[4] = 1;
    EXPECT_THAT(failureOf(old), testing::HasSubstr("is not of glTF version 2"));
    EXPECT_THAT(failureOf(glb(std::string(5000, '['), {})), testing::HasSubstr("nests too deep"));
    // A length below the header's own leaves no room for a description, however long that one says it is.
    for (const std::uint8_t length : std::initializer_list<std::uint8_t>{0, 12, 19}) {
        Bytes shorter(file.begin(), file.begin() + 20);
        shorter[8] = length, shorter[9] = 0;
        EXPECT_THAT(failureOf(shorter), testing::HasSubstr("its description is missing"));
    }
    EXPECT_THROW(loadModel(std::filesystem::path("/nowhere/phone.glb")), SceneError);
    // However a file is cut or bent, it is read or refused.
    for (std::size_t i = 12; i < file.size(); i += 3) {
        Bytes bent = file;
        bent[i] ^= std::uint8_t(1u << i % 8);
        failureOf(bent);
        bent.resize(i);
        EXPECT_NE(failureOf(bent), "");
    }
}

}   // namespace
}   // namespace tavix::scene3d
