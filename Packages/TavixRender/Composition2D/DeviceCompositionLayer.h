// The flat device: a picture of its frame with a screen behind the hole, moved along its trajectory.
#pragma once

#include "TavixCore/Device/DeviceContent.h"
#include "TavixCore/Device/DevicePlacementTrajectory.h"
#include "TavixCore/Geometry/CameraFrameTransform.h"
#include "TavixRender/Composition2D/CompositionLayerContentRenderer.h"
#include "TavixRender/Composition2D/LayerBuild.h"
#include "TavixRender/Composition2D/ScreenShelf.h"
#include "TavixRender/Compositor/BezelShelf.h"

#include <memory>
#include <optional>
#include <vector>

namespace tavix {

class DeviceCompositionLayer final : public CompositionLayerContentRenderer {
public:
    DeviceCompositionLayer(
        const DeviceContent& content, const CompositionLayer& layer, const LayerBuild& build);
    std::optional<imaging::Image> contentImage(double localSec) override;
    bool prepare() override { return screen_ && screen_->open(); }
    void rest() override {
        if (screen_) screen_->rest();
    }

private:
    void bake(const CanvasDrawing::Bezel& bezel, double magnification, imaging::Evaluator& evaluator);
    imaging::Image screenAt(
        const imaging::Image& screen, const CameraFrameTransform& move, double opacity) const;

    imaging::Rect bounds_;   // of the canvas
    CanvasDrawing::FittedDevice device_;
    std::shared_ptr<ScreenPictures> screen_;   // null where the still unit has it
    std::vector<CompositionKeyframe> screenFade_;
    DevicePlacementTrajectory trajectory_;
    std::optional<imaging::Image> stillUnit_;   // screen and bezel in one, where nothing between them changes
};

}   // namespace tavix
