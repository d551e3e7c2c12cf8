#include "TavixRender/Judge/ContentShape.h"

#include "TavixRender/Composition2D/CompositionSourceCrop.h"
#include "TavixRender/Composition2D/ImageCompositionLayer.h"
#include "TavixRender/Composition2D/VideoCompositionLayer.h"
#include "TavixRender/Compositor/CanvasDrawing.h"

#include <algorithm>

namespace tavix {
namespace {

using imaging::Rect;

constexpr double opaqueAlpha = 0.999;
constexpr double ellipseCornerFraction = 0.5;

bool isOpaque(const LinearGradient& gradient) {
    return std::ranges::all_of(
        gradient.stops, [](const GradientStop& stop) { return stop.color.a >= opaqueAlpha; });
}

class StillShape final : public ContentGeometry {
public:
    explicit StillShape(ContentShape shape) : shape_(std::move(shape)) {}
    ContentShape at(double) const override { return shape_; }

private:
    ContentShape shape_;
};

std::unique_ptr<ContentGeometry> still(const Outline& outline, bool isSolid, Paint paint = {}) {
    ContentShape shape;   // of nothing, where it has no size
    if (!outline.isEmpty()) shape = {{outline}, 1, isSolid ? outline : Outline(), std::move(paint)};
    return std::make_unique<StillShape>(std::move(shape));
}

struct Maker {
    const CompositionLayer& layer;
    const LayerPosition& position;
    const ShapeSetting& setting;

    using Made = std::unique_ptr<ContentGeometry>;

    Made operator()(const BackgroundFill& fill) const {
        const Outline all = Outline::of(setting.canvas);
        if (const auto* color = std::get_if<RGBAColor>(&fill))
            return still(all, color->a >= opaqueAlpha, *color);
        if (const auto* gradient = std::get_if<LinearGradient>(&fill))
            return still(all, isOpaque(*gradient), *gradient);
        const auto& path = std::get<BackgroundImage>(fill).path;
        const bool isOwn = path && !path->empty();
        const auto& header = isOwn ? setting.assets.still(*path).header : std::nullopt;
        return still(all, !isOwn || !header || header->isOpaque);   // what is missing shows the product's own
    }
    Made operator()(const ShapeContent& shape) const {
        const double width = shape.widthFraction * setting.canvas.width,
                     height = shape.heightFraction * setting.canvas.height;
        const double corner =
            shape.shape == ShapeKind::ellipse ? ellipseCornerFraction : shape.cornerRadiusFraction;
        const Outline outline = Outline::ofRounded(
            flipped({layer.position.x - width / 2, layer.position.y - height / 2, width, height}),
            std::min(width, height) * corner);
        const bool isSharp = !(shape.blurRadiusFraction > 0);
        if (const auto* color = std::get_if<RGBAColor>(&shape.fill))
            return still(outline, isSharp && color->a >= opaqueAlpha, isSharp ? Paint(*color) : Paint());
        const auto& gradient = std::get<LinearGradient>(shape.fill);
        return still(outline, isSharp && isOpaque(gradient), isSharp ? Paint(gradient) : Paint());
    }
    Made operator()(const ImageContent& image) const {
        const auto& header = setting.assets.still(image.path).header;
        if (!header) return nullptr;
        const Rect source = sourceOf(header->size, image.sourceRect);
        const PixelRect target =
            ImageCompositionLayer::target(source, image, layer.position, setting.canvas.height);
        return still(Outline::ofRounded(
                         flipped(target), std::min(target.width, target.height) * image.cornerRadiusFraction),
            header->isOpaque);
    }
    Made operator()(const VideoContent& video) const {
        const auto& size = setting.assets.clip(video.clip.path).size;
        if (!size) return nullptr;
        const VideoCompositionLayer::Place place =
            VideoCompositionLayer::placeOf(video, sourceOf(*size, video.sourceRect), setting.canvas);
        const Rect target = flipped(place.target), shown = flipped(place.shown);
        const double radius = std::min(target.width, target.height) * video.cornerRadiusFraction;
        if (video.fit == VideoFit::cover) return still(Outline::ofRounded(target, radius), true);
        return still(Outline::ofRounded(target, radius).cut(shown), true);
    }
    Made operator()(const TextContent& text) const { return textGeometry(text, layer, position, setting); }
    Made operator()(const DeviceContent& device) const {
        if (device.scene3D)
            if (auto inSpace = spaceDeviceGeometry(device, setting)) return inSpace;
        return flatDeviceGeometry(device, setting);
    }

    Rect flipped(const PixelRect& rect) const { return CanvasDrawing::flipped(rect, setting.canvas); }
    // Crops round outward to whole pixels.
    static Rect sourceOf(imaging::Size size, const std::optional<NormalizedRect>& part) {
        const Rect all{0, 0, double(size.width), double(size.height)};
        return part ? CompositionSourceCrop::partOf(all, *part) : all;
    }
};

}   // namespace

std::unique_ptr<ContentGeometry> geometryOf(
    const CompositionLayer& layer, const LayerPosition& position, const ShapeSetting& setting) {
    return std::visit(Maker{layer, position, setting}, layer.content);
}

}   // namespace tavix
