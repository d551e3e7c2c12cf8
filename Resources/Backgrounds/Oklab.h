// OKLab, a colour space in which equal steps look equal, so that a mix of two colours stays as clear as its
// ends and passes through no grey. Björn Ottosson, "A perceptual color space for image processing", 2020.
#pragma once

#include <array>
#include <cstdint>

namespace tavix::backgrounds {

struct Oklab {
    float lightness = 0;   // 0 is black, 1 white
    float a = 0, b = 0;    // green to red, blue to yellow; about -0.3 to 0.3 within sRGB
};

// sRGB-encoded, nominally 0 to 1; outside sRGB's gamut a channel leaves that range.
using EncodedRgb = std::array<float, 3>;

// The transfer curve of sRGB, of one channel from 0 to 1. IEC 61966-2-1.
float linearFromEncoded(float value);
float encodedFromLinear(float value);

Oklab oklab(std::uint32_t hexRgb);   // as in 0x1E2A44
EncodedRgb encoded(const Oklab& color);

inline Oklab mixed(const Oklab& from, const Oklab& to, float fraction) {
    return {from.lightness + (to.lightness - from.lightness) * fraction, from.a + (to.a - from.a) * fraction,
        from.b + (to.b - from.b) * fraction};
}

}   // namespace tavix::backgrounds
