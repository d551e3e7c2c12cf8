#include "TavixPlatform/Scene3D/Tests/SampleScenes.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>

namespace tavix::scene3d::samples {

namespace {

constexpr float pi = std::numbers::pi_v<float>;

// A grid of rings of points, closed around, as a mesh.
MeshRef ringsToMesh(std::vector<Vec3> positions, std::vector<Vec3> normals, int around) {
    MeshData data;
    const auto points = std::uint32_t(around), rings = std::uint32_t(positions.size()) / points;
    data.positions = std::move(positions);
    data.normals = std::move(normals);
    MeshPart& part = data.parts.emplace_back();
    for (std::uint32_t ring = 0; ring + 1 < rings; ++ring) {
        for (std::uint32_t i = 0; i < points; ++i) {
            const std::uint32_t a = ring * points + i, b = ring * points + (i + 1) % points;
            for (const std::uint32_t index : {a, a + points, b, b, a + points, b + points})
                part.indices.push_back(index);
        }
    }
    return Mesh::make(std::move(data));
}

struct OutlinePoint {
    float x, y, nx, ny;
};
std::vector<OutlinePoint> outlineOf(float width, float height, float radius, int count) {
    std::vector<OutlinePoint> points;
    const int quarter = std::max(count / 4, 2);
    for (int corner = 0; corner < 4; ++corner) {
        const float cx = (corner == 0 || corner == 3 ? 1.0f : -1.0f) * (width / 2 - radius);
        const float cy = (corner < 2 ? 1.0f : -1.0f) * (height / 2 - radius);
        for (int i = 0; i < quarter; ++i) {
            const float angle = (float(corner) + float(i) / float(quarter - 1)) * pi / 2;
            points.push_back({cx + std::cos(angle) * radius, cy + std::sin(angle) * radius, std::cos(angle),
                std::sin(angle)});
        }
    }
    return points;
}

}   // namespace

MeshRef sphere(float radius, int slices) {
    std::vector<Vec3> positions, normals;
    for (int j = 0; j <= slices; ++j) {
        const float down = pi * float(j) / float(slices);
        for (int i = 0; i < 2 * slices; ++i) {
            const float around = pi * float(i) / float(slices);
            const Vec3 n{
                std::sin(down) * std::sin(around), std::cos(down), std::sin(down) * std::cos(around)};
            normals.push_back(n);
            positions.push_back(n * radius);
        }
    }
    return ringsToMesh(std::move(positions), std::move(normals), 2 * slices);
}

MeshRef quad(float width, float height) {
    MeshData data;
    const float x = width / 2, y = height / 2;
    data.positions = {{-x, -y, 0}, {x, -y, 0}, {x, y, 0}, {-x, y, 0}};
    data.normals.assign(4, {0, 0, 1});
    data.texcoords = {{0, 1}, {1, 1}, {1, 0}, {0, 0}};
    data.parts = {{{0, 1, 2, 0, 2, 3}, 0}};
    return Mesh::make(std::move(data));
}

MeshRef slab(const SlabShape& s) {
    const std::vector<OutlinePoint> outline = outlineOf(s.width, s.height, s.cornerRadius, s.outlinePoints);
    std::vector<Vec3> positions, normals;
    const auto ring = [&](float scale, float inset, float z, float outward, float nz) {
        for (const OutlinePoint& p : outline) {
            positions.push_back({(p.x - p.nx * inset) * scale, (p.y - p.ny * inset) * scale, z});
            normals.push_back({p.nx * outward, p.ny * outward, nz});
        }
    };
    const float half = s.depth / 2;
    for (int i = 0; i < s.capRings; ++i) ring(float(i) / float(s.capRings), s.bevel, half, 0, 1);
    for (const float side : {1.0f, -1.0f}) {
        for (int i = 0; i <= s.bevelRings; ++i) {
            const float turn = float(i) / float(s.bevelRings), angle = (side > 0 ? 1 - turn : turn) * pi / 2;
            ring(1, s.bevel * (1 - std::cos(angle)), side * (half - s.bevel + s.bevel * std::sin(angle)),
                std::cos(angle), side * std::sin(angle));
        }
    }
    for (int i = s.capRings - 1; i >= 0; --i) ring(float(i) / float(s.capRings), s.bevel, -half, 0, -1);
    return ringsToMesh(std::move(positions), std::move(normals), int(outline.size()));
}

EntityRef entityOf(MeshRef mesh, Material material, Vec3 position) {
    EntityRef entity = Entity::make();
    entity->model = Model{std::move(mesh), {std::move(material)}};
    entity->transform.position = position;
    return entity;
}

EntityRef cameraAt(float distance, float fieldOfViewDeg) {
    EntityRef camera = Entity::make("camera");
    camera->camera = PerspectiveCamera{.fieldOfViewDeg = fieldOfViewDeg};
    camera->transform.position = {0, 0, distance};
    return camera;
}

EquirectangularImage studioPicture() {
    EquirectangularImage picture{512, 256, {}};
    const auto box = [](float value, float middle, float half, float soft) {
        return std::clamp(1 - (std::abs(value - middle) - half) / soft, 0.0f, 1.0f);
    };
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            const float u = (float(x) + 0.5f) / float(picture.width),
                        v = (float(y) + 0.5f) / float(picture.height);
            const float base = 0.03f + 0.3f * (1 - v) * (1 - v);
            const float left = 0.9f * box(u, 0.15f, 0.05f, 0.03f) * box(v, 0.5f, 0.3f, 0.05f);
            const float right = 0.8f * box(u, 0.87f, 0.02f, 0.02f) * box(v, 0.5f, 0.3f, 0.05f);
            const float top = 0.7f * box(v, 0.06f, 0.04f, 0.04f);
            const float sum = base + left + right + top;
            picture.pixels.push_back({sum, sum, sum * 1.04f});
        }
    }
    return picture;
}

