#include "TavixRender/Composition2D/ScreenPictures.h"

#include "TavixBase/Overloaded.h"
#include "TavixRender/Assets/CompositionAssets.h"

#include <variant>

namespace tavix {

ScreenPictures::ScreenPictures(const ScreenSource& source, bool holdsLastFrame, const LayerBuild& build,
    const std::optional<imaging::Size>& shownPx) {
    std::optional<media::ShownBox> shown;
    if (shownPx) shown = media::ShownBox{*shownPx, build.rendererPool != nullptr};
    std::visit(Overloaded{
                   [&](const StillScreen& still) {
                       still_ = build.images.image(CompositionAssets::resolved(still.path, build.assetRoot));
                   },
                   [&](const VideoClip& clip) {
                       clip_.emplace(CompositionAssets::resolved(clip.path, build.assetRoot), clip,
                           holdsLastFrame, build.log, build.rendererPool ? build.log : RenderLog(),
                           media::VideoManner{build.decoders, shown});
                   },
                   [&](const ReelClip& reel) {
                       reel_.emplace(CompositionAssets::resolved(reel.path, build.assetRoot), build.log);
                   },
               },
        source);
}

}   // namespace tavix
