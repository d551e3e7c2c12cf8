#include "TavixPlatform/Media/Tests/StillFiles.h"

#include <cstdio>

#include <jpeglib.h>
#include <lcms2.h>
#include <libheif/heif.h>
#include <png.h>
#include <webp/encode.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

namespace tavix::media::tests {
namespace {

Bytes bytesOf(const void* data, std::size_t size) {
    const auto* from = static_cast<const std::byte*>(data);
    return {from, from + size};
}

const std::uint8_t* raw(const Bytes& bytes) { return reinterpret_cast<const std::uint8_t*>(bytes.data()); }

void add(Bytes& to, const Bytes& more) { to.insert(to.end(), more.begin(), more.end()); }
void add(Bytes& to, std::string_view text) { add(to, bytesOf(text.data(), text.size())); }
void addLittle(Bytes& to, std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i) to.push_back(static_cast<std::byte>(value >> (8 * i) & 255));
}

Bytes saved(cmsHPROFILE profile) {
    cmsUInt32Number size = 0;
    cmsSaveProfileToMem(profile, nullptr, &size);
    Bytes bytes(size);
    cmsSaveProfileToMem(profile, bytes.data(), &size);
    cmsCloseProfile(profile);
    return bytes;
}

// One row as the kind stores it, from RGBA: packed grey, palette indices, or whole samples.
std::vector<std::uint8_t> pngRow(const Picture& picture, int y, const PngKind& kind) {
    std::vector<std::uint8_t> row(static_cast<std::size_t>(picture.width) * 8);
    std::size_t at = 0;
    const auto put = [&](int value) {
        row[at++] = static_cast<std::uint8_t>(value);
        if (kind.depth == 16) row[at++] = static_cast<std::uint8_t>(value);
    };
    for (int x = 0; x < picture.width; ++x) {
        const std::uint8_t* p = picture.at(x, y);
        if (kind.depth < 8 || kind.colorType == PNG_COLOR_TYPE_PALETTE) {
            const int index = kind.colorType == PNG_COLOR_TYPE_PALETTE ? x % 2 : p[0] >> (8 - kind.depth);
            const int bit = x * kind.depth;
            row[static_cast<std::size_t>(bit / 8)] |=
                static_cast<std::uint8_t>(index << (8 - kind.depth - bit % 8));
            continue;
        }
        const int colors = kind.colorType & PNG_COLOR_MASK_COLOR ? 3 : 1;
        for (int c = 0; c < colors; ++c) put(p[c]);
        if (kind.colorType & PNG_COLOR_MASK_ALPHA) put(p[3]);
    }
    return row;
}

void addPngExtras(png_structp png, png_infop info, const PngKind& kind) {
    if (kind.colorType == PNG_COLOR_TYPE_PALETTE) {   // opaque red, translucent blue
        const png_color palette[2] = {{255, 0, 0}, {0, 0, 255}};
        png_set_PLTE(png, info, palette, 2);
        const png_byte alpha[2] = {255, 128};
        png_set_tRNS(png, info, alpha, 2, nullptr);
    }
    if (!kind.profile.empty())
        png_set_iCCP(
            png, info, "profile", 0, raw(kind.profile), static_cast<png_uint_32>(kind.profile.size()));
    if (kind.gamma > 0) png_set_gAMA(png, info, kind.gamma);
    Bytes exif = kind.exif;
    if (!exif.empty())
        png_set_eXIf_1(
            png, info, static_cast<png_uint_32>(exif.size()), reinterpret_cast<png_bytep>(exif.data()));
}

Bytes webpChunk(std::string_view name, const Bytes& content) {
    Bytes chunk;
    add(chunk, name);
    addLittle(chunk, static_cast<std::uint32_t>(content.size()), 4);
    add(chunk, content);
    if (content.size() % 2) chunk.push_back(std::byte{0});
    return chunk;
}

Bytes webpFile(const Bytes& chunks) {
    Bytes file;
    add(file, "RIFF");
    addLittle(file, static_cast<std::uint32_t>(chunks.size() + 4), 4);
    add(file, "WEBP");
    add(file, chunks);
    return file;
}

Bytes webpHead(std::uint32_t flags, int width, int height) {
    Bytes head;
    addLittle(head, flags, 4);
    addLittle(head, static_cast<std::uint32_t>(width - 1), 3);
    addLittle(head, static_cast<std::uint32_t>(height - 1), 3);
    return webpChunk("VP8X", head);
}

// The chunk of the pixels alone, without the file around it.
Bytes webpPixels(const Picture& picture, bool isLossless) {
    std::uint8_t* made = nullptr;
    const std::size_t size = isLossless ? WebPEncodeLosslessRGBA(picture.rgba.data(), picture.width,
                                              picture.height, picture.width * 4, &made)
                                        : WebPEncodeRGBA(picture.rgba.data(), picture.width, picture.height,
                                              picture.width * 4, 95, &made);
    constexpr std::size_t headBytes = 12;
    Bytes file = bytesOf(made, size);
    WebPFree(made);
    file.erase(file.begin(), file.begin() + headBytes);
    // A lossy file with alpha has a head of its own, which the caller writes.
    if (!std::memcmp(file.data(), "VP8X", 4)) file.erase(file.begin(), file.begin() + 18);
    return file;
}

}   // namespace

