#include "TavixPlatform/Media/Orientation.h"
#include "TavixPlatform/Media/StillAssembly.h"
#include "TavixPlatform/Media/StillReaders.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace tavix::media {
namespace {

// Deflate makes at most 1032 bytes of one, and a pixel may have one bit.
constexpr std::size_t maxExpansion = 1032;
// A chunk may claim 2 GB, or unpack to it; large colour profiles and edit histories have a few MB. The
// library's own limit is one of the errors that it forgives here.
constexpr png_alloc_size_t mostBytesAtOnce = 32 << 20;
constexpr png_uint_32 mostKeptChunks = 64;

struct Source {
    std::span<const std::byte> left;
    std::array<char, 200> fault{};   // kept out of the C++ heap: it is written just before a long jump
};

[[noreturn]] void fail(png_structp png, png_const_charp message) {
    auto& source = *static_cast<Source*>(png_get_error_ptr(png));
    std::snprintf(source.fault.data(), source.fault.size(), "%s", message);
    png_longjmp(png, 1);
}

png_voidp allocate(png_structp, png_alloc_size_t bytes) {
    return bytes <= mostBytesAtOnce ? std::malloc(bytes) : nullptr;
}

void readBytes(png_structp png, png_bytep to, std::size_t count) {
    auto& source = *static_cast<Source*>(png_get_io_ptr(png));
    if (source.left.size() < count) png_error(png, "the file ends early");
    std::memcpy(to, source.left.data(), count);
    source.left = source.left.subspan(count);
}

class PngReader {
public:
    explicit PngReader(std::span<const std::byte> file)
        : fileBytes_(file.size()), source_{file},
          png_(png_create_read_struct_2(
              PNG_LIBPNG_VER_STRING, &source_, fail, [](png_structp, png_const_charp) {}, nullptr, allocate,
              [](png_structp, png_voidp bytes) { std::free(bytes); })) {
        if (!png_) throw std::bad_alloc();
        info_ = png_create_info_struct(png_);
        if (!info_) png_destroy_read_struct(&png_, nullptr, nullptr);
        if (!info_) throw std::bad_alloc();
    }
    ~PngReader() { png_destroy_read_struct(&png_, &info_, nullptr); }
    PngReader(const PngReader&) = delete;
    PngReader& operator=(const PngReader&) = delete;

    imaging::Bitmap read() {
        guarded([this] { readHead(); });
        refuseStillSize(width(), height(), fileBytes_, maxExpansion * 8 / bitsPerPixel_);
        StillAssembly assembly({width(), height()}, layout_, conversion());
        int passes = 1;
        guarded([&] { passes = prepareRows(); });
        if (passes == 1)
            readInOrder(assembly);
        else
            readInterlaced(assembly, passes);
        return upright(assembly.take(), orientation());
    }

private:
    // Runs calls of libpng, whose way out of an error is a long jump: a step may own nothing.
    template <class Step> void guarded(Step step) {
        if (setjmp(png_jmpbuf(png_)))
            throw MediaError(std::string("The PNG image is damaged: ") + source_.fault.data() + ".");
        step();
    }

    int width() const { return static_cast<int>(png_get_image_width(png_, info_)); }
    int height() const { return static_cast<int>(png_get_image_height(png_, info_)); }

    void readHead() {
        png_set_read_fn(png_, &source_, readBytes);
        png_set_user_limits(png_, imaging::Bitmap::maxSidePx, imaging::Bitmap::maxSidePx);
        png_set_chunk_malloc_max(png_, mostBytesAtOnce);
        png_set_chunk_cache_max(png_, mostKeptChunks);
        png_set_benign_errors(png_, 1);
        png_read_info(png_, info_);
        bitsPerPixel_ = std::size_t{png_get_bit_depth(png_, info_)} * png_get_channels(png_, info_);
        layout_ = png_get_bit_depth(png_, info_) == 16 ? PixelLayout::rgba16 : PixelLayout::rgba8;
    }

    // Every kind becomes RGBA; returns how many passes bring the whole picture.
    int prepareRows() {
        png_set_expand(png_);
        png_set_gray_to_rgb(png_);
        png_set_add_alpha(png_, 0xffff, PNG_FILLER_AFTER);
        if (layout_ == PixelLayout::rgba16 && std::endian::native == std::endian::little) png_set_swap(png_);
        const int passes = png_set_interlace_handling(png_);
        png_read_update_info(png_, info_);
        return passes;
    }

    std::size_t samplesPerRow() const { return png_get_rowbytes(png_, info_) / sizeof(std::uint16_t); }

    void readInOrder(StillAssembly& assembly) {
        std::vector<std::uint16_t> row(samplesPerRow());
        auto* bytes = reinterpret_cast<png_bytep>(row.data());
        for (int y = 0; y < height(); ++y) {
            guarded([&] { png_read_row(png_, bytes, nullptr); });
            assembly.put(y, row.data());
        }
    }

    void readInterlaced(StillAssembly& assembly, int passes) {
        std::vector<std::uint16_t> picture(samplesPerRow() * static_cast<std::size_t>(height()));
        const auto row = [&](int y) {
            return picture.data() + samplesPerRow() * static_cast<std::size_t>(y);
        };
        guarded([&] {
            for (int pass = 0; pass < passes; ++pass)
                for (int y = 0; y < height(); ++y)
                    png_read_row(png_, reinterpret_cast<png_bytep>(row(y)), nullptr);
        });
        for (int y = 0; y < height(); ++y) assembly.put(y, row(y));
    }

    // A profile counts before the sRGB mark, and that before curve and primaries.
    ColorConversion conversion() {
        png_charp name = nullptr;
        png_bytep bytes = nullptr;
        png_uint_32 size = 0;
        int method = 0;
        if (png_get_iCCP(png_, info_, &name, &method, &bytes, &size))
            return ColorConversion::fromProfile(std::as_bytes(std::span(bytes, size)), layout_);
        int intent = 0;
        if (png_get_sRGB(png_, info_, &intent)) return {};
        return statedEncoding();
    }

    ColorConversion statedEncoding() {
        ColorEncoding encoding;
        double exponent = 0;
        auto& [red, green, blue, white, curve, power] = encoding;
        const bool hasPrimaries = png_get_cHRM(
            png_, info_, &white[0], &white[1], &red[0], &red[1], &green[0], &green[1], &blue[0], &blue[1]);
        // Encoders write 1/2.2 where they mean sRGB.
        constexpr double srgbExponent = 0.45455, tolerance = 0.02;
        if (png_get_gAMA(png_, info_, &exponent) && exponent > 0 &&
            std::abs(exponent - srgbExponent) > tolerance) {
            curve = TransferCurve::power;
            power = 1 / exponent;
        } else if (!hasPrimaries) {
            return {};
        }
        return ColorConversion::fromEncoding(encoding, layout_);
    }

    int orientation() {
        png_uint_32 size = 0;
        png_bytep bytes = nullptr;
        if (!png_get_eXIf_1(png_, info_, &size, &bytes)) return 1;
        return exifOrientation(std::as_bytes(std::span(bytes, size)));
    }

    std::size_t fileBytes_;
    Source source_;
    png_structp png_;
    png_infop info_ = nullptr;
    std::size_t bitsPerPixel_ = 0;
    PixelLayout layout_ = PixelLayout::rgba8;
};

}   // namespace

imaging::Bitmap readPng(std::span<const std::byte> file) { return PngReader(file).read(); }

}   // namespace tavix::media
