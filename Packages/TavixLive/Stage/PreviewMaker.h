// Makes what a preview shows and plays out of a document.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixLive/Stage/FrameSource.h"
#include "TavixPlatform/Media/AudioTimeline.h"
#include "TavixRender/DeviceScene/Composition3DRendererPool.h"

#include <filesystem>
#include <optional>

namespace tavix {

// All but `sound` is used on the render executor.
class PreviewMaker {
public:
    using AssetRoot = std::optional<std::filesystem::path>;   // of relative paths

    virtual ~PreviewMaker() = default;
    // The document has its beats, marks and presets resolved. Gives pictures that fit into the room.
    virtual FrameSourceRef source(
        const CompositionSpec& spec, const AssetRoot& assetRoot, imaging::Size room) = 0;
    // Shows a device of the last document with other values, until the next document is built.
    virtual void liveApply(const Composition3DRendererPool::Key& key, const DeviceScene3D& scene3D,
        const std::optional<DevicePlacementSpec>& placement) = 0;
    virtual void setLiveMode(bool isOn) = 0;
    // Devices in space are set up anew for the next document.
    virtual void forgetDevices() = 0;
    // On any thread: nothing where there is nothing to be heard.
    virtual std::optional<media::AudioTimeline> sound(
        const CompositionSpec& spec, const AssetRoot& assetRoot) const = 0;
};

}   // namespace tavix
