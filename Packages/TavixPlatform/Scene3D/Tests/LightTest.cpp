#include "TavixPlatform/Scene3D/SceneError.h"
#include "TavixPlatform/Scene3D/Tests/Frames.h"
#include "TavixPlatform/Scene3D/Tests/SampleScenes.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>

#include <gtest/gtest.h>

namespace tavix::scene3d {
namespace {

using namespace samples;

constexpr Pass pass{{64, 64}};

EquirectangularImage evenPicture(float light) {
    return {64, 32, std::vector<Vec3>(64 * 32, {light, light, light})};
}

PhysicallyBased white(float metallic, float roughness, float clearcoat) {
    return {"", {1, 1, 1}, metallic, roughness, 0.5f, clearcoat, 0.1f, Sides::front};
}

Scene sphereScene(const PhysicallyBased& material) {
    Scene scene{Entity::make(), cameraAt(4, 30), {}};
    scene.root->add(entityOf(sphere(1, 96), material));
    return scene;
}

// In even light from everywhere a surface that swallows nothing cannot be told from it. What a half-metal's
// repeated bounces give back is only near to the mean of a metal's and the other's.
TEST(Light, WhiteSurfacesVanishInEvenSurroundings) {
    const EnvironmentRef even = Environment::make(evenPicture(1));
    Renderer renderer;
    for (const float metallic : {0.0f, 0.5f, 1.0f}) {
        for (const float roughness : {0.05f, 0.3f, 0.6f, 1.0f}) {
            for (const float clearcoat : {0.0f, 0.7f}) {
                Scene scene = sphereScene(white(metallic, roughness, clearcoat));
                scene.environment = EnvironmentLight{even, 0};
                for (const Pixel& p : linear(renderer, scene, pass).pixels) {
                    if (p[3] == 1) {
                        ASSERT_NEAR(p[1], 1, 0.01) << metallic << " " << roughness << " " << clearcoat;
                    }
                }
            }
        }
    }
}

// The same with lights all around: the sum over directions is the integral of the lobes themselves.
TEST(Light, WhiteSurfacesSendBackWhatManyLightsGive) {
    Renderer renderer;
    constexpr int count = 600;
    for (const float metallic : {0.0f, 1.0f}) {
        Scene scene = sphereScene(white(metallic, 0.7f, 0));
        for (int i = 0; i < count; ++i) {   // Fibonacci's sphere
            const float y = 1 - 2 * (float(i) + 0.5f) / count, r = std::sqrt(1 - y * y),
                        a = float(i) * 2.39996323f;
            EntityRef light = Entity::make();
            light->transform.lookAt({}, {r * std::cos(a), y, r * std::sin(a)});
            // Radiance 1 from a share of the sphere.
            light->light = DirectionalLight{{}, 683 * 4 * std::numbers::pi_v<float> / count};
            scene.root->add(light);
        }
        const Picture picture = linear(renderer, scene, pass);
        EXPECT_NEAR(picture.at(32, 32)[1], 1, 0.04) << metallic;
        EXPECT_NEAR(picture.at(48, 40)[1], 1, 0.06) << metallic;
    }
}

TEST(Light, AMatteWallUnderOneLightHasItsPhotometricBrightness) {
    Renderer renderer;
    const struct {
        Light light;
        Vec3 from;
        double expected;
    } cases[] = {
        {DirectionalLight{{}, 683 * std::numbers::pi_v<float>}, {0, 0, 5}, 1},
        {DirectionalLight{{}, 683 * std::numbers::pi_v<float>}, {0, 3, 3}, std::numbers::sqrt2 / 2},
        {PointLight{{}, 683 * 4 * 3.14159265f, {1000, 2}}, {0, 0, 1}, 1 / std::numbers::pi},
        {PointLight{{}, 683 * 4 * 3.14159265f, {1000, 2}}, {0, 0, 2}, 1 / std::numbers::pi / 4},
        {PointLight{{}, 683 * 4 * 3.14159265f, {1000, 1.4f}}, {0, 0, 2},
            1 / std::numbers::pi / std::pow(2, 1.4)},
        {PointLight{{}, 1e6f, {1.5f, 2}}, {0, 0, 2}, 0},
        {SpotLight{{}, 683 * 3.14159265f, 20, 40, {1000, 2}, false}, {0, 0, 1}, 1 / std::numbers::pi},
        {SpotLight{{}, 683 * 3.14159265f, 20, 40, {1000, 2}, true}, {0, 0, 1}, 1 / std::numbers::pi},
    };
    int number = 0;
    for (const auto& c : cases) {
        SCOPED_TRACE(number++);
        Scene scene{Entity::make(), cameraAt(3, 10), {}};
        PhysicallyBased matte = white(0, 1, 0);
        matte.specularFraction = 0;
        scene.root->add(entityOf(quad(4, 4), matte));
        EntityRef light = Entity::make();
        light->light = c.light;
        light->transform.lookAt({}, c.from);
        scene.root->add(light);
        EXPECT_NEAR(linear(renderer, scene, pass).at(32, 32)[1], c.expected, 0.003);
    }
}

// A lone ball and the wall far behind it: nothing that faces the light shades itself, at any angle.
TEST(Light, NoSurfaceShadesItself) {
    Renderer renderer;
    for (const float height : {0.5f, 3.0f}) {
        Picture pictures[2];
        for (const bool castsShadow : {false, true}) {
            Scene scene = sphereScene(white(0, 0.6f, 0));
            EntityRef light = Entity::make();
            light->light = SpotLight{{}, 50000, 40, 60, {100, 2}, castsShadow};
            light->transform.lookAt({}, {1, height, 4});
            scene.root->add(light);
            pictures[castsShadow] = linear(renderer, scene, pass);
        }
        EXPECT_LT(differenceOf(pictures[0], pictures[1]).largest, 0.02);
    }
}

TEST(Light, ThingsCastASoftShadowWhereTheyStandInTheWay) {
    Scene scene{Entity::make(), cameraAt(3, 40), {}};
    PhysicallyBased matte = white(0, 1, 0);
    matte.specularFraction = 0;
    scene.root->add(entityOf(quad(3, 3), matte));
    scene.root->add(entityOf(quad(0.4f, 0.4f), Unlit{}, {0, 0, 0.3f}));
    EntityRef light = Entity::make();
    light->light = SpotLight{{}, 20000, 60, 70, {100, 2}, true};
    light->transform.lookAt({}, {1.5f, 0, 3});   // the shadow falls to the left
    scene.root->add(light);
    Renderer renderer;
    const Picture picture = linear(renderer, scene, {{256, 256}});
    const auto lightAt = [&](int x) { return picture.at(x, 128)[1]; };
    EXPECT_LT(lightAt(96), 0.01);
    EXPECT_GT(lightAt(60), 0.15);
    EXPECT_GT(lightAt(180), 0.15);
    int between = 0;   // pixels of the edge that are neither
    for (int x = 60; x < 96; ++x)
        between += lightAt(x) > 0.05 * lightAt(60) && lightAt(x) < 0.95 * lightAt(60);
    EXPECT_GE(between, 1);
}

// A slab over a floor, a little askew: the rim of its shadow has no teeth.
TEST(Light, TheShadowOfAStraightEdgeIsStraight) {
    constexpr int side = 400;
    Renderer renderer;
    for (const double askewDeg : {1.0, 3.0, 6.0}) {
        Picture pictures[2];
        for (const bool castsShadow : {false, true}) {
            Scene scene{Entity::make(), cameraAt(3, 20), {}};
            PhysicallyBased matte = white(0, 1, 0);
            matte.specularFraction = 0;
            scene.root->add(entityOf(quad(1, 1), matte));
            EntityRef slab = entityOf(quad(0.4f, 0.8f), Unlit{}, {-0.2f, 0, 0.2f});
            slab->transform.orientation = Rotation::about({0, 0, 1}, askewDeg);
            scene.root->add(slab);
            EntityRef light = Entity::make();
            light->light = SpotLight{{}, 20000, 60, 70, {100, 2}, castsShadow};
            light->transform.lookAt({}, {-1, 0.1f, 1.2f});
            scene.root->add(light);
            pictures[castsShadow] = linear(renderer, scene, {{side, side}});
        }
        std::vector<double> widths;   // of the shadow in each row, from a column within it, in pixels
        for (int y = 100; y < 300; ++y) {
            double width = 0;
            for (int x = 225; x < 340; ++x)
                width += 1 - double(pictures[1].at(x, y)[1]) / double(pictures[0].at(x, y)[1]);
            widths.push_back(width);
        }
        constexpr std::size_t reach = 10;
        for (std::size_t i = reach; i + reach < widths.size(); ++i) {
            double mean = 0;
            for (std::size_t k = i - reach; k <= i + reach; ++k) mean += widths[k] / (2 * reach + 1);
            ASSERT_GT(mean, 2);
            EXPECT_NEAR(widths[i], mean, 0.26) << askewDeg << " degrees, row " << i;
        }
    }
}

TEST(Light, SurroundingsLightFromTheirOwnSide) {
    EquirectangularImage picture = evenPicture(0);
    // One bright patch to the right (+x), above the horizon.
    for (int y = 6; y < 14; ++y)
        for (int x = 44; x < 52; ++x) picture.pixels[std::size_t(y * 64 + x)] = {8, 8, 8};
    Renderer renderer;
    Scene scene = sphereScene(white(0, 1, 0));
    scene.environment = EnvironmentLight{Environment::make(picture), 1};
    const Picture lit = linear(renderer, scene, pass);
    EXPECT_GT(lit.at(46, 40)[1], 4 * lit.at(18, 40)[1]);
    EXPECT_GT(lit.at(46, 44)[1], lit.at(46, 20)[1]);
    scene.environment->intensityExponent = 2;
    EXPECT_NEAR(linear(renderer, scene, pass).at(46, 40)[1], 2 * lit.at(46, 40)[1], 0.01);
    EXPECT_THROW(Environment::make({2, 2, {}}), SceneError);
    EXPECT_THROW(Environment::make(evenPicture(-1)), SceneError);
}

// What is kept in a file is the light to the last bit, and anything else is nothing.
TEST(Light, OfSurroundingsComesBackFromItsBytes) {
    EquirectangularImage picture = evenPicture(0.5f);
    for (std::size_t i = 0; i < picture.pixels.size(); ++i) picture.pixels[i].x = float(i % 7);
    const EnvironmentRef made = Environment::make(picture);
    const std::string bytes = made->bytes();
    const EnvironmentRef read = Environment::fromBytes(bytes);
    ASSERT_TRUE(read);
    EXPECT_TRUE(std::ranges::equal(read->texels(), made->texels()));
    for (std::size_t i = 0; i < made->levels().size(); ++i) {
        EXPECT_EQ(read->levels()[i].sidePx, made->levels()[i].sidePx);
        EXPECT_EQ(read->levels()[i].firstTexel, made->levels()[i].firstTexel);
    }
    for (std::size_t i = 0; i < made->irradiance().size(); ++i)
        EXPECT_EQ(read->irradiance()[i].x, made->irradiance()[i].x) << i;
    for (const std::size_t at :
        {std::size_t(0), std::size_t(14), std::size_t(40), bytes.size() / 2, bytes.size() - 1}) {
        std::string damaged = bytes;
        damaged[at] = char(damaged[at] ^ 1);
        EXPECT_FALSE(Environment::fromBytes(damaged)) << at;
    }
    for (const std::size_t length : {std::size_t(0), std::size_t(7), bytes.size() - 1})
        EXPECT_FALSE(Environment::fromBytes(std::string_view(bytes).substr(0, length))) << length;
    EXPECT_FALSE(Environment::fromBytes(bytes + bytes));
}

}   // namespace
}   // namespace tavix::scene3d
