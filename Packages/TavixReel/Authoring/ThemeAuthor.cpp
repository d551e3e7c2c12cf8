#include "TavixReel/Authoring/ThemeAuthor.h"

#include "TavixCore/Values/Clamp01.h"
#include "TavixCore/Values/ColorMixing.h"

#include <algorithm>

namespace tavix::ThemeAuthor {
namespace {

constexpr double leastSaturation = 0.1;

bool isDark(const BrandKit& brand) { return brand.appMode == BrandKit::AppMode::dark; }

}   // namespace

EffectsSpec apply(const BrandKit& brand, EffectsSpec spec) {
    spec.background.fill = canvasGradient(brand);
    spec.background.shadow.color = desaturated(brand.accent, 0.55);
    spec.brand = brand;
    if (!spec.narration) spec.narration.emplace();
    spec.narration->style = captionStyle(brand, spec.narration->style);
    return spec;
}

CaptionStyle captionStyle(const BrandKit& brand, const CaptionStyle& base) {
    CaptionStyle style = base;
    if (brand.primaryFontName) style.fontName = brand.primaryFontName;
    if (brand.primaryFontPath) style.fontPath = brand.primaryFontPath;
    style.textColor = isDark(brand) ? RGBAColor::white : RGBAColor{0.07, 0.07, 0.09, 1};
    style.barColor = isDark(brand) ? RGBAColor{0.05, 0.05, 0.07, 0.62} : RGBAColor{0.97, 0.97, 0.98, 0.78};
    return style;
}

LinearGradient canvasGradient(const BrandKit& brand) {
    const bool dark = isDark(brand);
    const RGBAColor target = dark ? RGBAColor::white : RGBAColor{0.05, 0.05, 0.08, 1};
    const RGBAColor tone = dark ? RGBAColor::white : RGBAColor::black;
    const RGBAColor base = movedTowards(brand.accent, target, dark ? 0.74 : 0.72);
    const RGBAColor second = brand.secondary.value_or(brand.accent);
    const RGBAColor lower = floorSaturation(movedTowards(base, second, 0.18), leastSaturation);
    LinearGradient gradient;
    gradient.stops = {{floorSaturation(base, leastSaturation), 0}, {movedTowards(lower, tone, 0.1), 1}};
    gradient.angleDegrees = 0;
    return gradient;
}

RGBAColor floorSaturation(const RGBAColor& color, double minSaturation) {
    const double most = std::max({color.r, color.g, color.b}), least = std::min({color.r, color.g, color.b});
    if (!(most > 0) || (most - least) / most >= minSaturation) return color;
    RGBAColor saturated = color;
    if (most == least) {
        saturated.b = std::min(color.b + minSaturation, 1.0);
        return saturated;
    }
    const double newLeast = most * (1 - minSaturation);
    const auto stretched = [&](double part) {
        return newLeast + (part - least) / (most - least) * (most - newLeast);
    };
    saturated.r = stretched(color.r);
    saturated.g = stretched(color.g);
    saturated.b = stretched(color.b);
    return saturated;
}

RGBAColor desaturated(const RGBAColor& color, double amount) {
    const double grey = luminance(color);
    return movedTowards(color, {grey, grey, grey, color.a}, KineticMath::clamp01(amount));
}

}   // namespace tavix::ThemeAuthor
