#include "TavixLive/Stage/StageDocument.h"

#include "TavixRender/Assets/CompositionAssets.h"
#include "TavixRender/Assets/StillImageCache.h"
#include "TavixRender/Composition2D/CompositionSourceCrop.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TavixRender/Export/ExportGeometry.h"

#include <algorithm>
#include <cmath>
#include <variant>

namespace tavix {

imaging::Size stageSize(imaging::Size canvas, imaging::Size room) {
    constexpr int leastSidePx = 2;
    if (canvas.width <= 0 || canvas.height <= 0) return canvas;
    const double scale =
        std::min({double(room.width) / canvas.width, double(room.height) / canvas.height, 1.0});
    const auto side = [&](int px) {
        return std::max(int(std::lround(px * scale)), std::min(leastSidePx, px));
    };
    return {side(canvas.width), side(canvas.height)};
}

CompositionSpec stageDocument(const CompositionSpec& spec, imaging::Size size,
    const std::optional<std::filesystem::path>& assetRoot, StillImageCache& images) {
    if (size == canvasSize(spec)) return spec;
    CompositionSpec scaled = scaledExportSpec(spec, size, spec.output.fps);
    for (CompositionScene& scene : scaled.scenes)
        for (CompositionLayer& layer : scene.layers) {
            auto* image = std::get_if<ImageContent>(&layer.content);
            if (image == nullptr || image->heightFraction) continue;
            const auto picture = images.size(CompositionAssets::resolved(image->path, assetRoot));
            if (!picture) continue;
            const imaging::Rect all{0, 0, double(picture->width), double(picture->height)};
            const imaging::Rect shown =
                image->sourceRect ? CompositionSourceCrop::partOf(all, *image->sourceRect) : all;
            image->heightFraction = shown.height / double(spec.output.heightPx);
        }
    return scaled;
}

}   // namespace tavix
