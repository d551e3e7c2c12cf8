// A layer that plays a clip.
#pragma once

#include "TavixCore/Document/VideoContent.h"
#include "TavixCore/Values/PixelRect.h"
#include "TavixRender/Composition2D/CompositionLayerContentRenderer.h"
#include "TavixRender/Composition2D/LayerBuild.h"
#include "TavixRender/Composition2D/ScreenShelf.h"

#include <memory>

namespace tavix {

class VideoCompositionLayer final : public CompositionLayerContentRenderer {
public:
    // The layer enlarges it by up to that factor.
    VideoCompositionLayer(const VideoContent& content, const LayerBuild& build, double magnification = 1);
    std::optional<imaging::Image> contentImage(double localSec) override;
    bool prepare() override { return clip_->open(); }
    void rest() override { clip_->rest(); }

    // Where frames of that size are shown, from the top left of the canvas: the place of the layer, and the
    // whole frame about its middle.
    struct Place {
        PixelRect target, shown;
    };
    static Place placeOf(
        const VideoContent& content, const imaging::Rect& source, const imaging::Rect& bounds);

private:
    std::shared_ptr<ScreenPictures> clip_;
    VideoContent content_;
    std::optional<imaging::Image> mask_;   // of rounded corners
    imaging::Rect bounds_;
};

}   // namespace tavix
