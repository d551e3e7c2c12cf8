#include "TavixRender/Composition2D/CompositionContentSize.h"

#include "TavixRender/Assets/CompositionAssets.h"
#include "TavixRender/Composition2D/CompositionSourceCrop.h"
#include "TavixRender/Composition2D/ImageCompositionLayer.h"
#include "TavixRender/Composition2D/TextCompositionLayer.h"

namespace tavix::CompositionContentSize {

namespace {

struct Measure {
    const CompositionSpec& spec;
    std::optional<std::filesystem::path> assetRoot;
    imaging::Rect canvas{0, 0, double(spec.output.widthPx), double(spec.output.heightPx)};

    CanvasSize operator()(const TextContent& text) const {
        KineticStyle style = TextCompositionLayer::styleOf(text, 0);
        style.inPhase.color = style.outPhase.color = std::nullopt;   // at rest, colours do not matter
        const auto layout = TextCompositionLayer::layout(
            text, {canvas, {0.5, 0.5}, spec.fonts, assetRoot}, style, text::FontBook());
        if (!layout) return {};
        const imaging::Rect all = KineticTextBlock::unionRect(*layout);
        return {all.width, all.height};
    }
    CanvasSize operator()(const ImageContent& image) const {
        StillImageCache images{RenderLog()};
        const auto file = images.image(CompositionAssets::resolved(image.path, assetRoot));
        if (!file) return {};
        const imaging::Rect source = CompositionSourceCrop::apply(*file, image.sourceRect).extent();
        if (!(source.height > 0)) return {};
        const PixelRect target = ImageCompositionLayer::target(source, image, {}, canvas.height);
        return {target.width, target.height};
    }
    CanvasSize operator()(const ShapeContent& shape) const {
        return {shape.widthFraction * canvas.width, shape.heightFraction * canvas.height};
    }
    template <class Other> CanvasSize operator()(const Other&) const { return {}; }
};

}   // namespace

CanvasSize of(const CompositionLayer& layer, const CompositionSpec& spec,
    const std::optional<std::filesystem::path>& assetRoot) {
    return std::visit(Measure{spec, assetRoot}, layer.content);
}

}   // namespace tavix::CompositionContentSize
