// The device as a model in space: its still or clip on the screen of a lit phone.
#pragma once

#include "TavixCore/Device/DeviceContent.h"
#include "TavixRender/Composition2D/CompositionLayerContentRenderer.h"
#include "TavixRender/Composition2D/LayerBuild.h"
#include "TavixRender/Composition2D/ScreenShelf.h"
#include "TavixRender/DeviceScene/Composition3DRendererPool.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace tavix {

class DeviceSceneRenderer;

class Device3DCompositionLayer final : public CompositionLayerContentRenderer {
public:
    // Nothing when there is no model to draw. The stage is that of the build's pool under the key, when there
    // is one that fits, and draws for a preview; without a pool the layer has its own, which draws fully.
    static std::unique_ptr<Device3DCompositionLayer> make(
        const DeviceContent& content, const LayerBuild& build, const Composition3DRendererPool::Key& poolKey);
    // Whether `make` would give a layer.
    static bool canMake(const DeviceContent& content);
    bool hasDevicesInSpace() const override { return true; }
    std::optional<imaging::Image> contentImage(double localSec) override;
    bool prepare() override;
    void rest() override;
    void takenOver() override;

    // While it is on, the screen may lag behind: a clip is decoded roughly, and not for every step.
    void setScrubQuality(bool isOn) override { scrubQuality_ = isOn; }
    // While it is on, the device is drawn with every other pixel.
    void setRough(bool isOn) override { isRough_ = isOn; }

private:
    struct HeldScreen {
        imaging::Image fitted;
        double sec;
    };
    struct DrawnFrame {
        Digest hash;
        imaging::Image image;
    };

    Device3DCompositionLayer(const DeviceContent& content, const LayerBuild& build);
    std::optional<imaging::Image> screenAt(double localSec);
    struct Stages;
    void logStages(double localSec, const Stages& took) const;

    imaging::Evaluator& evaluator_;
    RenderLog log_;
    struct Shelf {
        Composition3DRendererPool* pool;
        Composition3DRendererPool::Key key;
        Composition3DRendererPool::Invariants invariants;
    };
    std::optional<Shelf> shelf_;   // of a preview
    imaging::Rect bounds_;         // of the canvas
    DeviceScene3D scene3D_;
    std::optional<DevicePlacementSpec> placement_;
    std::shared_ptr<ScreenPictures> screen_;
    double screenAspect_ = 1;                         // width by height
    std::shared_ptr<DeviceSceneRenderer> renderer_;   // shared with the pool
    bool needsApplyScene_ = false;   // it holds other values: those of another build, or of a drag
    std::uint64_t appliedVersion_ =
        0;   // of the renderer's scene, when it last held the values of this layer
    bool scrubQuality_ = false, isRough_ = false;
    std::optional<HeldScreen> heldScreen_;
    std::optional<DrawnFrame> lastFrame_;
};

// Cuts the middle of a picture to an aspect of width by height, and moves it to the origin. One that has that
// aspect nearly stays as it is.
imaging::Image coverCrop(const imaging::Image& image, double aspect);

}   // namespace tavix
