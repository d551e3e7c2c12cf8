#include "TavixCore/Choreography/DeviceMotionExpander.h"

#include "TavixCore/Choreography/DeviceMotionRecipes.h"
#include "TavixCore/Choreography/DeviceMotionReferenceCatalog.h"
#include "TavixCore/Document/CompositionSpec.h"

#include <variant>

namespace tavix::DeviceMotionExpander {
namespace {

// Before it is moved aside or delayed.
DeviceMotion base(const std::string& name, const DeviceMotionParams& params) {
    if (const auto recipe = DeviceMotionRecipes::recipe(name)) {
        const MotionScript script = recipe(params.intensity, signOf(params.direction));
        return script.play(params.durationSec ? *params.durationSec / script.naturalSec : 1);
    }
    if (name != "riseYaw360NoBlur") return DeviceMotionReferenceCatalog::expand(name, params);
    DeviceMotion sharp = DeviceMotionReferenceCatalog::expand("rise-yaw360", params);
    sharp.scene3D.motionBlur = 0;
    return sharp;
}

}   // namespace

DeviceMotion expand(const DeviceMotionPreset& preset, const DeviceMotionParams& params) {
    return base(preset.rawValue(), params)
        .anchored(params.anchorX, params.faceInwardDeg)
        .delayed(params.startAtSec);
}

void bake(CompositionSpec& spec) {
    for (CompositionScene& scene : spec.scenes)
        for (CompositionLayer& layer : scene.layers) {
            auto* const device = std::get_if<DeviceContent>(&layer.content);
            if (!device || !device->motionPreset) continue;
            expand(device->motionPreset->preset, device->motionPreset->params).apply(scene, layer);
            device->motionPreset.reset();
            if (layer.origin.baked == LayerOrigin::Baked::nothing)
                layer.origin.baked = LayerOrigin::Baked::motion;
        }
}

}   // namespace tavix::DeviceMotionExpander
