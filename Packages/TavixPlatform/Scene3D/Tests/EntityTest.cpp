#include "TavixPlatform/Scene3D/Entity.h"
#include "TavixPlatform/Scene3D/SceneError.h"
#include "TavixPlatform/Scene3D/Tests/SampleScenes.h"
#include "TavixPlatform/Scene3D/TransferCurve.h"

#include <cmath>
#include <functional>
#include <limits>
#include <stdexcept>

#include <gtest/gtest.h>

namespace tavix::scene3d {
namespace {

void expectNear(Vec3 a, Vec3 b, float tolerance = 1e-5f) {
    EXPECT_NEAR(a.x, b.x, tolerance);
    EXPECT_NEAR(a.y, b.y, tolerance);
    EXPECT_NEAR(a.z, b.z, tolerance);
}

TEST(Vectors, AgreeWithTheLibrarysSineAndPower) {
    for (double angle = -1000; angle < 1000; angle += 0.73) {
        const SineCosine value = sineCosine(angle);
        EXPECT_NEAR(value.sine, std::sin(angle * 0.017453292519943295), 5e-14);
        EXPECT_NEAR(value.cosine, std::cos(angle * 0.017453292519943295), 5e-14);
    }
    EXPECT_EQ(sineCosine(180).sine, 0);
    EXPECT_EQ(sineCosine(-270).sine, 1);
    for (double e = 0; e <= 1; e += 1 / 512.0) {
        const double expected = e <= 0.04045 ? e / 12.92 : std::pow((e + 0.055) / 1.055, 2.4);
        EXPECT_NEAR(linearFromSrgb(e), expected, 1e-14);
        EXPECT_NEAR(srgbFromLinear(linearFromSrgb(e)), e, 2e-6);   // the standard's two pieces meet that well
    }
}

TEST(Vectors, TransformsComposeAndUndo) {
    Transform t{{1, -2, 3}, Rotation::about({1, 1, 0}, 50), {2, -1, 0.5f}};
    const Affine3 m = t.matrix();
    expectNear((m * m.inverse()).apply({4, 5, 6}), {4, 5, 6});
    EXPECT_LT(m.determinant(), 0);
    expectNear(Transform{{}, Rotation::about({0, 1, 0}, 90), {1, 1, 1}}.matrix().apply({0, 0, 1}), {1, 0, 0});
    for (const Vec3 target : {Vec3{0, 0, 0}, Vec3{5, 1, 2}, Vec3{1, 9, 3}, Vec3{1, -2, 40}}) {
        t.lookAt(target, {1, -2, 3});
        const Vec3 forward = normalized(target - Vec3{1, -2, 3});
        expectNear(normalized(t.matrix().axis(2)) * -1, forward);
        const auto& q = t.orientation;
        EXPECT_NEAR(q.x * q.x + q.y * q.y + q.z * q.z + q.w * q.w, 1, 1e-6);
    }
}

TEST(Entity, ClonesTheTreeAndSharesMeshes) {
    EntityRef root = Entity::make("root"),
              child = samples::entityOf(samples::quad(1, 2), PhysicallyBased{}, {0, 1, 0});
    root->add(child);
    const EntityRef copy = root->clone();
    copy->children()[0]->isEnabled = false;
    copy->children()[0]->transform.position = {7, 7, 7};
    std::get<PhysicallyBased>(copy->children()[0]->model->materials[0]).roughness = 1;
    EXPECT_TRUE(child->isEnabled);
    EXPECT_EQ(child->transform.position, (Vec3{0, 1, 0}));
    EXPECT_EQ(child->model->materials[0], Material(PhysicallyBased{}));
    EXPECT_EQ(copy->children()[0]->model->mesh, child->model->mesh);
}

TEST(Entity, KnowsItsPlaceAndBounds) {
    EntityRef root = Entity::make(), middle = Entity::make(),
              child = samples::entityOf(samples::quad(2, 4), Unlit{});
    root->transform.position = {10, 0, 0};
    middle->transform.orientation = Rotation::about({0, 0, 1}, 90);
    root->add(middle);
    middle->add(child);
    const Bounds bounds = root->visualBounds();
    expectNear(bounds.center(), {10, 0, 0});
    expectNear(bounds.extents(), {4, 2, 0});
    EXPECT_THROW(child->add(root), std::logic_error);
    root->add(child);
    EXPECT_TRUE(middle->children().empty());
    expectNear(root->visualBounds().extents(), {2, 4, 0});
    int visited = 0;
    root->walk([&](Entity&) { ++visited; });
    EXPECT_EQ(visited, 3);
}

TEST(Mesh, RefusesWhatCannotBeDrawn) {
    const MeshData good = samples::quad(1, 1)->data();
    const auto refuses = [&](const std::function<void(MeshData&)>& change) {
        MeshData data = good;
        change(data);
        EXPECT_THROW(Mesh::make(data), SceneError);
    };
    refuses([](MeshData& d) { d.parts[0].indices[5] = 4; });
    refuses([](MeshData& d) { d.positions[1].y = std::numeric_limits<float>::infinity(); });
    refuses([](MeshData& d) { d.normals.pop_back(); });
    refuses([](MeshData& d) { d.texcoords[0].x = std::numeric_limits<float>::quiet_NaN(); });
    MeshData odd = good;
    odd.normals.clear();
    odd.parts[0].indices.push_back(0);
    const MeshRef mesh = Mesh::make(odd);
    EXPECT_EQ(mesh->triangleCount(), 2u);
    EXPECT_EQ(mesh->data().normals[2], (Vec3{0, 0, 1}));
}

}   // namespace
}   // namespace tavix::scene3d
