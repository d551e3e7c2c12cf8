// Brings colours of a still image to sRGB: from what its ICC profile says, or from primaries and a curve.
#pragma once

#include <cstddef>
#include <memory>
#include <span>

namespace tavix::media {

// What a pixel of the source looks like. CMYK as printed: 0 is no ink.
enum class PixelLayout { rgba8, rgba16, cmyk8 };

// How light follows from a channel's value in 0 to 1.
enum class TransferCurve { srgb, linear, power, perceptualQuantizer, hybridLogGamma };

// Chromaticities (CIE x, y) of the primaries and white, and the curve; sRGB unless changed.
struct ColorEncoding {
    double red[2] = {0.64, 0.33}, green[2] = {0.30, 0.60}, blue[2] = {0.15, 0.06};
    double white[2] = {0.3127, 0.3290};
    TransferCurve curve = TransferCurve::srgb;
    double exponent = 2.2;   // of `power`: light = value ^ exponent
};

class ColorConversion {
public:
    // From an ICC profile; none when the profile is unreadable, of another kind of pixel, or means sRGB
    // anyway.
    static ColorConversion fromProfile(std::span<const std::byte> profile, PixelLayout layout);
    static ColorConversion fromEncoding(const ColorEncoding& encoding, PixelLayout layout);

    ColorConversion();   // none
    ~ColorConversion();
    ColorConversion(ColorConversion&&) noexcept;
    ColorConversion& operator=(ColorConversion&&) noexcept;

    bool isNone() const { return !machine_; }
    // Writes RGBA of as many bits as the source has, and leaves alpha as it is in `to`. For RGBA both may be
    // the same pixels.
    void convert(const void* from, void* to, std::size_t pixels) const;

private:
    struct Machine;
    explicit ColorConversion(std::unique_ptr<Machine> machine);
    static ColorConversion made(std::unique_ptr<Machine> machine, void* profile, PixelLayout layout);
    std::unique_ptr<Machine> machine_;
};

}   // namespace tavix::media
