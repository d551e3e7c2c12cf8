// Dresses a reel in the colours and the font of an application.
#pragma once

#include "TavixCore/Theme/BrandKit.h"
#include "TavixCore/Values/LinearGradient.h"
#include "TavixReel/Document/EffectsSpec.h"

namespace tavix::ThemeAuthor {

// The canvas, the tint of the shadow, and the style of captions; everything else stays.
EffectsSpec apply(const BrandKit& brand, EffectsSpec spec);

CaptionStyle captionStyle(const BrandKit& brand, const CaptionStyle& base);

// From a tint of the accent to one of the second colour: pale under a dark application, deep under a light
// one.
LinearGradient canvasGradient(const BrandKit& brand);

// At least that saturated (of HSV, 0 to 1); a grey turns blue, and black stays black.
RGBAColor floorSaturation(const RGBAColor& color, double minSaturation);

// Towards the grey of its luminance; the amount counts within 0 to 1.
RGBAColor desaturated(const RGBAColor& color, double amount);

}   // namespace tavix::ThemeAuthor