Picture slope(int width, int height, bool withAlpha) {
    Picture picture(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            std::uint8_t* p = picture.at(x, y);
            p[0] = static_cast<std::uint8_t>(40 + x * 180 / width);
            p[1] = static_cast<std::uint8_t>(30 + y * 190 / height);
            p[2] = static_cast<std::uint8_t>(60 + (x + y) * 150 / (width + height));
            p[3] = withAlpha ? static_cast<std::uint8_t>(255 - x * 255 / width) : std::uint8_t{255};
        }
    return picture;
}

Picture filled(
    int width, int height, std::uint8_t red, std::uint8_t green, std::uint8_t blue, std::uint8_t alpha) {
    Picture picture(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const std::uint8_t color[4] = {red, green, blue, alpha};
            std::copy_n(color, 4, picture.at(x, y));
        }
    return picture;
}

Bytes makePng(const Picture& picture, const PngKind& kind) {
    Bytes out;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(
        png, &out,
        [](png_structp p, png_bytep data, std::size_t size) {
            add(*static_cast<Bytes*>(png_get_io_ptr(p)), bytesOf(data, size));
        },
        nullptr);
    png_set_IHDR(png, info, static_cast<png_uint_32>(picture.width), static_cast<png_uint_32>(picture.height),
        kind.depth, kind.colorType, kind.isInterlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE,
        PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    addPngExtras(png, info, kind);
    png_write_info(png, info);
    const int passes = kind.isInterlaced ? png_set_interlace_handling(png) : 1;
    for (int pass = 0; pass < passes; ++pass)
        for (int y = 0; y < picture.height; ++y) png_write_row(png, pngRow(picture, y, kind).data());
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return out;
}

Bytes makeJpeg(const Picture& picture, const JpegKind& kind) {
    using Color = JpegKind::Color;
    jpeg_compress_struct coder{};
    jpeg_error_mgr errors{};
    coder.err = jpeg_std_error(&errors);
    jpeg_create_compress(&coder);
    unsigned char* made = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&coder, &made, &size);
    const bool isInk = kind.color == Color::cmyk || kind.color == Color::ycck;
    coder.image_width = static_cast<JDIMENSION>(picture.width);
    coder.image_height = static_cast<JDIMENSION>(picture.height);
    coder.input_components = 4;
    coder.in_color_space = isInk ? JCS_CMYK : JCS_EXT_RGBX;
    jpeg_set_defaults(&coder);
    if (kind.color == Color::grey) jpeg_set_colorspace(&coder, JCS_GRAYSCALE);
    if (isInk) jpeg_set_colorspace(&coder, kind.color == Color::cmyk ? JCS_CMYK : JCS_YCCK);
    coder.write_Adobe_marker = isInk;
    jpeg_set_quality(&coder, 97, TRUE);
    if (kind.isProgressive) jpeg_simple_progression(&coder);
    jpeg_start_compress(&coder, TRUE);
    if (!kind.exif.empty())
        jpeg_write_marker(&coder, JPEG_APP0 + 1, raw(kind.exif), static_cast<unsigned>(kind.exif.size()));
    if (!kind.profile.empty())
        jpeg_write_icc_profile(&coder, raw(kind.profile), static_cast<unsigned>(kind.profile.size()));
    for (int y = 0; y < picture.height; ++y) {
        std::vector<std::uint8_t> row(
            picture.at(0, y), picture.at(0, y) + static_cast<std::ptrdiff_t>(picture.width) * 4);
        // In Adobe's files 255 is no ink at all: so without black the other inks read like RGB.
        if (isInk)
            for (std::size_t i = 3; i < row.size(); i += 4) row[i] = 255;
        JSAMPROW rows[1] = {row.data()};
        jpeg_write_scanlines(&coder, rows, 1);
    }
    jpeg_finish_compress(&coder);
    jpeg_destroy_compress(&coder);
    Bytes bytes = bytesOf(made, size);
    std::free(made);
    return bytes;
}

