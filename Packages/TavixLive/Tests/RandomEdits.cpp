#include "RandomEdits.h"

#include "TavixCore/Support/FieldTables.h"
#include "TavixLive/Operations/DeviceOperations.h"
#include "TavixLive/Operations/LayerOperations.h"
#include "TavixLive/Operations/SceneOperations.h"
#include "TavixLive/Operations/TrackOperations.h"

namespace tavix::testing {

void editAnything(EditState& state, std::mt19937& random) {
    const auto below = [&](std::size_t end) { return std::size_t(random()) % std::max<std::size_t>(end, 1); };
    const std::size_t scene = below(state.spec.scenes.size());
    const std::size_t layer = below(state.spec.scenes[scene].layers.size());
    const double part = double(random() % 1000) / 1000;
    DeviceOperations::Scene3DStash stash;
    switch (random() % 14) {
    case 0: SceneOperations::addScene(state); break;
    case 1: SceneOperations::duplicateScene(state, scene); break;
    case 2: SceneOperations::removeScene(state, scene); break;
    case 3: SceneOperations::moveScene(state, scene, below(4)); break;
    case 4: SceneOperations::setSceneDurationRescaling(state, scene, 0.5 + 5 * part); break;
    case 5: LayerOperations::addLayer(state, scene, contentKinds[below(6)].kind); break;
    case 6: LayerOperations::deleteLayer(state, scene, layer); break;
    case 7: LayerOperations::reorderLayer(state, scene, layer, below(5)); break;
    case 8: LayerOperations::setLayerContentKind(state, scene, layer, contentKinds[below(6)].kind); break;
    case 9: LayerOperations::setLayerEnd(state, scene, layer, 4 * part); break;
    case 10: TrackOperations::addTrack(state, scene, layer, allCases<AnimProperty>()[below(10)]); break;
    case 11: TrackOperations::addKeyframe(state, {scene, layer, 0}, 3 * part); break;
    case 12: {
        DeviceMotionRef ref;
        ref.preset = *DeviceMotionPreset::fromRawValue(
            DeviceMotionPreset::knownRawValues()[below(DeviceMotionPreset::knownRawValues().size())]);
        DeviceOperations::applyDeviceMotionPreset(state, scene, layer, ref);
        break;
    }
    default: DeviceOperations::setDevice3D(state, stash, scene, layer, random() % 2); break;
    }
    clampSelection(state);
}

EditState firstState() {
    EditState state;
    SceneOperations::addScene(state);
    LayerOperations::addLayer(state, 0, ContentKind::text);
    LayerOperations::addLayer(state, 0, ContentKind::device);
    return state;
}

}   // namespace tavix::testing
