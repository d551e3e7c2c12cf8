#include "TavixCore/Typography/EmphasisResolver.h"

#include "TavixCore/Theme/BrandKit.h"
#include "TavixCore/Theme/CaptionStyle.h"
#include "TavixCore/Values/ColorMixing.h"

#include <cmath>

namespace tavix::EmphasisResolver {

namespace {

RGBAColor accentFor(
    const CaptionStyle& style, const BrandKit* brand, std::optional<double> backgroundLuminance) {
    constexpr double leastFromText = 0.25, shareOffText = 0.35;
    constexpr double leastFromBackground = 0.35, shareOffBackground = 0.45;
    RGBAColor accent = brand ? brand->accent : defaultAccent;
    const double text = luminance(style.textColor);
    if (std::abs(luminance(accent) - text) < leastFromText)
        accent = movedTowards(accent, text < 0.5 ? RGBAColor::white : RGBAColor::black, shareOffText);
    if (backgroundLuminance && std::abs(luminance(accent) - *backgroundLuminance) < leastFromBackground)
        accent = movedTowards(
            accent, *backgroundLuminance > 0.5 ? RGBAColor::black : RGBAColor::white, shareOffBackground);
    return accent;
}

double popOf(KineticIntensity intensity) {
    switch (intensity) {
    case KineticIntensity::low: return 1.08;
    case KineticIntensity::medium: return 1.12;
    case KineticIntensity::high: return 1.18;
    }
    return 1;
}

}   // namespace

EmphasisStyle resolve(EmphasisToken token, const CaptionStyle& style, const BrandKit* brand,
    KineticIntensity intensity, std::optional<double> backgroundLuminance) {
    constexpr double markerOpacity = 0.92;
    constexpr RGBAColor ink{0.06, 0.06, 0.08, 1};
    const RGBAColor accent = accentFor(style, brand, backgroundLuminance);
    const FontWeight heavier = oneStepHeavier(style.fontWeight.value_or(FontWeight::semibold));
    switch (token) {
    case EmphasisToken::accent:
        return {.textColor = accent, .scale = {}, .fontWeight = heavier, .highlightColor = {}};
    case EmphasisToken::scalePop:
        return {.textColor = {}, .scale = popOf(intensity), .fontWeight = heavier, .highlightColor = {}};
    case EmphasisToken::highlight:
        // What is written on the marker has to be read.
        return {.textColor = luminance(accent) > 0.5 ? ink : RGBAColor::white,
            .scale = {},
            .fontWeight = {},
            .highlightColor = RGBAColor{accent.r, accent.g, accent.b, markerOpacity}};
    }
    return {};
}

}   // namespace tavix::EmphasisResolver
