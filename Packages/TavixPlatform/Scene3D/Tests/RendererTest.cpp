#include "TavixPlatform/Scene3D/Renderer.h"
#include "TavixPlatform/Scene3D/SceneError.h"
#include "TavixPlatform/Scene3D/Tests/Frames.h"
#include "TavixPlatform/Scene3D/Tests/SampleScenes.h"
#include "TestSupport/SourceTree.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <new>

#include <gtest/gtest.h>
#include <hwy/targets.h>

// Counts what the whole program asks for.
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
static std::atomic<long> allocationCount{0};
void* operator new(std::size_t size) {
    ++allocationCount;
    if (void* memory = std::malloc(size ? size : 1)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace tavix::scene3d {
namespace {

using namespace samples;

constexpr Pass smallPass{{108, 192}};

Device turned(double yawDeg) {
    Device made = device(0.4f);   // each its own: tests move and hide its parts
    made.phone->transform.orientation = Rotation::about({0, 1, 0}, yawDeg) * Rotation::about({1, 0, 0}, 12);
    return made;
}

std::vector<std::uint8_t> bytesOf(Renderer& renderer, const Scene& scene) {
    const LinearFrame body = renderer.renderLinear(scene, smallPass);
    const EncodedFrame screen = renderer.renderEncoded(scene, smallPass);
    std::vector<std::uint8_t> bytes;
    for (int y = 0; y < body.pixels.size().height; ++y) {
        const auto* row = reinterpret_cast<const std::uint8_t*>(body.pixels.row(y));
        bytes.insert(bytes.end(), row, row + 8 * body.pixels.size().width);
    }
    for (int y = 0; y < screen.pixels.size().height; ++y) {
        const std::uint8_t* row = screen.pixels.view().row(y);
        bytes.insert(bytes.end(), row, row + 4 * screen.pixels.size().width);
    }
    return bytes;
}

TEST(Renderer, GivesTheSameBitsOnEveryInstructionSetAndThreadCount) {
    const Device d = turned(-33);
    Renderer first({.threadCount = 1});
    const auto expected = bytesOf(first, d.scene);
    ASSERT_GT(expected.size(), 50000u);
    for (const auto target : hwy::SupportedAndGeneratedTargets()) {
        hwy::SetSupportedTargetsForTest(target);
        hwy::GetChosenTarget().Update(hwy::SupportedTargets());
        Renderer renderer({.threadCount = 2});
        EXPECT_EQ(bytesOf(renderer, d.scene), expected) << hwy::TargetName(target);
    }
    hwy::SetSupportedTargetsForTest(0);
    hwy::GetChosenTarget().Update(hwy::SupportedTargets());
    Renderer many({.threadCount = 5});
    EXPECT_EQ(bytesOf(many, d.scene), expected);
}

TEST(Renderer, ForgetsEarlierFramesAndAsksForNoMemoryOnceWarm) {
    Renderer renderer({.threadCount = 1});
    const auto expected = bytesOf(renderer, turned(20).scene);
    bytesOf(renderer, turned(190).scene);
    EXPECT_EQ(bytesOf(renderer, turned(20).scene), expected);
    const Device d = turned(20);
    const long before = allocationCount;
    renderer.renderLinear(d.scene, smallPass);
    renderer.renderEncoded(d.scene, smallPass);
    EXPECT_EQ(allocationCount - before, 0);
}

// Turned, moved or scaled as a whole, with its lights and camera, a scene looks the same. Snapping to
// subpixels moves edges by a hair.
TEST(Renderer, LooksTheSameWhereverTheSceneStands) {
    Device d = turned(-25);
    d.scene.environment.reset();
    Renderer renderer;
    const Picture expected = linear(renderer, d.scene, smallPass);
    EntityRef world = Entity::make();
    world->add(d.scene.root);
    world->add(d.scene.camera);
    d.scene.root = world;
    for (const Transform& placed : {Transform{{3, -2, 5}, Rotation::about({1, 2, 0.5f}, 77), {1, 1, 1}},
             Transform{{0, 1, 0}, Rotation::about({0, 1, 1}, 200), {2.5f, 2.5f, 2.5f}}}) {
        world->transform = placed;
        const Difference difference = differenceOf(linear(renderer, d.scene, smallPass), expected);
        EXPECT_LT(difference.mean, 0.002);
    }
    d.scene.camera->removeFromParent();
}

// A mirrored scene gives the mirrored picture, with its fronts still in front.
TEST(Renderer, MirrorsAsAMirrorDoes) {
    Device d = turned(-25);
    d.scene.environment.reset();
    d.screen->isEnabled = false;
    Renderer renderer;
    const Picture expected = linear(renderer, d.scene, smallPass);
    d.scene.root->transform.scale = {-1, 1, 1};
    Picture mirrored = linear(renderer, d.scene, smallPass);
    d.scene.root->transform.scale = {1, 1, 1};
    for (int y = 0; y < smallPass.size.height; ++y)
        std::reverse(&mirrored.pixels[std::size_t(y) * 108], &mirrored.pixels[std::size_t(y) * 108] + 108);
    EXPECT_LT(differenceOf(mirrored, expected).mean, 0.006);   // the pattern of samples is not its own mirror
}

// A screen whose texels fall on pixels shows them as they are.
TEST(Renderer, ShowsATextureThatFitsItsPixelsAsItIs) {
    constexpr imaging::Size size{150, 233};
    const imaging::BitmapRef source = [&] {
        auto bitmap = std::make_shared<imaging::Bitmap>(size);
        std::uint32_t state = 1;
        for (int y = 0; y < size.height; ++y)
            for (int x = 0; x < 4 * size.width; ++x) {
                state = state * 1664525u + 1013904223u;
                bitmap->view().row(y)[x] = x % 4 == 3 ? 255 : std::uint8_t(state >> 24);
            }
        return bitmap;
    }();
    Scene scene{Entity::make(), cameraAt(2.7f, 31), {}};
    const imaging::Size frame{190, 301};
    const double half = std::tan(31 * 3.14159265358979 / 360) * 2.7;
    const auto unitsPerPx = float(2 * half / frame.height);
    scene.root->add(entityOf(
        quad(150 * unitsPerPx, 233 * unitsPerPx), Unlit{"", {}, std::make_shared<Texture>(source), {}}));
    Renderer renderer;
    for (const TextureDetail detail : {TextureDetail::fine, TextureDetail::quick}) {
        const Picture picture = encoded(renderer, scene, {frame, Samples::four, detail});
        float largest = 0;
        for (int y = 0; y < size.height; ++y)
            for (int x = 0; x < size.width; ++x)
                for (std::size_t c = 0; c < 3; ++c) {
                    const float expected = source->view().row(size.height - 1 - y)[4 * x + 2 - int(c)];
                    largest = std::max(largest, std::abs(picture.at(x + 20, y + 34)[c] - expected));
                }
        EXPECT_LE(largest, 1);
    }
}

// A part of a picture on a screen looks as if it were all there is, to its last row and column.
TEST(Renderer, ShowsAPartOfAPictureAsAPictureOfItsOwn) {
    const imaging::BitmapRef whole = screenPicture({200, 300}, 3);
    const imaging::PixelRegion part{37, 61, 190, 300};
    const auto cut = std::make_shared<imaging::Bitmap>(imaging::Size{part.width(), part.height()});
    for (int y = 0; y < part.height(); ++y)
        std::copy_n(whole->view().row(part.y0 + y) + 4 * part.x0, 4 * part.width(), cut->view().row(y));
    Device d = turned(-33);
    Renderer renderer;
    d.texture->replace(cut);
    const auto expected = bytesOf(renderer, d.scene);
    d.texture->replace(whole);
    EXPECT_NE(bytesOf(renderer, d.scene), expected);
    d.texture->replace(whole, part);
    EXPECT_EQ(bytesOf(renderer, d.scene), expected);
}

// Fine stripes, shrunk far below a pixel, give their mean light and no pattern.
TEST(Renderer, AveragesLightWhereATextureIsTooFine) {
    auto bitmap = std::make_shared<imaging::Bitmap>(imaging::Size{1024, 1024});
    for (int y = 0; y < 1024; ++y)
        for (int x = 0; x < 4096; ++x) bitmap->view().row(y)[x] = x % 4 == 3 || (x / 4 + y) % 2 ? 255 : 0;
    Scene scene{Entity::make(), cameraAt(3, 40), {}};
    EntityRef screen = entityOf(quad(1, 1), Unlit{"", {}, std::make_shared<Texture>(bitmap), {}});
    scene.root->add(screen);
    Renderer renderer;
    for (const double yawDeg : {0.0, 60.0, 80.0}) {
        screen->transform.orientation = Rotation::about({0, 1, 0}, yawDeg);
        for (const TextureDetail detail : {TextureDetail::fine, TextureDetail::quick})
            for (const Pixel& p : linear(renderer, scene, {{90, 90}, Samples::four, detail}).pixels)
                if (p[3] == 1) {
                    ASSERT_NEAR(p[1], 0.5, 0.01) << yawDeg;
                }
    }
}

TEST(Renderer, RefusesWhatItCannotDraw) {
    Renderer renderer;
    const Device d = turned(0);
    EXPECT_THROW(renderer.renderLinear(d.scene, {{0, 100}}), SceneError);
    EXPECT_THROW(renderer.renderLinear(d.scene, {{100, 8193}}), SceneError);
    EXPECT_THROW(renderer.renderLinear({d.scene.root, nullptr, {}}, smallPass), SceneError);
    EXPECT_TRUE(renderer.renderLinear({Entity::make(), d.scene.camera, {}}, smallPass).region.isEmpty());
}

// Frozen pictures as means of 12 x 12 pixels. After a wanted change of the look: run with
// TAVIX_ACCEPT_GOLDEN=1 and look at a full picture before committing what it writes.
TEST(Renderer, LooksAsItDid) {
    Renderer renderer;
    for (const int yawDeg : {-30, 90, 200}) {
        const Picture picture = linear(renderer, turned(yawDeg).scene, smallPass);
        const std::string path = testsupport::inSourceTree(
            "Packages/TavixPlatform/Scene3D/Tests/Data/device-" + std::to_string(yawDeg) + ".txt")
                                     .string();
        std::vector<float> means;
        for (int by = 0; by < 192 / 12; ++by)
            for (int bx = 0; bx < 108 / 12; ++bx)
                for (std::size_t c = 0; c < 4; ++c) {
                    float sum = 0;
                    for (int i = 0; i < 144; ++i)
                        sum += std::min(picture.at(12 * bx + i % 12, 12 * by + i / 12)[c], 2.0f);
                    means.push_back(sum / 144);
                }
        if (std::getenv("TAVIX_ACCEPT_GOLDEN")) {
            std::ofstream out(path);
            for (std::size_t i = 0; i < means.size(); ++i) out << means[i] << (i % 4 == 3 ? "\n" : " ");
        }
        std::ifstream golden(path);
        for (const float mean : means) {
            float expected = -1;
            golden >> expected;
            ASSERT_NEAR(mean, expected, 0.01) << path;
        }
    }
}

}   // namespace
}   // namespace tavix::scene3d
