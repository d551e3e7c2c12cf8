// What the devices of a film are drawn with, one after another.
#pragma once

#include "TavixBase/Digest.h"
#include "TavixPlatform/Imaging/BytePool.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Scene3D/Renderer.h"
#include "TavixPlatform/Scene3D/Texture.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tavix {

// What is on a screen, for all devices that show it.
struct DeviceScreen {
    scene3d::TextureRef texture = std::make_shared<scene3d::Texture>();
    std::optional<Digest> picture;
};

// Shared, mutable: three phones of a scene need the memory and the threads of one. Used by one
// thread at a time.
struct DeviceDarkroom {
    explicit DeviceDarkroom(const scene3d::RendererOptions& options = {}) : engine(options) {}

    // The screen becomes one with that picture: another device's, or this one or another, with the picture on
    // it that is drawn. What drawing throws passes through, and the screen stays as it was.
    using ScreenRef = std::shared_ptr<DeviceScreen>;
    void show(ScreenRef& screen, const Digest& picture, const std::function<imaging::BitmapPart()>& draw);

    // What the passes of a frame of 1080 x 1920 take.
    static constexpr std::size_t mostIdleBytes = 16u << 20;

    scene3d::Renderer engine;
    // Of pictures of the passes, which come and go with frames.
    std::shared_ptr<imaging::BytePool> pictures = std::make_shared<imaging::BytePool>(mostIdleBytes);

private:
    std::vector<std::weak_ptr<DeviceScreen>> screens_;
    ScreenRef spare_;   // its memory serves the next picture
};

}   // namespace tavix
