#include "TavixRender/DeviceScene/DeviceStudio.h"

#include "RenderTestKit.h"
#include "TavixCore/Device/DeviceScene.h"
#include "TavixRender/Assets/ResourceFolders.h"
#include "TavixRender/DeviceScene/DeviceFinishMaterials.h"
#include "TavixRender/DeviceScene/DeviceMeshRepair.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <string>
#include <vector>

namespace tavix {

namespace {

using namespace DeviceStudio;
using scene3d::Entity;
using scene3d::EntityRef;
using scene3d::PhysicallyBased;
using scene3d::Vec3;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(DeviceStudioRole, GoesByTheFirstRuleThatFits) {
    const struct {
        const char* name;
        MaterialRole role;
    } cases[] = {
        {"Main_Screen", MaterialRole::screen},
        {"screen glass", MaterialRole::screen},
        {"glass lens", MaterialRole::screenGlass},
        {"lens_1111", MaterialRole::lens},
        {"color_1111", MaterialRole::hiddenArtifact},
        {"logo_black_g", MaterialRole::hiddenArtifact},
        {"body_2222", MaterialRole::hiddenArtifact},
        {"logo_color2", MaterialRole::backGlass},
        {"RING_COLOR3", MaterialRole::cameraRing},
        {"black_logo", MaterialRole::logo},
        {"color_black2", MaterialRole::darkTrim},
        {"color_21", MaterialRole::darkTrim},
        {"trim_2112", MaterialRole::darkTrim},
        {"color2_frame", MaterialRole::titanium},
        {"_21x", MaterialRole::preserve},
        {"flash", MaterialRole::preserve},
        {"", MaterialRole::preserve},
    };
    for (const auto& c : cases) EXPECT_EQ(role(c.name), c.role) << c.name;
}

using Triangles = std::vector<std::array<Vec3, 3>>;

scene3d::MeshRef meshOf(const Triangles& triangles) {
    scene3d::MeshData data;
    scene3d::MeshPart part;
    for (const auto& triangle : triangles)
        for (const Vec3 corner : triangle) {
            part.indices.push_back(static_cast<std::uint32_t>(data.positions.size()));
            data.positions.push_back(corner);
        }
    data.parts.push_back(part);
    return scene3d::Mesh::make(data);
}

const std::array<Vec3, 3> plain{Vec3{0, 0.1f, 0}, Vec3{0.01f, 0.1f, 0}, Vec3{0, 0.11f, 0}};

EntityRef meshEntity(std::initializer_list<const char*> materialNames, const Triangles& triangles = {plain}) {
    auto entity = Entity::make(*materialNames.begin());
    entity->model = scene3d::Model{meshOf(triangles), {}};
    for (const char* name : materialNames)
        entity->model->materials.emplace_back(
            PhysicallyBased{.name = name, .baseColor = {0.5f, 0.25f, 0.125f}});
    return entity;
}

std::vector<std::string> namesOf(const std::vector<EntityRef>& entities) {
    std::vector<std::string> names;
    for (const auto& entity : entities) names.push_back(entity->name);
    return names;
}

TEST(DeviceStudio, SortsMeshesByTheirMaterials) {
    const auto model = Entity::make("phone");
    const auto frame = meshEntity({"frame_color1"}), hidden = meshEntity({"glass", "x_black2"});
    for (const auto& entity : {frame, meshEntity({"first_screen"}), meshEntity({"bezel_black2", "flash"}),
             hidden, meshEntity({"slit_2112"}), meshEntity({"trim_black"}), meshEntity({"eye_21"})})
        model->add(entity);
    // Children of what is disabled are still walked, and parents come first.
    hidden->add(meshEntity({"deep_lens"}));
    frame->add(meshEntity({"second_screen"}));
    frame->add(meshEntity({"ring_black1"}));
    const auto unlit = Entity::make("unlit");
    unlit->model =
        scene3d::Model{meshOf({plain}), {scene3d::Unlit{.name = "screen", .tint = {}, .texture = {}}}};
    model->add(unlit);

    const PreparedModel prepared = prepare(model, DeviceFinish::silver);
    ASSERT_TRUE(prepared.screen);
    EXPECT_EQ(prepared.screen->name, "first_screen");   // the last one on the walk
    EXPECT_THAT(namesOf(prepared.body), ElementsAre("frame_color1", "ring_black1", "bezel_black2",
                                            "deep_lens", "slit_2112", "trim_black", "eye_21", "unlit"));
    EXPECT_THAT(namesOf(prepared.screenOccluders), ElementsAre("bezel_black2", "slit_2112"));
    EXPECT_THAT(namesOf(prepared.rearCameraHardware), ElementsAre("ring_black1", "deep_lens", "eye_21"));
    EXPECT_THAT(prepared.rearCameraMeshes, IsEmpty());
    EXPECT_FALSE(hidden->isEnabled);
    EXPECT_EQ(prepared.roleCounts.at(MaterialRole::screen), 2);
    EXPECT_EQ(prepared.roleCounts.at(MaterialRole::preserve), 2);
    EXPECT_EQ(prepared.roleCounts.at(MaterialRole::darkTrim), 6);
    EXPECT_FALSE(prepared.roleCounts.contains(MaterialRole::logo));
}

TEST(DeviceStudio, GivesTheBodyItsFinishAndLeavesTheRest) {
    const auto finished = [](const char* name, DeviceFinish finish) {
        const auto entity = meshEntity({name});
        prepare(entity, finish);
        return std::get<PhysicallyBased>(entity->model->materials.front());
    };
    for (const DeviceFinish finish :
        {DeviceFinish::silver, DeviceFinish::cosmicOrange, DeviceFinish::deepBlue}) {
        const auto frame = finished("a_color1", finish), ring = finished("a_color3", finish);
        EXPECT_EQ(frame.baseColor, ring.baseColor);
        EXPECT_LT(ring.roughness, frame.roughness);
        EXPECT_EQ(frame.name, "a_color1");
        for (const char* kept : {"black", "flash", "a screen", "x_2112"})
            EXPECT_EQ(
                finished(kept, finish), (PhysicallyBased{.name = kept, .baseColor = {0.5f, 0.25f, 0.125f}}));
    }
    const auto orange = finished("a_color2", DeviceFinish::cosmicOrange).baseColor,
               blue = finished("a_color2", DeviceFinish::deepBlue).baseColor;
    EXPECT_GT(orange.r, 3 * orange.b);
    EXPECT_GT(blue.b, blue.r);
    // Encoded 0.90 as light, to four places.
    EXPECT_NEAR(orange.r, 0.7874, 1e-4);
}

TEST(DeviceStudio, TakesColorsEncodedOrAsLight) {
    EXPECT_EQ((RGB{0.2, 0.4, 0.6}.color()), (imaging::Color{0.2, 0.4, 0.6, 1}));
    const imaging::Color color = RGB{0, 0.0021, 0.5, true}.color();   // below and above the curve's knee
    EXPECT_EQ(color.r, 0);
    EXPECT_NEAR(color.g, 0.027132, 1e-6);
    EXPECT_NEAR(color.b, 0.735357, 1e-6);
    EXPECT_EQ(color.a, 1);
}

TEST(DeviceMeshRepair, RemovesOnlyWhatLiesWhollyInTheBox) {
    const auto at = [](float x, float y, float z = 0) { return Vec3{x, y, z}; };
    const Triangles triangles{
        {at(0, 0.005f), at(0.014f, 0.001f), at(-0.0149f, 0.0059f)},   // within
        {at(0, 0.005f), at(0, 0.005f), at(0, 0.007f)},                // one corner too high
        {at(0, 0.001f), at(0.0151f, 0.001f), at(0, 0.002f)},          // one too far to the side
        {at(0, -1), at(0.01f, -1, 5), at(0, -2, -5)},                 // neither depth nor a floor limits it
        plain,
    };
    const auto entity = meshEntity({"bezel"}, triangles);
    EXPECT_EQ(removeBottomCenterArtifact(*entity), 2);
    EXPECT_EQ(entity->model->mesh->data().parts.front().indices,
        (std::vector<std::uint32_t>{3, 4, 5, 6, 7, 8, 12, 13, 14}));
    const auto mended = entity->model->mesh;
    EXPECT_EQ(removeBottomCenterArtifact(*entity), 0);
    EXPECT_EQ(entity->model->mesh, mended);   // not made anew
    EXPECT_EQ(removeBottomCenterArtifact(*Entity::make("empty")), 0);
}

TEST(DeviceMeshRepair, KeepsTheMeshWholeBesideItsFrontForm) {
    const auto at = [](float x, float y, float z) { return Vec3{x, y, z}; };
    const Triangles triangles{
        plain, {at(0, 0.1f, 0.002f), at(1, 0.1f, 0.002f), at(0, 0.2f, 0.0051f)},   // mean z just above 0.003
        {at(0, 0.1f, 0.002f), at(1, 0.1f, 0.002f), at(0, 0.2f, 0.0049f)},          // just below
    };
    const auto entity = meshEntity({"bezel_black2"}, triangles);
    const auto whole = entity->model->mesh;
    const auto variant = rearCameraMeshVariant(entity);
    ASSERT_TRUE(variant);
    EXPECT_EQ(variant->removedTriangles, 1);
    EXPECT_EQ(variant->visible.mesh, whole);
    EXPECT_EQ(entity->model->mesh, whole);
    EXPECT_EQ(
        variant->hidden.mesh->data().parts.front().indices, (std::vector<std::uint32_t>{0, 1, 2, 6, 7, 8}));
    EXPECT_EQ(variant->hidden.materials, entity->model->materials);
    EXPECT_FALSE(rearCameraMeshVariant(meshEntity({"bezel_black2"})));
    EXPECT_FALSE(rearCameraMeshVariant(Entity::make("empty")));
}

TEST(DeviceStudioLight, StandsWhereItsAnglesSay) {
    const auto expectNear = [](Vec3 a, Vec3 b) { EXPECT_LT(scene3d::length(a - b), 1e-6f); };
    expectNear(keyPosition({0, 0, 0}), {0, 0, 1.1f});
    expectNear(keyPosition({-90, 0, 55}), {0, 1.1f, 0});
    expectNear(keyPosition({0, 90, 0}), {-1.1f, 0, 0});
    for (double x = -80; x <= 80; x += 20)
        for (double y = -170; y <= 170; y += 34)
            EXPECT_NEAR(scene3d::length(keyPosition({x, y, 0})), 1.1, 1e-6);
}

TEST(DeviceStudioLight, HangsUnderItsParentAndFollowsTheScene) {
    const auto rig = Entity::make("rig");
    const Lights lights{Entity::make("key"), Entity::make("fill"), Entity::make("rim")};
    DeviceScene scene;
    installLighting(lights, *rig, scene);
    const auto& spot = std::get<scene3d::SpotLight>(*lights.key->light);
    EXPECT_TRUE(spot.castsShadow);
    const float before = spot.intensityLumen;
    // The light looks along -z at a point a little above the device's middle.
    const Vec3 position = lights.key->transform.position;
    const Vec3 look = lights.key->transform.matrix().applyToDirection({0, 0, -1});
    EXPECT_LT(scene3d::length(look - scene3d::normalized(Vec3{0, 0.24f, 0} - position)), 1e-6f);

    scene.lightIntensity = 2;
    installLighting(lights, *rig, scene);   // again, as when a document is edited
    EXPECT_EQ(std::get<scene3d::SpotLight>(*lights.key->light).intensityLumen, 2 * before);
    EXPECT_EQ(rig->children().size(), 3u);
}

TEST(DeviceStudioLight, IsTheSameFromItsFileAsWorkedOut) {
    ASSERT_TRUE(ResourceFolders::find(environmentFile)) << "it is made when the product is built";
    EXPECT_TRUE(std::ranges::equal(environmentLight().environment->texels(), environment()->texels()));
}

TEST(DeviceStudioLight, SurroundsThePhoneWithSoftBoxes) {
    const imaging::Image image = environmentImage();
    EXPECT_EQ(image.extent(), (imaging::Rect{0, 0, 512, 256}));
    const testing::Picture picture(image, {512, 256});
    // Where a box is wider than its blur it has its own colour; positions from the top.
    const struct {
        int x, y;
        testing::Pixel color;
    } boxes[] = {{75, 127, {224, 224, 219, 255}}, {296, 122, {135, 140, 149, 255}}};
    const auto brightness = [&](int x, int y) {
        const auto p = picture.at(x, y);
        return p.r + p.g + p.b;
    };
    EXPECT_NEAR(picture.at(75, 127).r, 0.88 * 255, 3);
    for (const auto& box : boxes) EXPECT_GT(brightness(box.x, box.y), 2 * brightness(200, box.y));
    EXPECT_GT(brightness(254, 23), 2 * brightness(254, 60));   // the strip overhead
    // Away from the boxes it grows lighter towards the floor.
    for (int y = 61; y < 256; ++y) EXPECT_GE(brightness(200, y), brightness(200, y - 1) - 3) << y;
    EXPECT_NEAR(picture.at(200, 255).b, 0.39 * 255, 2);
    for (int y = 0; y < 256; y += 5)
        for (int x = 0; x < 512; x += 5) ASSERT_EQ(picture.at(x, y).a, 255);
}

}   // namespace

}   // namespace tavix
