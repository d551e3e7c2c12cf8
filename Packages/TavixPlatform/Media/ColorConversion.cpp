#include "TavixPlatform/Media/ColorConversion.h"

#include <lcms2.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace tavix::media {
namespace {

// Reference white of high dynamic range pictures (ITU-R BT.2408), which becomes white here; brighter is
// clipped.
constexpr double referenceWhiteNits = 203, quantizerPeakNits = 10000;
constexpr double referenceWhiteHybrid = 0.75;   // signal level

// SMPTE ST 2084: light in parts of 10000 nits.
double quantizerLight(double value) {
    constexpr double m1 = 2610.0 / 16384, m2 = 2523.0 / 4096 * 128;
    constexpr double c1 = 3424.0 / 4096, c2 = 2413.0 / 4096 * 32, c3 = 2392.0 / 4096 * 32;
    const double root = std::pow(value, 1 / m2);
    return std::pow(std::max(root - c1, 0.0) / (c2 - c3 * root), 1 / m1);
}

// ARIB STD-B67: scene light in 0 to 1.
double hybridLight(double value) {
    constexpr double a = 0.17883277, b = 1 - 4 * a, c = 0.55991073;
    return value <= 0.5 ? value * value / 3 : (std::exp((value - c) / a) + b) / 12;
}

double lightOf(TransferCurve curve, double value) {
    if (curve == TransferCurve::perceptualQuantizer)
        return quantizerLight(value) * quantizerPeakNits / referenceWhiteNits;
    return hybridLight(value) / hybridLight(referenceWhiteHybrid);
}

cmsToneCurve* curveOf(cmsContext context, const ColorEncoding& encoding) {
    // IEC 61966-2-1, in the library's form of it.
    static constexpr std::array<cmsFloat64Number, 5> srgb{2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045};
    constexpr int srgbForm = 4;
    switch (encoding.curve) {
    case TransferCurve::srgb: return cmsBuildParametricToneCurve(context, srgbForm, srgb.data());
    case TransferCurve::linear: return cmsBuildGamma(context, 1);
    case TransferCurve::power: return cmsBuildGamma(context, encoding.exponent);
    default: break;
    }
    std::vector<cmsUInt16Number> table(4096);
    for (std::size_t i = 0; i < table.size(); ++i) {
        const double light =
            lightOf(encoding.curve, static_cast<double>(i) / static_cast<double>(table.size() - 1));
        table[i] = static_cast<cmsUInt16Number>(std::lround(std::clamp(light, 0.0, 1.0) * 65535));
    }
    return cmsBuildTabulatedToneCurve16(context, static_cast<cmsUInt32Number>(table.size()), table.data());
}

cmsHPROFILE profileOf(cmsContext context, const ColorEncoding& encoding) {
    const cmsCIExyY white{encoding.white[0], encoding.white[1], 1};
    const cmsCIExyYTRIPLE primaries{{encoding.red[0], encoding.red[1], 1},
        {encoding.green[0], encoding.green[1], 1}, {encoding.blue[0], encoding.blue[1], 1}};
    cmsToneCurve* curve = curveOf(context, encoding);
    if (!curve) return nullptr;
    cmsToneCurve* curves[3] = {curve, curve, curve};
    cmsHPROFILE profile = cmsCreateRGBProfileTHR(context, &white, &primaries, curves);
    cmsFreeToneCurve(curve);
    return profile;
}

constexpr cmsUInt32Number outputOf(PixelLayout layout) {
    return layout == PixelLayout::rgba16 ? TYPE_RGBA_16 : TYPE_RGBA_8;
}

// The library's word for the source's pixels under a profile, 0 when they do not fit. Grey pictures come as
// RGB with equal channels, so a grey profile reads the first one.
cmsUInt32Number inputOf(PixelLayout layout, cmsUInt32Number space) {
    const auto bytes = static_cast<cmsUInt32Number>(layout == PixelLayout::rgba16 ? 2 : 1);
    if (layout == PixelLayout::cmyk8) return space == cmsSigCmykData ? TYPE_CMYK_8 : 0;
    if (space == cmsSigRgbData) return outputOf(layout);
    if (space == cmsSigGrayData)
        return COLORSPACE_SH(PT_GRAY) | CHANNELS_SH(1) | EXTRA_SH(3) | BYTES_SH(bytes);
    return 0;
}

}   // namespace

