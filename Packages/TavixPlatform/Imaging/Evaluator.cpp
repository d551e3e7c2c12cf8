#include "TavixPlatform/Imaging/Evaluator.h"

#include "TavixPlatform/Imaging/Nodes/Nodes.h"

namespace tavix::imaging {

Evaluator::Evaluator(const EvaluatorOptions& options) : impl_(std::make_unique<Impl>(options)) {}
Evaluator::~Evaluator() = default;
Evaluator::Evaluator(Evaluator&&) noexcept = default;
Evaluator& Evaluator::operator=(Evaluator&&) noexcept = default;

Bitmap Evaluator::draw(const Image& image, const PixelRegion& region) {
    Bitmap bitmap = Bitmap::uninitialised({region.width(), region.height()});
    if (bitmap.isEmpty()) return bitmap;
    impl_->workshop.drawInto(image.node(), Tile::of(bitmap.view(), region));
    bitmap.indexCoverage();
    return bitmap;
}

Image Evaluator::baked(const Image& image, const PixelRegion& bounds) {
    const PixelRegion region = intersection(image.node()->support(), bounds);
    if (region.isEmpty() || asBitmap(*image.node())) return region.isEmpty() ? Image() : image;
    auto bitmap = std::make_shared<Bitmap>(draw(image, region));
    return Image(makeBitmap(std::move(bitmap), region.x0, region.y0, image.extent()));
}

}   // namespace tavix::imaging