imaging::BitmapRef screenPicture(imaging::Size size, int variant) {
    auto bitmap = std::make_shared<imaging::Bitmap>(size);
    const imaging::BitmapView view = bitmap->view();
    for (int y = 0; y < size.height; ++y) {
        for (int x = 0; x < size.width; ++x) {
            std::uint8_t* p = view.row(y) + 4 * x;
            p[0] = std::uint8_t(((x >> 5 ^ y >> 5) + variant) & 1 ? 220 : 40);
            p[1] = std::uint8_t(y * 255 / size.height);
            p[2] = std::uint8_t(x * 255 / size.width);
            p[3] = 255;
        }
    }
    return bitmap;
}

namespace {

void addLights(Entity& rig) {
    EntityRef key = Entity::make("key"), fill = Entity::make("fill"), rim = Entity::make("rim");
    key->light = SpotLight{.color = {1, 0.98f, 0.95f},
        .intensityLumen = 8000,
        .innerAngleDeg = 28,
        .outerAngleDeg = 62,
        .attenuation = {3, 2.2f},
        .castsShadow = true};
    key->transform.lookAt({0, 0.1f, 0}, {-0.6f, 0.7f, 0.7f});
    fill->light = PointLight{.color = {0.6f, 0.75f, 1}, .intensityLumen = 1050, .attenuation = {6, 1.4f}};
    fill->transform.position = {1.3f, 0.35f, 1.8f};
    rim->light = DirectionalLight{.color = {0.85f, 0.9f, 0.95f}, .intensityLux = 180};
    rim->transform.orientation = Rotation::about({0, 1, 0}, 130) * Rotation::about({1, 0, 0}, 20);
    for (const EntityRef& light : {key, fill, rim}) rig.add(light);
}

}   // namespace

Device device(float detail) {
    Device d;
    const auto count = [&](int whole) { return std::max(int(float(whole) * detail), 2); };
    const PhysicallyBased metal{"metal", {0.42f, 0.42f, 0.41f}, 0.64f, 0.4f, 0.2f, 0, 0};
    const PhysicallyBased bezel{"bezel", {0.004f, 0.004f, 0.005f}, 0, 0.2f, 0.5f, 1, 0.03f};
    const PhysicallyBased glass{"glass", {0.05f, 0.06f, 0.09f}, 0.02f, 0.6f, 0.4f, 0.14f, 0.3f};
    const PhysicallyBased ring{"ring", {0.5f, 0.5f, 0.5f}, 0.82f, 0.27f, 0.18f, 0.06f, 0.18f};
    const PhysicallyBased lens{"lens", {0.001f, 0.002f, 0.006f}, 0.1f, 0.035f, 0.8f, 1, 0.05f};
    d.scene.root = Entity::make("root");
    EntityRef rig = Entity::make("rig");
    d.phone = Entity::make("phone");
    d.scene.root->add(rig);
    rig->add(d.phone);
    const auto add = [&](MeshRef mesh, const PhysicallyBased& material, Vec3 position) {
        EntityRef entity = entityOf(std::move(mesh), material, position);
        d.phone->add(entity);
        d.body.push_back(entity);
    };
    add(slab({0.48f, 1, 0.052f, 0.075f, 0.012f, count(400), count(8), count(3)}), metal, {});
    add(slab({0.46f, 0.98f, 0.006f, 0.066f, 0.001f, count(320), count(3), count(3)}), bezel, {0, 0, 0.0245f});
    add(slab({0.46f, 0.98f, 0.006f, 0.066f, 0.001f, count(320), count(3), count(3)}), glass,
        {0, 0, -0.0245f});
    add(slab({0.19f, 0.19f, 0.016f, 0.045f, 0.006f, count(180), count(7), count(3)}), glass,
        {0.12f, 0.37f, -0.032f});
    for (const Vec3 at :
        {Vec3{0.075f, 0.41f, -0.044f}, Vec3{0.075f, 0.33f, -0.044f}, Vec3{0.165f, 0.37f, -0.044f}}) {
        add(slab({0.066f, 0.066f, 0.014f, 0.0329f, 0.002f, count(108), count(4), count(2)}), ring, at);
        add(slab({0.052f, 0.052f, 0.014f, 0.0259f, 0.003f, count(108), count(5), count(3)}), lens,
            at + Vec3{0, 0, -0.001f});
    }
    for (const Vec3 at : {Vec3{-0.241f, 0.2f, 0}, Vec3{-0.241f, 0.1f, 0}, Vec3{0.241f, 0.15f, 0}})
        add(slab({0.008f, 0.07f, 0.018f, 0.0039f, 0.001f, count(116), count(3), count(2)}), metal, at);
    d.texture = std::make_shared<Texture>(screenPicture({1179, 2556}, 0));
    d.screen = entityOf(quad(0.43f, 0.94f), Unlit{"screen", {}, d.texture, Sides::front}, {0, 0, 0.0279f});
    d.phone->add(d.screen);
    addLights(*rig);
    d.scene.camera = cameraAt(2.4f, 30);
    d.scene.environment = EnvironmentLight{Environment::make(studioPicture()), 0.15f};
    return d;
}

}   // namespace tavix::scene3d::samples
