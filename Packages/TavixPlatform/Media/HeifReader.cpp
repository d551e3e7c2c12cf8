#include "TavixPlatform/Media/LateHeif.h"
#include "TavixPlatform/Media/StillAssembly.h"
#include "TavixPlatform/Media/StillReaders.h"

#include <bit>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace tavix::media {
namespace {

using Picture = std::unique_ptr<const heif_image, HeifDeleter>;

void check(const heif_error& error) {
    if (error.code == heif_error_Ok) return;
    std::string reason = error.message ? error.message : "unknown";
    while (reason.ends_with('.')) reason.pop_back();
    throw MediaError("The HEIC or AVIF image cannot be read: " + reason + ".");
}

HeifHandle primaryImage(heif_context* context) {
    heif_image_handle* handle = nullptr;
    check(heif_context_get_primary_image_handle(context, &handle));
    return HeifHandle(handle);
}

// ITU-T H.273 code points. What is meant for a screen of ordinary brightness counts as sRGB.
TransferCurve curveOf(const heif_color_profile_nclx& stated, double& exponent) {
    switch (stated.transfer_characteristics) {
    case heif_transfer_characteristic_ITU_R_BT_470_6_System_M: exponent = 2.2; return TransferCurve::power;
    case heif_transfer_characteristic_ITU_R_BT_470_6_System_B_G: exponent = 2.8; return TransferCurve::power;
    case heif_transfer_characteristic_linear: return TransferCurve::linear;
    case heif_transfer_characteristic_ITU_R_BT_2100_0_PQ: return TransferCurve::perceptualQuantizer;
    case heif_transfer_characteristic_ITU_R_BT_2100_0_HLG: return TransferCurve::hybridLogGamma;
    default: return TransferCurve::srgb;
    }
}

ColorConversion statedConversion(const heif_image_handle* handle, PixelLayout layout) {
    heif_color_profile_nclx* stated = nullptr;
    const heif_error error = heif_image_handle_get_nclx_color_profile(handle, &stated);
    const std::unique_ptr<heif_color_profile_nclx, HeifDeleter> owner(
        stated);   // it may come with an error, too
    if (error.code != heif_error_Ok || !stated) return {};
    ColorEncoding encoding;
    encoding.curve = curveOf(*stated, encoding.exponent);
    if (stated->color_primaries != heif_color_primaries_unspecified && stated->color_primary_white_y > 0) {
        const heif_color_profile_nclx& s = *stated;
        const float points[8] = {s.color_primary_red_x, s.color_primary_red_y, s.color_primary_green_x,
            s.color_primary_green_y, s.color_primary_blue_x, s.color_primary_blue_y, s.color_primary_white_x,
            s.color_primary_white_y};
        double* places[4] = {encoding.red, encoding.green, encoding.blue, encoding.white};
        for (std::size_t i = 0; i < 8; ++i) places[i / 2][i % 2] = static_cast<double>(points[i]);
    }
    return ColorConversion::fromEncoding(encoding, layout);
}

ColorConversion conversionOf(const heif_image_handle* handle, PixelLayout layout) {
    const std::size_t size = heif_image_handle_get_raw_color_profile_size(handle);
    if (size == 0) return statedConversion(handle, layout);
    std::vector<std::byte> profile(size);
    check(heif_image_handle_get_raw_color_profile(handle, profile.data()));
    return ColorConversion::fromProfile(profile, layout);
}

// Samples of 9 to 16 bits, stretched to 16 by repeating the topmost bits below.
void widenRow(const std::uint8_t* from, std::vector<std::uint16_t>& row, int bits) {
    std::memcpy(row.data(), from, row.size() * sizeof row[0]);
    for (std::uint16_t& sample : row)
        sample = static_cast<std::uint16_t>(sample << (16 - bits) | sample >> (2 * bits - 16));
}

void assemble(const heif_image* picture, imaging::Size size, PixelLayout layout, StillAssembly& assembly) {
    int stride = 0;
    const std::uint8_t* plane = heif_image_get_plane_readonly(picture, heif_channel_interleaved, &stride);
    const int bits = heif_image_get_bits_per_pixel_range(picture, heif_channel_interleaved);
    const bool isWide = layout == PixelLayout::rgba16;
    if (!plane || bits < (isWide ? 9 : 8) || bits > (isWide ? 16 : 8))
        throw MediaError("The HEIC or AVIF image has a depth that cannot be read.");
    std::vector<std::uint16_t> row(isWide ? static_cast<std::size_t>(size.width) * 4 : 0);
    for (int y = 0; y < size.height; ++y) {
        const std::uint8_t* from = plane + std::ptrdiff_t{y} * stride;
        if (isWide) widenRow(from, row, bits);
        assembly.put(y, isWide ? static_cast<const void*>(row.data()) : from);
    }
}

heif_chroma chromaOf(PixelLayout layout) {
    if (layout != PixelLayout::rgba16) return heif_chroma_interleaved_RGBA;
    return std::endian::native == std::endian::little ? heif_chroma_interleaved_RRGGBBAA_LE
                                                      : heif_chroma_interleaved_RRGGBBAA_BE;
}

}   // namespace

imaging::Bitmap readHeif(std::span<const std::byte> file) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(file.data());
    if (heif_check_filetype(bytes, static_cast<int>(file.size())) == heif_filetype_no)
        throw MediaError("It is a film or another file of that family, not a HEIC or AVIF image.");
    const HeifContext context(heif_context_alloc());
    check(heif_context_read_from_memory_without_copy(context.get(), file.data(), file.size(), nullptr));
    const HeifHandle handle = primaryImage(context.get());
    refuseStillSize(heif_image_handle_get_width(handle.get()), heif_image_handle_get_height(handle.get()));
    const PixelLayout layout = heif_image_handle_get_luma_bits_per_pixel(handle.get()) > 8
                                   ? PixelLayout::rgba16
                                   : PixelLayout::rgba8;
    heif_image* decoded = nullptr;
    check(heif_decode_image(handle.get(), &decoded, heif_colorspace_RGB, chromaOf(layout), nullptr));
    const Picture picture(decoded);
    const imaging::Size size{heif_image_get_width(decoded, heif_channel_interleaved),
        heif_image_get_height(decoded, heif_channel_interleaved)};
    refuseStillSize(size.width, size.height);
    StillAssembly assembly(size, layout, conversionOf(handle.get(), layout));
    assemble(decoded, size, layout, assembly);
    return assembly.take();
}

}   // namespace tavix::media
