#include "TavixRender/Judge/Screening.h"

#include "TavixRender/Export/CompositionRenderer.h"
#include "TavixRender/Export/ExportGeometry.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <variant>

namespace tavix {
namespace {

constexpr double widthPx = 384, heightPx = 288;
constexpr int mostFps = 60;

CompositionSpec withoutTexts(CompositionSpec spec) {
    for (CompositionScene& scene : spec.scenes)
        for (CompositionLayer& layer : scene.layers)
            if (std::holds_alternative<TextContent>(layer.content)) layer.opacity = 0;
    return spec;
}

}   // namespace

CompositionSpec smallFilm(const CompositionSpec& spec) {
    const imaging::Size full = canvasSize(spec);
    const double scale = std::min({1.0, widthPx / full.width, heightPx / full.height});
    const auto side = [&](int px) { return std::max(static_cast<int>(std::lround(px * scale)), 2); };
    return scaledExportSpec(
        spec, {side(full.width), side(full.height)}, std::min(spec.output.fps, FrameRate(mostFps)));
}

Screening::Screening(
    const CompositionSpec& small, const std::optional<std::filesystem::path>& assetRoot, const RenderLog& log)
    : resolved_(small, assetRoot, evaluator_, log, &stages_) {}

imaging::Bitmap Screening::drawn(const imaging::Image& image) {
    return evaluator_.draw(image, imaging::pixelsCovering(resolved_.bounds()));
}

PicturedGround::PicturedGround(
    const CompositionSpec& spec, const std::optional<std::filesystem::path>& assetRoot, const RenderLog& log)
    : small_(withoutTexts(smallFilm(spec))), canvas_{0, 0, double(spec.output.widthPx),
                                                 double(spec.output.heightPx)},
      screening_(small_, assetRoot, log) {}

FilmJudge::GroundAt PicturedGround::at(std::size_t scene, double localSec) {
    const auto picture = std::make_shared<const imaging::Bitmap>(screening_.scene(scene, localSec));
    return [picture, canvas = canvas_](imaging::Point point) -> std::optional<RGBAColor> {
        const imaging::Size size = picture->size();
        const int x = static_cast<int>(std::floor(point.x / canvas.width * size.width));
        const int y = static_cast<int>(std::floor((1 - point.y / canvas.height) * size.height));
        const std::uint8_t* pixel = picture->view().row(std::clamp(y, 0, size.height - 1)) +
                                    std::ptrdiff_t{4} * std::clamp(x, 0, size.width - 1);
        return RGBAColor{pixel[2] / 255.0, pixel[1] / 255.0, pixel[0] / 255.0, 1};
    };
}

}   // namespace tavix
