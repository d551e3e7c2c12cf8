// Any bytes give a model or a sentence; a model that was read can be drawn.
#include "TavixPlatform/Scene3D/ModelFile.h"
#include "TavixPlatform/Scene3D/Renderer.h"
#include "TavixPlatform/Scene3D/SceneError.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tavix::scene3d;
    try {
        Scene scene;
        scene.root = loadModel(std::span(data, size), "model.glb");
        scene.camera = Entity::make();
        scene.camera->camera = PerspectiveCamera{};
        scene.camera->transform.position = {0, 0, 3};
        static Renderer renderer({.threadCount = 1});
        renderer.renderLinear(scene, {{64, 64}});
    } catch (const SceneError&) {}
    return 0;
}
