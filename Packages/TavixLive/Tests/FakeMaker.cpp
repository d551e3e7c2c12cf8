#include "FakeMaker.h"

#include "TavixCore/Time/CompositionTimeline.h"

#include <stdexcept>

namespace tavix::testing {

FrameSourceRef FakeMaker::source(const CompositionSpec& spec, const AssetRoot&, imaging::Size) {
    time_.spend(buildSec);
    if (fails) throw std::runtime_error("No.");
    built.push_back({spec, time_.nowSec() - buildSec});
    last =
        std::make_shared<FakeSource>(time_, int(built.size()), CompositionTimeline(spec).totalSec, drawSec);
    last->room = room;
    return last;
}

CompositionSpec smallFilm() {
    CompositionSpec spec;
    spec.output = {1080, 1920, 30};
    for (int i = 0; i < 2; ++i) {
        CompositionScene scene;
        scene.id = i == 0 ? "one" : "two";
        scene.durationSec = 3;
        CompositionLayer layer;
        layer.position = {540, 960};
        layer.content = ShapeContent{};
        scene.layers.push_back(layer);
        spec.scenes.push_back(scene);
    }
    return spec;
}

CompositionSpec smallFilmWithDevice() {
    CompositionSpec spec = smallFilm();
    DeviceContent device;
    device.screen = StillScreen{"screen.png"};
    device.scene3D.emplace();
    device.placement = DevicePlacementSpec{{{0, {0.2, 0}, 1}}};
    spec.scenes[0].layers[0].content = device;
    return spec;
}

}   // namespace tavix::testing
