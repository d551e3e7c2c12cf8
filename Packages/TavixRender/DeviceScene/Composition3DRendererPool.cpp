#include "TavixRender/DeviceScene/Composition3DRendererPool.h"

#include "TavixCore/Device/DeviceScene.h"
#include "TavixRender/DeviceScene/DeviceSceneRenderer.h"

#include <utility>
#include <vector>

namespace tavix {

Composition3DRendererPool::Renderer Composition3DRendererPool::checkout(
    const Key& key, const Invariants& invariants) {
    const std::lock_guard lock(mutex_);
    const auto entry = entries_.find(key);
    if (entry == entries_.end()) return nullptr;
    if (entry->second.invariants == invariants) return entry->second.renderer;
    entries_.erase(entry);
    return nullptr;
}

void Composition3DRendererPool::store(const Key& key, const Invariants& invariants, Renderer renderer) {
    const std::lock_guard lock(mutex_);
    entries_.insert_or_assign(key, Entry{invariants, std::move(renderer)});
}

void Composition3DRendererPool::removeAll() {
    const std::lock_guard lock(mutex_);
    entries_.clear();
}

void Composition3DRendererPool::liveApply(
    const Key& key, const DeviceScene3D& scene3D, const std::optional<DevicePlacementSpec>& placement) {
    Renderer renderer;
    {
        const std::lock_guard lock(mutex_);
        const auto entry = entries_.find(key);
        if (entry == entries_.end()) return;
        renderer = entry->second.renderer;
    }
    renderer->applyScene(scene3D.asDeviceScene(), placement, scene3D.motionBlur, scene3D.depthTrack);
}

void Composition3DRendererPool::setLiveMode(bool isOn) {
    std::vector<Renderer> renderers;
    {
        const std::lock_guard lock(mutex_);
        for (const auto& [key, entry] : entries_) renderers.push_back(entry.renderer);
    }
    for (const Renderer& renderer : renderers) renderer->setLiveMode(isOn);
}

}   // namespace tavix
