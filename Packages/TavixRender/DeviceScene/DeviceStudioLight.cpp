// Lights and surroundings of the studio.
#include "TavixBase/Failure.h"
#include "TavixCore/Device/DeviceScene.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixRender/Assets/ResourceFolders.h"
#include "TavixRender/DeviceScene/DeviceStudio.h"

#include <initializer_list>

namespace tavix::DeviceStudio {

namespace {

using imaging::Color;
using imaging::Rect;

constexpr int widthPx = 512, heightPx = 256;
constexpr Rect canvas{0, 0, widthPx, heightPx};
constexpr float environmentExponent = 0.15f;

// A light of even colour with soft edges.
struct SoftBox {
    Color color;
    Rect rect;
    double blurPx;

    imaging::Image image() const {
        return imaging::Image::solid(color).cropped(rect).gaussianBlurred(blurPx).cropped(canvas);
    }
};

scene3d::EnvironmentRef environmentOf(const imaging::Image& image) {
    const imaging::Bitmap bitmap = imaging::Evaluator().draw(image, {0, 0, widthPx, heightPx});
    scene3d::EquirectangularImage picture{widthPx, heightPx, {}};
    picture.pixels.reserve(std::size_t(widthPx) * heightPx);
    for (int y = 0; y < heightPx; ++y) {
        const std::uint8_t* bgra = bitmap.view().row(y);
        for (int x = 0; x < widthPx; ++x, bgra += 4) {
            const auto light = scene3d::linearFromEncoded(bgra[2] / 255.0, bgra[1] / 255.0, bgra[0] / 255.0);
            picture.pixels.push_back({light.r, light.g, light.b});
        }
    }
    return scene3d::Environment::make(picture);
}

// Nothing without a file that is whole: it tells only what can be worked out again.
scene3d::EnvironmentRef builtEnvironment() {
    const auto file = ResourceFolders::find(environmentFile);
    if (!file) return nullptr;
    try {
        return scene3d::Environment::fromBytes(readBytes(*file, scene3d::Environment::byteCount()));
    } catch (const Failure&) {
        return nullptr;
    }
}

}   // namespace

scene3d::Vec3 keyPosition(const Vector3& degrees) {
    constexpr double distance = 1.1;
    const auto x = scene3d::sineCosine(degrees.x), y = scene3d::sineCosine(degrees.y);
    return {float(-distance * y.sine * x.cosine), float(-distance * x.sine),
        float(distance * x.cosine * y.cosine)};
}

void installLighting(const Lights& lights, scene3d::Entity& lightParent, const DeviceScene& scene) {
    const auto intensity = float(scene.lightIntensity);
    lights.key->light = scene3d::SpotLight{.color = scene3d::linearFromEncoded(1, 0.99, 0.98),
        .intensityLumen = intensity * 8000,
        .innerAngleDeg = 28,
        .outerAngleDeg = 62,
        .attenuation = {.radius = 3, .falloffExponent = 2.2f},
        .castsShadow = true};
    lights.key->transform.lookAt({0, 0.24f, 0}, keyPosition(scene.keyLightDegrees));

    lights.fill->light = scene3d::PointLight{.color = scene3d::linearFromEncoded(0.82, 0.88, 1),
        .intensityLumen = intensity * 1050,
        .attenuation = {.radius = 6, .falloffExponent = 1.4f}};
    lights.fill->transform.position = {1.3f, 0.35f, 1.8f};

    lights.rim->light = scene3d::DirectionalLight{
        .color = scene3d::linearFromEncoded(0.92, 0.94, 0.98), .intensityLux = intensity * 180};
    lights.rim->transform.orientation = scene3d::Rotation::about({1, 0, 0}, 20) *
                                        scene3d::Rotation::about({0, 1, 0}, scene.keyLightDegrees.y + 155);
    for (const auto& light : {lights.key, lights.fill, lights.rim})
        if (light->parent() != &lightParent) lightParent.add(light);
}

imaging::Image environmentImage() {
    const imaging::Image floor =
        imaging::Image::smoothLinearGradient({0, heightPx}, {0.025, 0.03, 0.04}, {0, 0}, {0.36, 0.37, 0.39})
            .cropped(canvas);
    imaging::Image studio = floor;
    for (const SoftBox& box : {
             SoftBox{{0.88, 0.88, 0.86}, {46, 38, 58, 182}, 12},
             SoftBox{{0.64, 0.66, 0.70}, {282, 62, 28, 144}, 10},
             SoftBox{{0.82, 0.84, 0.88}, {438, 50, 16, 164}, 7},
             SoftBox{{0.72, 0.72, 0.70}, {130, 224, 248, 18}, 10},
         })
        studio = box.image().over(studio);
    return studio.cropped(canvas);
}

scene3d::EnvironmentRef environment() { return environmentOf(environmentImage()); }

scene3d::EnvironmentLight environmentLight() {
    static const scene3d::EnvironmentRef ready = [] {
        const scene3d::EnvironmentRef built = builtEnvironment();
        return built ? built : environment();
    }();
    return {ready, environmentExponent};
}

}   // namespace tavix::DeviceStudio
