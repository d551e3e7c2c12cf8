#include "TavixPlatform/Scene3D/LightStage.h"

#include "TavixBase/Overloaded.h"
#include "TavixPlatform/Imaging/ScratchLoop.h"
#include "TavixPlatform/Scene3D/TileStage.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace tavix::scene3d {

namespace {

constexpr float lumensPerWatt = 683;
constexpr float pi = 3.14159265f;

Vec3 powerOf(const LinearColor& color, float photometric) {
    const float radiant = std::clamp(photometric / lumensPerWatt, 0.0f, 1e9f);
    return {color.r * radiant, color.g * radiant, color.b * radiant};
}

void setAttenuation(PreparedLight& light, const Attenuation& attenuation, const Affine3& toWorld) {
    light.unitsPerLength = 1 / std::max(length(toWorld.axis(2)), 1e-9f);
    light.inverseRadius = 1 / std::max(attenuation.radius, 1e-6f);
    light.halfExponent = std::clamp(attenuation.falloffExponent, 0.0f, 8.0f) / 2;
}

void setCone(PreparedLight& light, const SpotLight& spot) {
    light.outerCosine = float(sineCosine(double(std::clamp(spot.outerAngleDeg, 0.1f, 180.0f))).cosine);
    const auto inner = float(sineCosine(double(std::clamp(spot.innerAngleDeg, 0.0f, 180.0f))).cosine);
    light.inverseConeWidth = 1 / std::max(inner - light.outerCosine, 1e-4f);
}

PreparedLight lightOf(const LightInstance& instance) {
    PreparedLight light;
    light.position = instance.toWorld.origin();
    light.axis = normalized(instance.toWorld.axis(2)) * -1;
    std::visit(Overloaded{
                   [&](const DirectionalLight& directional) {
                       light.kind = PreparedLight::Kind::directional;
                       light.power = powerOf(directional.color, directional.intensityLux);
                   },
                   [&](const PointLight& point) {
                       light.kind = PreparedLight::Kind::point;
                       light.power = powerOf(point.color, point.intensityLumen / (4 * pi));
                       setAttenuation(light, point.attenuation, instance.toWorld);
                   },
                   [&](const SpotLight& spot) {
                       light.kind = PreparedLight::Kind::spot;
                       light.power = powerOf(spot.color, spot.intensityLumen / pi);
                       setAttenuation(light, spot.attenuation, instance.toWorld);
                       setCone(light, spot);
                   },
               },
        *instance.light);
    return light;
}

// 2 to a power, limited to what light can be: the series of the exponential for the fraction.
float powerOfTwo(float exponent) {
    const double limited = std::clamp(double(exponent), -30.0, 30.0), whole = std::floor(limited);
    const double x = (limited - whole) * 0.69314718055994531;
    double series = 1;
    for (int n = 16; n >= 1; --n) series = 1 + x / n * series;
    return float(std::ldexp(series, int(whole)));
}

// The sphere around all meshes. It moves and turns with them: a rigid turn changes neither its size nor its
// place within the model, so the shadow map's texels do not crawl over the model's shadow.
struct Sphere {
    Vec3 center;
    float radius = 0;
};
Sphere sphereAround(const DrawList& list) {
    const auto sphereOf = [](const MeshInstance& instance) {
        const Bounds& box = instance.mesh->bounds();
        const Affine3& world = instance.toWorld;
        const float scale = std::max({length(world.axis(0)), length(world.axis(1)), length(world.axis(2))});
        return Sphere{world.apply(box.center()), length(box.extents()) * 0.5f * scale};
    };
    Sphere result;
    float total = 0;
    for (const MeshInstance& instance : list.instances) {
        const Sphere s = sphereOf(instance);
        result.center = result.center + s.center * s.radius;
        total += s.radius;
    }
    if (!(total > 0)) return result;
    result.center = result.center * (1 / total);
    for (const MeshInstance& instance : list.instances) {
        const Sphere s = sphereOf(instance);
        result.radius = std::max(result.radius, length(s.center - result.center) + s.radius);
    }
    return result;
}

// Looks at the sphere and takes in no more than it, or than 120 degrees from within.
View shadowView(const PreparedLight& light, const Sphere& sphere) {
    View view;
    const float distance = length(sphere.center - light.position);
    const Vec3 target = distance > 1e-4f ? sphere.center : light.position + light.axis;
    Transform placed;
    // The same up whatever the light looks at, unless it looks along it: leaning by 32 degrees, the golden
    // section's. Things stand upright or lie level, and an edge that nearly follows the rows of the map would
    // have steps in its shadow longer than what the filter evens out.
    const Vec3 towards = normalized(target - light.position);
    const bool looksAlong = std::abs(towards.x * 0.5257f + towards.y * 0.8507f) > 0.99f;
    placed.lookAt(target, light.position, looksAlong ? Vec3{0, 0, 1} : Vec3{0.5257f, 0.8507f, 0});
    const Affine3 matrix = placed.matrix();
    view.eye = light.position;
    view.right = matrix.axis(0);
    view.up = matrix.axis(1);
    view.forward = matrix.axis(2) * -1;
    constexpr float widestTangent = 1.7320508f;
    const float sine = sphere.radius / std::max(distance, 1e-6f);
    const float tangent = sine < 0.86f ? sine / std::sqrt(1 - sine * sine) : widestTangent;
    view.focalPx = 0.5f * ShadowMap::sidePx / std::max(tangent, 1e-3f);
    view.widthPx = view.heightPx = ShadowMap::sidePx;
    view.near =
        std::max((distance - sphere.radius) * 0.5f, std::max(distance, sphere.radius) * 0.01f + 1e-4f);
    view.far = distance + 2 * sphere.radius;
    return view;
}

}   // namespace

