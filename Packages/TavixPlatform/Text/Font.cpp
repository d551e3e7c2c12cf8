#include "TavixPlatform/Text/FontCore.h"

#include <algorithm>

namespace tavix::text {

const std::string& Font::familyName() const { return data_->face->family; }
const std::string& Font::postScriptName() const { return data_->face->postScriptName; }
double Font::sizePx() const { return data_->sizePx; }
FontMetrics Font::metrics() const { return data_->core->metrics(*data_); }
bool Font::isItalic() const { return data_->face->isItalic; }
const std::vector<VariationAxis>& Font::variationAxes() const { return data_->core->axes(*data_); }

double Font::weightTrait() const {
    const auto moved = data_->variations.find(weightAxis);
    return traitOfWeight(moved == data_->variations.end() ? data_->face->weight : moved->second);
}

std::optional<Font> Font::withVariation(std::uint32_t axisTag, double value) const {
    const std::vector<VariationAxis>& axes = variationAxes();
    const auto axis = std::ranges::find(axes, axisTag, &VariationAxis::tag);
    if (axis == axes.end()) return std::nullopt;
    auto variations = data_->variations;
    variations[axisTag] = std::clamp(value, axis->minimum, axis->maximum);
    const std::lock_guard lock(data_->core->mutex);
    return data_->core->fontOf(data_->faceNumber, data_->sizePx, std::move(variations));
}

Font Font::withWeightTrait(double trait) const {
    const std::lock_guard lock(data_->core->mutex);
    const auto face = data_->core->nearestInFamily(*data_->face, weightOfTrait(trait));
    return !face || *face == data_->faceNumber ? *this : data_->core->fontOf(*face, data_->sizePx, {});
}

}   // namespace tavix::text
