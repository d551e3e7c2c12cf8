#include "TavixPlatform/Imaging/Evaluator.h"

#include "TavixPlatform/Imaging/Nodes/Nodes.h"

#include <cstring>

namespace tavix::imaging {

namespace {

Bitmap cutOut(const Bitmap& source, const PixelRegion& fromTopLeft) {
    Bitmap part = Bitmap::uninitialised({fromTopLeft.width(), fromTopLeft.height()});
    for (int y = 0; y < fromTopLeft.height(); ++y)
        std::memcpy(part.view().row(y), source.view().row(fromTopLeft.y0 + y) + fromTopLeft.x0 * 4,
            std::size_t(fromTopLeft.width()) * 4);
    part.indexCoverage();
    return part;
}

}   // namespace

Evaluator::Evaluator(const EvaluatorOptions& options) : impl_(std::make_unique<Impl>(options)) {}
Evaluator::~Evaluator() = default;
Evaluator::Evaluator(Evaluator&&) noexcept = default;
Evaluator& Evaluator::operator=(Evaluator&&) noexcept = default;

Bitmap Evaluator::draw(const Image& image, const PixelRegion& region) {
    Bitmap bitmap = Bitmap::uninitialised({region.width(), region.height()});
    if (bitmap.isEmpty()) return bitmap;
    impl_->context.drawInto(image.node(), Tile::of(bitmap.view(), region));
    bitmap.indexCoverage();
    return bitmap;
}

Image Evaluator::baked(const Image& image, const PixelRegion& bounds) {
    const PixelRegion region = intersection(image.node()->support(), bounds);
    if (region.isEmpty() || asBitmap(*image.node())) return region.isEmpty() ? Image() : image;
    auto bitmap = std::make_shared<Bitmap>(draw(image, region));
    impl_->context.cache().endFrame();                         // what it was made of is not needed again
    PixelRegion kept{0, 0, region.width(), region.height()};   // from the top left
    if (const PixelRegion ink = bitmap->inkBounds();
        ink.width() < region.width() / 2 || ink.height() < region.height() / 2) {
        bitmap = std::make_shared<Bitmap>(cutOut(*bitmap, ink));   // the rest would only take memory
        kept = ink;
    }
    return Image(makeBitmap(bitmap, region.x0 + kept.x0, region.y1 - kept.y1, image.extent()));
}

Image Evaluator::drawnForFrame(const Image& image, const PixelRegion& bounds) {
    const PixelRegion region = intersection(image.node()->support(), bounds);
    if (region.isEmpty()) return Image();
    const auto bitmap = std::make_shared<Bitmap>(
        Bitmap::uninitialised({region.width(), region.height()}, impl_->context.pool()));
    impl_->context.drawInto(image.node(), Tile::of(bitmap->view(), region));
    bitmap->indexCoverage();
    return Image(makeBitmap(bitmap, region.x0, region.y0, image.extent()));
}

BitmapPart Evaluator::opaquePixels(const Image& image, const PixelRegion& region) {
    if (region.isEmpty()) return {};
    if (const Picture* picture = asBitmap(*insideCropping(image.node()));
        picture && image.node()->isOpaque(region)) {
        const PixelRegion& all = picture->region;
        return {picture->bitmap,
            {region.x0 - all.x0, all.y1 - region.y1, region.x1 - all.x0, all.y1 - region.y0}};
    }
    const auto bitmap = std::make_shared<Bitmap>(
        Bitmap::uninitialised({region.width(), region.height()}, impl_->context.pool()));
    const Image opaque = image.over(Image::solid(Color::black()).cropped(region.rect()));
    impl_->context.drawInto(opaque.node(), Tile::of(bitmap->view(), region));
    return {bitmap, {0, 0, region.width(), region.height()}};
}

}   // namespace tavix::imaging