Surface surfaceOf(const PhysicallyBased& material) {
    const auto fraction = [](float v) { return v >= 0 ? std::min(v, 1.0f) : 0.0f; };   // not a number is 0
    const float metallic = fraction(material.metallicFraction);
    const float plain = 0.08f * fraction(material.specularFraction), share = plain * (1 - metallic);
    const Vec3 base{
        fraction(material.baseColor.r), fraction(material.baseColor.g), fraction(material.baseColor.b)};
    Surface surface;
    surface.reflectance = Vec3{share, share, share} + base * metallic;
    surface.metallic = metallic;
    surface.metalReflectance = base;
    surface.plainReflectance = plain;
    surface.diffuse = base * (1 - metallic);
    surface.roughness = fraction(material.roughness);
    surface.clearcoat = fraction(material.clearcoatFraction);
    surface.clearcoatRoughness = fraction(material.clearcoatRoughness);
    return surface;
}

const Illumination& LightStage::prepare(const DrawList& list, const View& camera,
    const std::optional<EnvironmentLight>& environment, const SceneKernels& kernels,
    imaging::ScratchLoop& loop) {
    illumination_.camera = camera;
    illumination_.reflectance = &reflectanceTable();
    illumination_.environment = {};
    if (environment && environment->environment) {
        const Environment& source = *environment->environment;
        illumination_.environment = {&source, powerOfTwo(environment->intensityExponent)};
        for (std::size_t i = 0; i < Environment::levelCount; ++i) {
            illumination_.environmentSides[i] = float(source.levels()[i].sidePx);
            illumination_.environmentFirst[i] = std::int32_t(source.levels()[i].firstTexel);
        }
    }
    illumination_.lights.clear();
    std::size_t shadowCount = 0;
    for (const LightInstance& instance : list.lights) {
        PreparedLight& light = illumination_.lights.emplace_back(lightOf(instance));
        const auto* spot = std::get_if<SpotLight>(instance.light);
        if (!spot || !spot->castsShadow || list.instances.empty()) continue;
        if (shadows_.size() == shadowCount) shadows_.push_back(std::make_unique<ShadowMap>());
        ShadowMap& map = *shadows_[shadowCount++];
        map.view = shadowView(light, sphereAround(list));
        drawShadow(map, list, kernels, loop);
        light.shadow = &map;
    }
    return illumination_;
}

void LightStage::drawShadow(
    ShadowMap& map, const DrawList& list, const SceneKernels& kernels, imaging::ScratchLoop& loop) {
    map.inverseDepths.resize(std::size_t(ShadowMap::stridePx) * ShadowMap::stridePx);
    const SamplePattern& pattern = onePerPixel();
    geometry_.build(list, map.view, pattern, kernels, loop);
    struct Job {
        ScreenGeometry& geometry;
        ShadowMap& map;
        const SceneKernels& kernels;
        const SamplePattern& pattern;
    } job{geometry_, map, kernels, pattern};
    loop.run(geometry_.tilesAcross() * geometry_.tilesUp(), [&job](int index, imaging::Scratch& scratch) {
        const int x0 = index % job.geometry.tilesAcross() * tilePx,
                  y0 = index / job.geometry.tilesAcross() * tilePx;
        const auto row = [&](int y) {
            return job.map.inverseDepths.data() +
                   std::size_t(y0 + y + ShadowMap::marginPx) * ShadowMap::stridePx +
                   std::size_t(x0 + ShadowMap::marginPx);
        };
        const auto triangles = job.geometry.trianglesIn(index);
        if (triangles.empty()) {
            for (int y = 0; y < tilePx; ++y) std::fill_n(row(y), tilePx, 0.0f);
            return;
        }
        const CellGrid grid = clearedGrid(x0, y0, job.pattern, scratch);
        job.kernels.rasterise(grid, job.pattern, triangles.data(), triangles.size());
        job.kernels.spread(grid, job.pattern, triangles.data());
        constexpr int across = tilePx / 4;   // cells of 4 by 4
        for (int y = 0; y < tilePx; ++y)
            for (int cell = 0; cell < across; ++cell)
                std::memcpy(row(y) + 4 * cell,
                    grid.inverseDepths + ((y / 4) * across + cell) * samplesPerCell + y % 4 * 4,
                    4 * sizeof(float));
    });
}

}   // namespace tavix::scene3d
