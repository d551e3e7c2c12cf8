#include "Backgrounds/Oklab.h"

#include <cmath>

namespace tavix::backgrounds {

float linearFromEncoded(float value) {
    return value <= 0.04045f ? value / 12.92f : std::pow((value + 0.055f) / 1.055f, 2.4f);
}
float encodedFromLinear(float value) {
    return value <= 0.0031308f ? value * 12.92f : 1.055f * std::pow(value, 1 / 2.4f) - 0.055f;
}

namespace {

float cubed(float value) { return value * value * value; }

}   // namespace

Oklab oklab(std::uint32_t hexRgb) {
    const auto channel = [&](int shift) {
        return linearFromEncoded(static_cast<float>((hexRgb >> shift) & 0xff) / 255);
    };
    const float r = channel(16), g = channel(8), b = channel(0);
    const float l = std::cbrt(0.4122214708f * r + 0.5363325363f * g + 0.0514459929f * b);
    const float m = std::cbrt(0.2119034982f * r + 0.6806995451f * g + 0.1073969566f * b);
    const float s = std::cbrt(0.0883024619f * r + 0.2817188376f * g + 0.6299787005f * b);
    return {0.2104542553f * l + 0.7936177850f * m - 0.0040720468f * s,
        1.9779984951f * l - 2.4285922050f * m + 0.4505937099f * s,
        0.0259040371f * l + 0.7827717662f * m - 0.8086757660f * s};
}

EncodedRgb encoded(const Oklab& color) {
    const float l = cubed(color.lightness + 0.3963377774f * color.a + 0.2158037573f * color.b);
    const float m = cubed(color.lightness - 0.1055613458f * color.a - 0.0638541728f * color.b);
    const float s = cubed(color.lightness - 0.0894841775f * color.a - 1.2914855480f * color.b);
    return {encodedFromLinear(4.0767416621f * l - 3.3077115913f * m + 0.2309699292f * s),
        encodedFromLinear(-1.2684380046f * l + 2.6097574011f * m - 0.3413193965f * s),
        encodedFromLinear(-0.0041960863f * l - 0.7034186147f * m + 1.7076147010f * s)};
}

}   // namespace tavix::backgrounds
