// What the devices of a film are drawn with, one after another.
#pragma once

#include "TavixPlatform/Imaging/BytePool.h"
#include "TavixPlatform/Scene3D/Renderer.h"

#include <cstddef>
#include <memory>

namespace tavix {

// Shared, mutable: three phones of a scene need the memory and the threads of one. Used by one
// thread at a time.
struct DeviceDarkroom {
    explicit DeviceDarkroom(const scene3d::RendererOptions& options = {}) : engine(options) {}

    // What the passes of a frame of 1080 x 1920 take.
    static constexpr std::size_t mostIdleBytes = 16u << 20;

    scene3d::Renderer engine;
    // Of pictures of the passes, which come and go with frames.
    std::shared_ptr<imaging::BytePool> pictures = std::make_shared<imaging::BytePool>(mostIdleBytes);
};

}   // namespace tavix
