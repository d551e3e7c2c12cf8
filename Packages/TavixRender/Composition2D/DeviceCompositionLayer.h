// The flat device: a picture of its frame with a screen behind the hole, moved along its trajectory.
#pragma once

#include "TavixCore/Device/DeviceContent.h"
#include "TavixCore/Device/DevicePlacementTrajectory.h"
#include "TavixCore/Geometry/CameraFrameTransform.h"
#include "TavixRender/Composition2D/CompositionLayerContentRenderer.h"
#include "TavixRender/Composition2D/LayerBuild.h"
#include "TavixRender/Composition2D/SequentialClipReader.h"
#include "TavixRender/Compositor/DeviceFrame.h"

#include <vector>

namespace tavix {

class DeviceCompositionLayer final : public CompositionLayerContentRenderer {
public:
    DeviceCompositionLayer(
        const DeviceContent& content, const CompositionLayer& layer, const LayerBuild& build);
    std::optional<imaging::Image> contentImage(double localSec) override;
    void rest() override {
        if (clip_) clip_->rest();
    }

private:
    void openScreen(const ScreenSource& source, const LayerBuild& build);
    void bake(double magnification, imaging::Evaluator& evaluator);
    imaging::Image screenAt(
        const imaging::Image& screen, const CameraFrameTransform& move, double opacity) const;

    imaging::Rect bounds_;   // of the canvas
    CanvasDrawing::FittedDevice device_;
    std::vector<CompositionKeyframe> screenFade_;
    DevicePlacementTrajectory trajectory_;
    std::optional<imaging::Image> stillUnit_;   // screen and bezel in one, where nothing between them changes
    std::optional<imaging::Image> stillScreen_;   // a still that fades
    std::optional<SequentialClipReader> clip_;    // or a recording, whose last frame stays on
};

}   // namespace tavix
