#include "TavixRender/DeviceScene/DeviceModelLoader.h"

#include "RenderTestKit.h"
#include "TavixPlatform/Scene3D/SceneError.h"
#include "TavixRender/DeviceScene/DeviceStudio.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <variant>

namespace tavix {

namespace {

using namespace DeviceStudio;
using scene3d::Vec3;

// Names a folder of resources for as long as it lives.
class NamedResources {
public:
    explicit NamedResources(const std::filesystem::path& folder) {
        if (const char* before = std::getenv("TAVIX_RESOURCES")) before_ = before;
        ::setenv("TAVIX_RESOURCES", folder.c_str(), 1);
    }
    ~NamedResources() {
        if (before_)
            ::setenv("TAVIX_RESOURCES", before_->c_str(), 1);
        else
            ::unsetenv("TAVIX_RESOURCES");
    }
    NamedResources(const NamedResources&) = delete;
    NamedResources& operator=(const NamedResources&) = delete;

private:
    std::optional<std::string> before_;
};

TEST(DeviceModelLoader, GivesNothingWithoutAFileAndFailsAtABrokenOne) {
    const testing::TemporaryFolder folder;
    const NamedResources resources(folder.path());
    EXPECT_FALSE(DeviceModelLoader::modelPath());
    EXPECT_FALSE(DeviceModelLoader::freshModelInstance());
    std::filesystem::create_directories(folder.path() / "models");
    std::ofstream(folder.path() / "models/device-phone.glb") << "not a model";
    EXPECT_TRUE(DeviceModelLoader::modelPath());
    for (int attempt = 0; attempt < 2; ++attempt)
        EXPECT_THROW(DeviceModelLoader::freshModelInstance(), scene3d::SceneError);
}

TEST(DeviceModelLoader, ReadsAFileThatWasReplaced) {
    const testing::TemporaryFolder folder;
    const NamedResources resources(folder.path());
    const auto file = folder.path() / "models/device-phone.glb";
    std::filesystem::create_directories(file.parent_path());
    const auto nameAfterWriting = [&](const char* materialName) {
        std::ofstream(file, std::ios::binary) << testing::triangleModel(materialName);
        std::filesystem::last_write_time(file, std::filesystem::file_time_type{});
        std::string name;
        DeviceModelLoader::freshModelInstance()->walk([&](scene3d::Entity& entity) {
            if (entity.model)
                name = std::visit([](const auto& one) { return one.name; }, entity.model->materials.at(0));
        });
        return name;
    };
    EXPECT_EQ(nameAfterWriting("one"), "one");
    EXPECT_EQ(nameAfterWriting("two"), "two");
}

// The model that the product is built with.
TEST(DeviceModelLoader, GivesEachCallerATreeOverSharedMeshes) {
    const auto one = DeviceModelLoader::freshModelInstance(), two = DeviceModelLoader::freshModelInstance();
    ASSERT_TRUE(one && two);
    const PreparedModel silver = prepare(one, DeviceFinish::silver),
                        blue = prepare(two, DeviceFinish::deepBlue);
    ASSERT_EQ(silver.body.size(), blue.body.size());
    int sharedMeshes = 0, colored = 0;
    for (std::size_t i = 0; i < silver.body.size(); ++i) {
        EXPECT_NE(silver.body[i], blue.body[i]);
        sharedMeshes += silver.body[i]->model->mesh == blue.body[i]->model->mesh;
        colored += silver.body[i]->model->materials != blue.body[i]->model->materials;
    }
    EXPECT_EQ(sharedMeshes, int(silver.body.size()) - 1);   // the bezel was mended in each
    EXPECT_GE(colored, 6);
}

TEST(DeviceModel, HasAllThatTheStudioSorts) {
    const auto model = DeviceModelLoader::freshModelInstance();
    ASSERT_TRUE(model);
    const PreparedModel prepared = prepare(model, DeviceFinish::silver);
    for (const MaterialRole wanted : {MaterialRole::screen, MaterialRole::screenGlass, MaterialRole::titanium,
             MaterialRole::backGlass, MaterialRole::darkTrim, MaterialRole::logo, MaterialRole::cameraRing,
             MaterialRole::lens, MaterialRole::hiddenArtifact, MaterialRole::preserve})
        EXPECT_TRUE(prepared.roleCounts.contains(wanted)) << int(wanted);
    EXPECT_EQ(prepared.removedArtifactTriangles, 5);
    ASSERT_EQ(prepared.rearCameraMeshes.size(), 1u);
    EXPECT_GT(prepared.rearCameraMeshes.front().removedTriangles, 100);
    EXPECT_FALSE(prepared.rearCameraHardware.empty());
    for (const auto* subset : {&prepared.screenOccluders, &prepared.rearCameraHardware})
        for (const auto& entity : *subset) EXPECT_THAT(prepared.body, ::testing::Contains(entity));

    ASSERT_TRUE(prepared.screen);
    const auto& screen = *prepared.screen->model->mesh;
    EXPECT_EQ(screen.data().texcoords.size(), screen.data().positions.size());
    for (const Vec3 normal : screen.data().normals) EXPECT_EQ(normal, (Vec3{0, 0, -1}));
    const Vec3 extents = model->visualBounds().extents();
    EXPECT_NEAR(extents.y, 0.1496, 1e-6);
    EXPECT_NEAR(screen.bounds().extents().x / screen.bounds().extents().y, 0.46, 1e-4);
    EXPECT_NEAR(model->visualBounds().least.y, 0, 1e-6);
}

}   // namespace

}   // namespace tavix
