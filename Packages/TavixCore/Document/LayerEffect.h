// An image effect on a layer. A kind that is not known is kept by its name, for lint to report.
#pragma once

#include "TavixCore/Support/Tables.h"
#include "TavixCore/Values/RGBAColor.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

namespace tavix {

struct BlurEffect {
    double radiusFraction = 0.01;
    bool operator==(const BlurEffect&) const = default;
};
struct ColorControlsEffect {
    double brightness = 0, contrast = 1, saturation = 1;
    bool operator==(const ColorControlsEffect&) const = default;
};
struct TintEffect {
    RGBAColor color = RGBAColor::white;
    double intensity = 0.5;
    bool operator==(const TintEffect&) const = default;
};
struct DuotoneEffect {
    RGBAColor shadow = RGBAColor::black, highlight = RGBAColor::white;
    bool operator==(const DuotoneEffect&) const = default;
};
struct VignetteEffect {
    double intensity = 0.8, radius = 1.5;
    bool operator==(const VignetteEffect&) const = default;
};
struct GlowEffect {
    double intensity = 0.5, radiusFraction = 0.01;
    bool operator==(const GlowEffect&) const = default;
};
struct NoiseEffect {
    double amount = 0.08;
    std::int64_t seed = 0;
    bool operator==(const NoiseEffect&) const = default;
};
struct PixelateEffect {
    double scaleFraction = 0.01;
    bool operator==(const PixelateEffect&) const = default;
};
struct ChromaticAberrationEffect {
    double offsetFraction = 0.003;
    bool operator==(const ChromaticAberrationEffect&) const = default;
};
struct UnknownEffect {
    std::string kind;
    bool operator==(const UnknownEffect&) const = default;
};

using LayerEffect = std::variant<BlurEffect, ColorControlsEffect, TintEffect, DuotoneEffect, VignetteEffect,
    GlowEffect, NoiseEffect, PixelateEffect, ChromaticAberrationEffect, UnknownEffect>;

struct EffectParam {
    std::string_view name;
    double value;
    bool operator==(const EffectParam&) const = default;
};
struct EffectRange {
    std::string_view param;
    double min, max;
    bool operator==(const EffectRange&) const = default;
};

const std::vector<std::string_view>& effectKinds();   // the known ones
std::string_view kindName(const LayerEffect& effect);
std::vector<EffectParam> params(const LayerEffect& effect);   // the numeric ones
// Where the parameters of a kind are meant to lie; empty for a kind without limits and for an unknown one.
std::vector<EffectRange> legalRanges(std::string_view kind);

const Fields<BlurEffect>& fieldsOf(std::type_identity<BlurEffect>);
const Fields<ColorControlsEffect>& fieldsOf(std::type_identity<ColorControlsEffect>);
const Fields<TintEffect>& fieldsOf(std::type_identity<TintEffect>);
const Fields<DuotoneEffect>& fieldsOf(std::type_identity<DuotoneEffect>);
const Fields<VignetteEffect>& fieldsOf(std::type_identity<VignetteEffect>);
const Fields<GlowEffect>& fieldsOf(std::type_identity<GlowEffect>);
const Fields<NoiseEffect>& fieldsOf(std::type_identity<NoiseEffect>);
const Fields<PixelateEffect>& fieldsOf(std::type_identity<PixelateEffect>);
const Fields<ChromaticAberrationEffect>& fieldsOf(std::type_identity<ChromaticAberrationEffect>);
const Fields<UnknownEffect>& fieldsOf(std::type_identity<UnknownEffect>);
const Alternatives<LayerEffect>& alternativesOf(std::type_identity<LayerEffect>);

}   // namespace tavix