Bytes makeWebp(const Picture& picture, const WebpKind& kind) {
    constexpr std::uint32_t hasProfile = 0x20, hasAlpha = 0x10, hasExif = 0x08;
    Bytes chunks =
        webpHead(hasAlpha | (kind.profile.empty() ? 0 : hasProfile) | (kind.exif.empty() ? 0 : hasExif),
            picture.width, picture.height);
    if (!kind.profile.empty()) add(chunks, webpChunk("ICCP", kind.profile));
    add(chunks, webpPixels(picture, kind.isLossless));
    if (!kind.exif.empty()) add(chunks, webpChunk("EXIF", kind.exif));
    return webpFile(chunks);
}

Bytes makeAnimatedWebp(const Picture& firstFrame) {
    constexpr std::uint32_t isAnimation = 0x02, hasAlpha = 0x10;
    Bytes chunks = webpHead(isAnimation | hasAlpha, firstFrame.width + 4, firstFrame.height + 4);
    Bytes loop;
    addLittle(loop, 0, 4);
    addLittle(loop, 0, 2);
    add(chunks, webpChunk("ANIM", loop));
    Bytes frame;
    addLittle(frame, 1, 3);   // offsets count in steps of two pixels
    addLittle(frame, 1, 3);
    addLittle(frame, static_cast<std::uint32_t>(firstFrame.width - 1), 3);
    addLittle(frame, static_cast<std::uint32_t>(firstFrame.height - 1), 3);
    addLittle(frame, 40, 3);
    addLittle(frame, 0, 1);
    add(frame, webpPixels(firstFrame, true));
    add(chunks, webpChunk("ANMF", frame));
    add(chunks, webpChunk("ANMF", frame));
    return webpFile(chunks);
}

