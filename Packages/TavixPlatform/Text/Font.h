// A font: one face at one size, perhaps with its variable axes moved.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavix::text {

// Distances from the baseline in pixels; all are positive.
struct FontMetrics {
    double ascentPx = 0, descentPx = 0, leadingPx = 0;
    bool operator==(const FontMetrics&) const = default;
};

// An axis of a variable font; the tag is its four letters, the first in the highest byte.
struct VariationAxis {
    std::uint32_t tag = 0;
    double minimum = 0, standard = 0, maximum = 0;
    bool operator==(const VariationAxis&) const = default;
};

inline constexpr std::uint32_t weightAxis = 0x77676874;   // "wght"

struct FontData;   // known to this library alone

// Immutable and cheap to copy. Safe on every thread, and usable after its `FontBook` has gone.
class Font {
public:
    const std::string& familyName() const;
    const std::string& postScriptName() const;
    double sizePx() const;
    FontMetrics metrics() const;
    bool isItalic() const;
    // On the scale of font traits: -1 the lightest there can be, 0 regular, 0.4 bold, 1 the heaviest.
    double weightTrait() const;

    const std::vector<VariationAxis>& variationAxes() const;   // none for a font that does not vary
    // The same face with an axis moved, limited to what the axis allows; nothing where there is no such axis.
    std::optional<Font> withVariation(std::uint32_t axisTag, double value) const;
    // The face of the same family, slope and width whose weight is nearest to the wanted one.
    Font withWeightTrait(double trait) const;

    explicit Font(std::shared_ptr<const FontData> data) : data_(std::move(data)) {}
    const FontData& data() const { return *data_; }

private:
    std::shared_ptr<const FontData> data_;
};

}   // namespace tavix::text
