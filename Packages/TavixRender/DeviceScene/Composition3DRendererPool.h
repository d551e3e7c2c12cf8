// Keeps the stages of 3D layers from one build of a document to the next, since a stage takes long to set up.
#pragma once

#include "TavixCore/Device/DeviceFinish.h"
#include "TavixCore/Device/DevicePlacement.h"
#include "TavixPlatform/Imaging/Geometry.h"

#include <compare>
#include <cstddef>
#include <map>
#include <memory>
#include <mutex>
#include <optional>

namespace tavix {

class DeviceSceneRenderer;
struct DeviceScene3D;

// The pool itself may be reached from any thread. What it hands out is used by one thread at a time, and so
// are `liveApply` and `setLiveMode`.
class Composition3DRendererPool {
public:
    // A layer's stage, shared with the layer that draws through it.
    using Renderer = std::shared_ptr<DeviceSceneRenderer>;

    // The place of a layer in its document: the indices of its scene and of the layer within it. An id would
    // not do, since nothing keeps two layers from having the same one.
    struct Key {
        std::size_t scene = 0, layer = 0;
        auto operator<=>(const Key&) const = default;
    };
    // All that the building of a stage fixes for good; everything else can be applied to it later.
    struct Invariants {
        double canvasW = 0, canvasH = 0;   // pixels of the pass
        double fps = 0;
        imaging::Rect deviceRect;
        DeviceFinish finish = DeviceFinish::silver;
        bool operator==(const Invariants&) const = default;
    };

    // Nothing when there is none that fits; one that does not fit any more is given up.
    Renderer checkout(const Key& key, const Invariants& invariants);
    void store(const Key& key, const Invariants& invariants, Renderer renderer);
    void removeAll();

    // Shows a change at once, without building anything. Does nothing when the key is not known.
    void liveApply(
        const Key& key, const DeviceScene3D& scene3D, const std::optional<DevicePlacementSpec>& placement);
    // While it is on, screens are not brought up to date at a time that they have been shown at already.
    void setLiveMode(bool isOn);

private:
    struct Entry {
        Invariants invariants;
        Renderer renderer;
    };
    std::mutex mutex_;
    std::map<Key, Entry> entries_;
};

}   // namespace tavix
