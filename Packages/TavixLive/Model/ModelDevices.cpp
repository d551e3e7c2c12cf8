// Edits of devices that need more of the model than its document.
#include "TavixLive/Model/CompositionEditorModel.h"

#include "TavixCore/Time/CompositionTimeline.h"

namespace tavix {

void CompositionEditorModel::setDevice3D(std::size_t scene, std::size_t layer, bool isEnabled) {
    update(isEnabled ? "Show in space" : "Show flat", [&](EditState& changed) {
        DeviceOperations::setDevice3D(changed, scene3DStash_, scene, layer, isEnabled);
    });
}

void CompositionEditorModel::appendKeyframe(std::size_t scene, std::size_t layer, double extraSec) {
    std::optional<double> atSec;
    update("Add keyframe", [&](EditState& changed) {
        atSec = DeviceOperations::appendKeyframe(changed, scene, layer, extraSec);
    });
    if (!atSec) return;
    // The film is longer once it has been built.
    refreshTimer_.cancel();
    refreshNow(document_.guard([this, scene, sec = *atSec] {
        const CompositionTimeline timeline(edited().spec);
        if (scene < timeline.startSec.size()) seek(timeline.startSec[scene] + sec);
    }));
}

}   // namespace tavix