std::optional<Bytes> makeHeif(const Picture& picture, const HeifKind& kind) {
    const std::unique_ptr<heif_context, decltype(&heif_context_free)> context(
        heif_context_alloc(), &heif_context_free);
    heif_encoder* encoder = nullptr;
    if (heif_context_get_encoder_for_format(
            context.get(), kind.isAvif ? heif_compression_AV1 : heif_compression_HEVC, &encoder)
            .code)
        return std::nullopt;
    const std::unique_ptr<heif_encoder, decltype(&heif_encoder_release)> owner(
        encoder, &heif_encoder_release);
    heif_encoder_set_lossy_quality(encoder, 95);
    heif_image* image = nullptr;
    const bool isWide = kind.bits > 8;
    heif_image_create(picture.width, picture.height, heif_colorspace_RGB,
        isWide ? heif_chroma_interleaved_RRGGBBAA_LE : heif_chroma_interleaved_RGBA, &image);
    const std::unique_ptr<heif_image, decltype(&heif_image_release)> imageOwner(image, &heif_image_release);
    heif_image_add_plane(image, heif_channel_interleaved, picture.width, picture.height, kind.bits);
    int stride = 0;
    std::uint8_t* plane = heif_image_get_plane(image, heif_channel_interleaved, &stride);
    for (int y = 0; y < picture.height; ++y)
        for (int i = 0; i < picture.width * 4; ++i) {
            const std::uint8_t level = picture.at(0, y)[i];
            const int wide = level << (kind.bits - 8) | level >> (16 - kind.bits);
            std::uint8_t* to = plane + y * stride + i * (isWide ? 2 : 1);
            to[0] = static_cast<std::uint8_t>(isWide ? wide & 255 : level);
            if (isWide) to[1] = static_cast<std::uint8_t>(wide >> 8);
        }
    if (!kind.profile.empty())
        heif_image_set_raw_color_profile(image, "prof", kind.profile.data(), kind.profile.size());
    heif_encoding_options* options = heif_encoding_options_alloc();
    options->image_orientation = static_cast<heif_orientation>(kind.orientation);
    const heif_error error = heif_context_encode_image(context.get(), image, encoder, options, nullptr);
    heif_encoding_options_free(options);
    if (error.code) return std::nullopt;
    Bytes out;
    heif_writer writer{1, [](heif_context*, const void* data, std::size_t size, void* to) {
                           *static_cast<Bytes*>(to) = bytesOf(data, size);
                           return heif_error{heif_error_Ok, heif_suberror_Unspecified, ""};
                       }};
    heif_context_write(context.get(), &writer, &out);
    return out;
}

Bytes exifWithOrientation(int orientation, bool isBigEndian) {
    Bytes exif;
    add(exif, std::string_view("Exif\0\0", 6));
    const auto addNumber = [&](std::uint32_t value, int count) {
        for (int i = 0; i < count; ++i)
            exif.push_back(static_cast<std::byte>(value >> (8 * (isBigEndian ? count - 1 - i : i)) & 255));
    };
    add(exif, isBigEndian ? "MM" : "II");
    addNumber(42, 2);
    addNumber(8, 4);        // the first directory follows
    addNumber(2, 2);        // its entries
    addNumber(0x0100, 2);   // a width, of no matter here
    addNumber(4, 2);
    addNumber(1, 4);
    addNumber(640, 4);
    addNumber(0x0112, 2);
    addNumber(3, 2);
    addNumber(1, 4);
    addNumber(static_cast<std::uint32_t>(orientation), 2);
    addNumber(0, 2);
    addNumber(0, 4);
    return exif;
}

Bytes displayP3Profile() {
    const cmsCIExyY white{0.3127, 0.3290, 1};
    const cmsCIExyYTRIPLE primaries{{0.680, 0.320, 1}, {0.265, 0.690, 1}, {0.150, 0.060, 1}};
    const cmsFloat64Number form[5] = {2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045};
    cmsToneCurve* curve = cmsBuildParametricToneCurve(nullptr, 4, form);
    cmsToneCurve* curves[3] = {curve, curve, curve};
    cmsHPROFILE profile = cmsCreateRGBProfile(&white, &primaries, curves);
    cmsFreeToneCurve(curve);
    return saved(profile);
}

Bytes srgbProfile() { return saved(cmsCreate_sRGBProfile()); }

Bytes greyProfile(double exponent) {
    const cmsCIExyY white{0.3127, 0.3290, 1};
    cmsToneCurve* curve = cmsBuildGamma(nullptr, exponent);
    cmsHPROFILE profile = cmsCreateGrayProfile(&white, curve);
    cmsFreeToneCurve(curve);
    return saved(profile);
}

}   // namespace tavix::media::tests
