// A layer that plays a clip.
#pragma once

#include "TavixCore/Document/VideoContent.h"
#include "TavixCore/Values/PixelRect.h"
#include "TavixRender/Composition2D/CompositionLayerContentRenderer.h"
#include "TavixRender/Composition2D/LayerBuild.h"
#include "TavixRender/Composition2D/SequentialClipReader.h"

namespace tavix {

class VideoCompositionLayer final : public CompositionLayerContentRenderer {
public:
    VideoCompositionLayer(const VideoContent& content, const LayerBuild& build);
    std::optional<imaging::Image> contentImage(double localSec) override;
    void rest() override { clip_.rest(); }

private:
    SequentialClipReader clip_;
    VideoFit fit_;
    PixelRect target_;
    std::optional<imaging::Image> mask_;   // of rounded corners
    std::optional<NormalizedRect> sourceRect_;
    imaging::Rect bounds_;
};

}   // namespace tavix
