// Keeps the stages of 3D layers from one build of a document to the next, since a stage takes long to set up.
#pragma once

#include "TavixCore/Device/DeviceFinish.h"
#include "TavixCore/Device/DevicePlacement.h"
#include "TavixPlatform/Imaging/Geometry.h"

#include <cstddef>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace tavix {

class RealityDeviceSceneRenderer;
struct DeviceScene3D;

// The pool itself may be reached from any thread. What it hands out is used by the main executor alone, and
// so are `liveApply` and `setLiveMode`.
class Composition3DRendererPool {
public:
    // A layer's stage, shared with the layer that draws through it.
    using Renderer = std::shared_ptr<RealityDeviceSceneRenderer>;

    // All that the building of a stage fixes for good; everything else can be applied to it later.
    struct Invariants {
        double canvasW = 0, canvasH = 0;   // pixels of the pass
        double fps = 0;
        imaging::Rect deviceRect;
        DeviceFinish finish = DeviceFinish::silver;
        bool operator==(const Invariants&) const = default;
    };

    // Under which the layer of a scene is kept: its id, or its index in the document.
    static std::string key(std::size_t scene, std::size_t layer, const std::optional<std::string>& id);

    // Nothing when there is none that fits; one that does not fit any more is given up.
    Renderer checkout(const std::string& key, const Invariants& invariants);
    void store(const std::string& key, const Invariants& invariants, Renderer renderer);
    void removeAll();

    // Shows a change at once, without building anything. Does nothing when the key is not known.
    void liveApply(const std::string& key, const DeviceScene3D& scene3D,
        const std::optional<DevicePlacementSpec>& placement);
    // While it is on, screens are not brought up to date at a time that they have been shown at already.
    void setLiveMode(bool isOn);

private:
    struct Entry {
        Invariants invariants;
        Renderer renderer;
    };
    std::mutex mutex_;
    std::map<std::string, Entry> entries_;
};

}   // namespace tavix