struct ColorConversion::Machine {
    Machine() : context(cmsCreateContext(nullptr, nullptr)) {
        cmsSetLogErrorHandlerTHR(context, [](cmsContext, cmsUInt32Number, const char*) {});
    }
    ~Machine() {
        if (transform) cmsDeleteTransform(transform);
        cmsDeleteContext(context);
    }
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    // Whether a lattice of colours comes out as it went in, to within one level of eight bits.
    bool changesNothing() const {
        constexpr int steps = 9;
        for (int i = 0; i < steps * steps * steps; ++i) {
            const auto level = [](int step) { return static_cast<std::uint8_t>(step * 255 / (steps - 1)); };
            const std::array<std::uint8_t, 3> in{
                level(i % steps), level(i / steps % steps), level(i / steps / steps)};
            if (distanceOf(in) > 1) return false;
        }
        return true;
    }

    int distanceOf(const std::array<std::uint8_t, 3>& color) const {
        const bool isWide = T_BYTES(cmsGetTransformInputFormat(transform)) == 2;
        std::array<std::uint16_t, 4> wide{}, wideOut{};
        std::array<std::uint8_t, 4> narrow{}, narrowOut{};
        for (std::size_t c = 0; c < 3; ++c) {
            narrow[c] = color[c];
            wide[c] = static_cast<std::uint16_t>(color[c] * 257);
        }
        if (isWide)
            cmsDoTransform(transform, wide.data(), wideOut.data(), 1);
        else
            cmsDoTransform(transform, narrow.data(), narrowOut.data(), 1);
        int distance = 0;
        for (std::size_t c = 0; c < 3; ++c)
            distance =
                std::max(distance, std::abs((isWide ? (wideOut[c] + 128) / 257 : narrowOut[c]) - color[c]));
        return distance;
    }

    cmsContext context;
    cmsHTRANSFORM transform = nullptr;
};

ColorConversion::ColorConversion() = default;
ColorConversion::ColorConversion(std::unique_ptr<Machine> machine) : machine_(std::move(machine)) {}
ColorConversion::~ColorConversion() = default;
ColorConversion::ColorConversion(ColorConversion&&) noexcept = default;
ColorConversion& ColorConversion::operator=(ColorConversion&&) noexcept = default;

ColorConversion ColorConversion::made(std::unique_ptr<Machine> machine, void* profile, PixelLayout layout) {
    if (!profile) return {};
    // A number, since a damaged profile may name any space.
    const auto space = static_cast<cmsUInt32Number>(cmsGetColorSpace(profile));
    const cmsUInt32Number input = inputOf(layout, space);
    cmsHPROFILE srgb = cmsCreate_sRGBProfileTHR(machine->context);
    if (input && srgb)
        machine->transform = cmsCreateTransformTHR(machine->context, profile, input, srgb, outputOf(layout),
            INTENT_RELATIVE_COLORIMETRIC, cmsFLAGS_BLACKPOINTCOMPENSATION);
    cmsCloseProfile(profile);
    if (srgb) cmsCloseProfile(srgb);
    if (!machine->transform) return {};
    if (T_COLORSPACE(input) == PT_RGB && machine->changesNothing()) return {};
    return ColorConversion(std::move(machine));
}

ColorConversion ColorConversion::fromProfile(std::span<const std::byte> profile, PixelLayout layout) {
    if (profile.empty()) return {};
    auto machine = std::make_unique<Machine>();
    cmsHPROFILE opened = cmsOpenProfileFromMemTHR(
        machine->context, profile.data(), static_cast<cmsUInt32Number>(profile.size()));
    return made(std::move(machine), opened, layout);
}

ColorConversion ColorConversion::fromEncoding(const ColorEncoding& encoding, PixelLayout layout) {
    auto machine = std::make_unique<Machine>();
    cmsHPROFILE opened = profileOf(machine->context, encoding);
    return made(std::move(machine), opened, layout);
}

void ColorConversion::convert(const void* from, void* to, std::size_t pixels) const {
    cmsDoTransform(machine_->transform, from, to, static_cast<cmsUInt32Number>(pixels));
}

}   // namespace tavix::media
