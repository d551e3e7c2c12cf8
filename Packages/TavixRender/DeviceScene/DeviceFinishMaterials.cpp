#include "TavixRender/DeviceScene/DeviceFinishMaterials.h"

#include "TavixPlatform/Scene3D/TransferCurve.h"

namespace tavix::DeviceStudio {

namespace {

// What differs between the finishes.
struct FinishColors {
    RGB titanium, backGlass, logo;
    float backSpecular, backClearcoat;
};

const FinishColors& colorsOf(DeviceFinish finish) {
    static const FinishColors silver{
        {0.675, 0.675, 0.67}, {0.675, 0.675, 0.67}, {0.59, 0.59, 0.585}, 0.4f, 0.14f};
    static const FinishColors cosmicOrange{
        {0.92, 0.46, 0.23}, {0.90, 0.44, 0.23}, {0.80, 0.38, 0.19}, 0.28f, 0.10f};
    static const FinishColors deepBlue{
        {0.28, 0.30, 0.39}, {0.20, 0.22, 0.30}, {0.085, 0.105, 0.17}, 0.08f, 0.04f};
    switch (finish) {
    case DeviceFinish::silver: return silver;
    case DeviceFinish::cosmicOrange: return cosmicOrange;
    case DeviceFinish::deepBlue: break;
    }
    return deepBlue;
}

}   // namespace

imaging::Color RGB::color() const {
    if (!isLinear) return {r, g, b, 1};
    return {scene3d::srgbFromLinear(r), scene3d::srgbFromLinear(g), scene3d::srgbFromLinear(b), 1};
}

scene3d::PhysicallyBased MaterialPreset::material(std::string name) const {
    const imaging::Color color = baseColor.color();
    return {.name = std::move(name),
        .baseColor = scene3d::linearFromEncoded(color.r, color.g, color.b),
        .metallicFraction = metallic,
        .roughness = roughness,
        .specularFraction = specular,
        .clearcoatFraction = clearcoat,
        .clearcoatRoughness = clearcoatRoughness};
}

DeviceFinishMaterials::DeviceFinishMaterials(DeviceFinish finish) {
    const FinishColors& colors = colorsOf(finish);
    titanium_ = {colors.titanium, 0.64f, 0.52f, 0, 0, 0.01f};
    cameraRing_ = {colors.titanium, 0.82f, 0.27f, 0.18f, 0.06f, 0.18f};
    backGlass_ = {colors.backGlass, 0.02f, 0.64f, colors.backSpecular, colors.backClearcoat, 0.36f};
    logo_ = {colors.logo, 0.05f, 0.58f, 0.2f, 0.04f, 0.36f};
    lens_ = {{0.012, 0.022, 0.06}, 0.1f, 0.035f, 0.8f, 1, 0.05f};
}

scene3d::Material DeviceFinishMaterials::material(MaterialRole role, const scene3d::Material& loaded) const {
    const auto* physical = std::get_if<scene3d::PhysicallyBased>(&loaded);
    const std::string name = physical == nullptr ? std::string() : physical->name;
    switch (role) {
    case MaterialRole::titanium: return titanium_.material(name);
    case MaterialRole::backGlass: return backGlass_.material(name);
    case MaterialRole::logo: return logo_.material(name);
    case MaterialRole::cameraRing: return cameraRing_.material(name);
    case MaterialRole::lens: return lens_.material(name);
    case MaterialRole::screen:
    case MaterialRole::screenGlass:
    case MaterialRole::darkTrim:
    case MaterialRole::hiddenArtifact:
    case MaterialRole::preserve: break;
    }
    return loaded;
}

}   // namespace tavix::DeviceStudio
