#include "TavixLive/Model/Overscan.h"

#include <algorithm>
#include <utility>

namespace tavix {

namespace {

constexpr double noOverscan = 0.999;

}   // namespace

DevicePlacementSpec overscanned(DevicePlacementSpec placement, double overscan) {
    if (overscan >= noOverscan) return placement;
    for (DevicePlacementKeyframe& keyframe : placement.track) {
        keyframe.offset.x *= overscan;
        keyframe.offset.y *= overscan;
        keyframe.scale = std::max(keyframe.scale * overscan, leastPlacementScale);
    }
    return placement;
}

std::shared_ptr<const CompositionSpec> overscanned(
    const std::shared_ptr<const EditState>& edited, double overscan) {
    if (overscan >= noOverscan) return {edited, &edited->spec};
    auto shown = std::make_shared<CompositionSpec>(edited->spec);
    for (CompositionScene& scene : shown->scenes)
        for (CompositionLayer& layer : scene.layers)
            if (auto* device = std::get_if<DeviceContent>(&layer.content); device && device->placement)
                device->placement = overscanned(std::move(*device->placement), overscan);
    return shown;
}

}   // namespace tavix
