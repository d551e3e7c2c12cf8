#include "TavixPlatform/Media/StillImages.h"

#include "TavixPlatform/Imaging/BytePool.h"
#include "TavixPlatform/Imaging/StopScope.h"
#include "TavixPlatform/Media/StraightColor.h"

#include <libdeflate.h>
#include <png.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

namespace tavix::media {
namespace {

// Of 1080 x 1920, libdeflate's least level takes 16 to 19 ms of a still's time, where zlib's least takes 28
// to 43 ms for files 12 to 25 % larger. The second level makes them 4 % smaller in 21 to 30 ms.
constexpr int compressionLevel = 1;
// Readers may hold a chunk whole.
constexpr std::size_t mostChunkBytes = std::size_t{1} << 20;

using File = std::unique_ptr<std::FILE, decltype(&std::fclose)>;

bool isOpaque(const imaging::ConstBitmapView& image) {
    for (int y = 0; y < image.size.height; ++y)
        if (!isOpaqueRow(image.row(y), image.size.width)) return false;
    return true;
}

void opaqueRow(const std::uint8_t* bgra, std::uint8_t* rgb, int pixels) {
    for (int x = 0; x < pixels; ++x, bgra += 4, rgb += 3)
        for (int c = 0; c < 3; ++c) rgb[c] = bgra[2 - c];
}

void straightRow(const std::uint8_t* bgra, std::uint8_t* rgba, int pixels) {
    for (int x = 0; x < pixels; ++x, bgra += 4, rgba += 4) {
        const unsigned alpha = bgra[3];
        for (int c = 0; c < 3; ++c) rgba[c] = alpha ? straight(bgra[2 - c], alpha) : std::uint8_t{0};
        rgba[3] = bgra[3];
    }
}

// PNG 9.2, filter type 1: each byte less the one of the pixel to its left.
void lessLeft(const std::uint8_t* row, std::uint8_t* filtered, std::size_t count, std::size_t pixelBytes) {
    std::copy_n(row, pixelBytes, filtered);
    for (std::size_t i = pixelBytes; i < count; ++i)
        filtered[i] = static_cast<std::uint8_t>(row[i] - row[i - pixelBytes]);
}

struct Packed {
    imaging::PooledBytes bytes;
    std::size_t count = 0;
};

// Every row with the one filter that suits most pictures, each behind the byte that names it.
Packed filtered(const imaging::ConstBitmapView& image, bool withAlpha) {
    const std::size_t pixelBytes = withAlpha ? 4 : 3;
    const std::size_t rowBytes = pixelBytes * static_cast<std::size_t>(image.size.width);
    const std::size_t count = (rowBytes + 1) * static_cast<std::size_t>(image.size.height);
    Packed rows{imaging::takeBytes(count, nullptr), count};
    std::vector<std::uint8_t> row(rowBytes);
    std::uint8_t* to = rows.bytes.get();
    for (int y = 0; y < image.size.height; ++y, to += rowBytes + 1) {
        imaging::checkStop();
        (withAlpha ? straightRow : opaqueRow)(image.row(y), row.data(), image.size.width);
        to[0] = PNG_FILTER_VALUE_SUB;
        lessLeft(row.data(), to + 1, rowBytes, pixelBytes);
    }
    return rows;
}

Packed deflated(const Packed& plain) {
    const std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)> compressor(
        libdeflate_alloc_compressor(compressionLevel), &libdeflate_free_compressor);
    if (!compressor) throw std::bad_alloc();
    const std::size_t most = libdeflate_zlib_compress_bound(compressor.get(), plain.count);
    Packed packed{imaging::takeBytes(most, nullptr), 0};
    packed.count =
        libdeflate_zlib_compress(compressor.get(), plain.bytes.get(), plain.count, packed.bytes.get(), most);
    return packed;
}

class PngWriter {
public:
    explicit PngWriter(std::FILE* file)
        : png_(png_create_write_struct(
              PNG_LIBPNG_VER_STRING, this, fail, [](png_structp, png_const_charp) {})) {
        info_ = png_ ? png_create_info_struct(png_) : nullptr;
        if (!info_) png_destroy_write_struct(&png_, nullptr);
        if (!info_) throw std::bad_alloc();
        png_init_io(png_, file);
    }
    ~PngWriter() { png_destroy_write_struct(&png_, &info_); }
    PngWriter(const PngWriter&) = delete;
    PngWriter& operator=(const PngWriter&) = delete;

    void write(const imaging::ConstBitmapView& image) {
        const bool withAlpha = !isOpaque(image);
        const Packed pixels = deflated(filtered(image, withAlpha));
        guarded([&] {
            writeHead(image.size, withAlpha);
            writePixels(pixels);
            png_write_chunk(png_, chunkName("IEND"), nullptr, 0);
        });
    }

private:
    [[noreturn]] static void fail(png_structp png, png_const_charp message) {
        auto& writer = *static_cast<PngWriter*>(png_get_error_ptr(png));
        writer.systemError_ = errno;
        std::snprintf(writer.fault_.data(), writer.fault_.size(), "%s", message);
        png_longjmp(png, 1);
    }

    // Runs calls of libpng, whose way out of an error is a long jump: a step may own nothing.
    template <class Step> void guarded(Step step) {
        errno = 0;
        if (setjmp(png_jmpbuf(png_)))
            throw MediaError(systemError_ ? std::strerror(systemError_) : fault_.data());
        step();
    }

    void writeHead(imaging::Size size, bool withAlpha) {
        png_set_user_limits(png_, imaging::Bitmap::maxSidePx, imaging::Bitmap::maxSidePx);
        png_set_IHDR(png_, info_, static_cast<png_uint_32>(size.width), static_cast<png_uint_32>(size.height),
            8, withAlpha ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
            PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        png_set_sRGB(png_, info_, PNG_sRGB_INTENT_PERCEPTUAL);
        png_write_info(png_, info_);
    }

    void writePixels(const Packed& pixels) {
        for (std::size_t at = 0; at < pixels.count; at += mostChunkBytes)
            png_write_chunk(png_, chunkName("IDAT"), pixels.bytes.get() + at,
                std::min(mostChunkBytes, pixels.count - at));
    }

    static png_const_bytep chunkName(const char* name) { return reinterpret_cast<png_const_bytep>(name); }

    png_structp png_;
    png_infop info_;
    int systemError_ = 0;
    std::array<char, 200> fault_{};
};

void writeInto(File file, const imaging::ConstBitmapView& image) {
    PngWriter(file.get()).write(image);
    if (std::fclose(file.release())) throw MediaError(std::strerror(errno));
}

}   // namespace

void writePng(const std::filesystem::path& path, const imaging::ConstBitmapView& image) {
    const std::string failure = "Cannot write the image \"" + path.string() + "\": ";
    File file(std::fopen(path.c_str(), "wb"), &std::fclose);
    if (!file) throw MediaError(failure + std::strerror(errno) + ".");
    const auto removeIt = [&path] {
        std::error_code ignored;
        if (std::filesystem::is_regular_file(path, ignored)) std::filesystem::remove(path, ignored);
    };
    try {
        writeInto(std::move(file), image);
    } catch (const MediaError& error) {
        removeIt();
        throw MediaError(failure + error.what() + ".");
    } catch (const imaging::WorkStopped&) {
        removeIt();
        throw;
    }
}

}   // namespace tavix::media
