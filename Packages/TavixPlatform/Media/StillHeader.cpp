#include "TavixPlatform/Media/StillHeader.h"

#include "TavixPlatform/Media/LateHeif.h"
#include "TavixPlatform/Media/Orientation.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::media {
namespace {

constexpr int mostChunks = 4096;   // before the picture; more are there to keep readers busy
constexpr std::size_t mostExifBytes = 1 << 16;
constexpr std::uintmax_t mostHeifBytes = std::uintmax_t{256} << 20;   // its head may stand anywhere

[[noreturn]] void refuse(const char* why) { throw MediaError(why); }

// Reads numbers from a file in order.
class Source {
public:
    explicit Source(const std::filesystem::path& path) : file_(path, std::ios::binary) {
        if (!file_) refuse("The file cannot be read.");
    }

    std::vector<std::byte> bytes(std::size_t count) {
        std::vector<std::byte> read(count);
        file_.read(reinterpret_cast<char*>(read.data()), static_cast<std::streamsize>(count));
        if (!file_) refuse("The image is damaged: the file ends early.");
        return read;
    }
    std::uint32_t bigEndian(std::size_t count) {
        std::uint32_t value = 0;
        for (const std::byte byte : bytes(count)) value = value << 8 | std::to_integer<std::uint32_t>(byte);
        return value;
    }
    std::uint32_t littleEndian(std::size_t count) {
        std::uint32_t value = 0;
        for (std::size_t i = 0; const std::byte byte : bytes(count))
            value |= std::to_integer<std::uint32_t>(byte) << 8 * i++;
        return value;
    }
    std::string word() {
        const std::vector<std::byte> read = bytes(4);
        return {reinterpret_cast<const char*>(read.data()), read.size()};
    }
    void skip(std::uint64_t count) { file_.seekg(static_cast<std::streamoff>(count), std::ios::cur); }
    bool isAtEnd() { return file_.peek() == std::ifstream::traits_type::eof(); }

private:
    std::ifstream file_;
};

imaging::Size sizeOf(std::uint32_t width, std::uint32_t height) {
    constexpr std::uint32_t most = imaging::Bitmap::maxSidePx;
    if (width == 0 || height == 0 || width > most || height > most)
        refuse("The image has a size that cannot be read.");
    return {static_cast<int>(width), static_cast<int>(height)};
}

StillHeader turned(StillHeader header, int orientation) {
    if (orientation >= 5 && orientation <= 8) std::swap(header.size.width, header.size.height);
    return header;
}

int exifIn(Source& source, std::uint32_t length) {
    const std::vector<std::byte> exif = source.bytes(std::min<std::size_t>(length, mostExifBytes));
    source.skip(length - exif.size());
    return exifOrientation(exif);
}

StillHeader readPngHeader(Source& source) {
    source.skip(8);
    StillHeader header;
    int orientation = 1;
    for (int chunk = 0; chunk < mostChunks; ++chunk) {
        const std::uint32_t length = source.bigEndian(4);
        const std::string kind = source.word();
        if (kind == "IDAT" || kind == "IEND") break;
        if (kind == "IHDR") {
            const std::uint32_t width = source.bigEndian(4), height = source.bigEndian(4);
            header.size = sizeOf(width, height);
            source.skip(1);
            header.isOpaque = (source.bigEndian(1) & 4) == 0;   // the bit of an alpha channel
            source.skip(std::uint64_t{length} - 10 + 4);
            continue;
        }
        if (kind == "tRNS") header.isOpaque = false;
        if (kind == "eXIf")
            orientation = exifIn(source, length);
        else
            source.skip(length);
        source.skip(4);   // the checksum
    }
    if (header.size.width == 0) refuse("The PNG image is damaged: it has no head.");
    return turned(header, orientation);
}

StillHeader readJpegHeader(Source& source) {
    source.skip(2);
    int orientation = 1;
    for (int segment = 0; segment < mostChunks; ++segment) {
        std::uint32_t marker = source.bigEndian(2);
        while (marker == 0xffff) marker = 0xff00 | source.bigEndian(1);   // fill bytes
        if (marker >> 8 != 0xff) break;
        const std::uint32_t length = source.bigEndian(2);
        if (length < 2) break;
        const bool isTable = marker == 0xffc4 || marker == 0xffc8 || marker == 0xffcc;
        if (marker >= 0xffc0 && marker <= 0xffcf && !isTable) {
            source.skip(1);
            const std::uint32_t height = source.bigEndian(2), width = source.bigEndian(2);
            return turned({sizeOf(width, height), true}, orientation);
        }
        if (marker == 0xffe1 && orientation == 1)
            orientation = exifIn(source, length - 2);
        else
            source.skip(length - 2);
    }
    refuse("The JPEG image is damaged: it has no head.");
}

StillHeader readWebpHeader(Source& source) {
    source.skip(12);
    StillHeader header;
    int orientation = 1;
    for (int chunk = 0; chunk < mostChunks && !source.isAtEnd(); ++chunk) {
        const std::string kind = source.word();
        const std::uint32_t length = source.littleEndian(4), padded = length + (length & 1);
        if (kind == "VP8X") {
            const bool hasAlpha = source.littleEndian(4) & 0x10;
            const std::uint32_t width = source.littleEndian(3) + 1, height = source.littleEndian(3) + 1;
            header = {sizeOf(width, height), !hasAlpha};
            source.skip(padded - 10);
            continue;
        }
        if (kind == "VP8L" && header.size.width == 0) {
            source.skip(1);
            const std::uint32_t bits = source.littleEndian(4);
            return {sizeOf((bits & 0x3fff) + 1, (bits >> 14 & 0x3fff) + 1), (bits >> 28 & 1) == 0};
        }
        if (kind == "VP8 " && header.size.width == 0) {
            source.skip(6);
            const std::uint32_t width = source.littleEndian(2) & 0x3fff;
            const std::uint32_t height = source.littleEndian(2) & 0x3fff;
            return {sizeOf(width, height), true};
        }
        if (kind == "EXIF") return turned(header, exifIn(source, length));
        source.skip(padded);
    }
    if (header.size.width == 0) refuse("The WebP image is damaged: it has no picture.");
    return turned(header, orientation);
}

StillHeader readHeifHeader(const std::filesystem::path& path) {
    std::error_code unknown;
    if (std::filesystem::file_size(path, unknown) > mostHeifBytes || unknown)
        refuse("The HEIC or AVIF image is too large.");
    const HeifContext context(heif_context_alloc());
    heif_image_handle* found = nullptr;
    if (heif_context_read_from_file(context.get(), path.c_str(), nullptr).code != heif_error_Ok ||
        heif_context_get_primary_image_handle(context.get(), &found).code != heif_error_Ok)
        refuse("It is not a HEIC or AVIF image that can be read.");
    const HeifHandle handle(found);
    return {sizeOf(static_cast<std::uint32_t>(heif_image_handle_get_width(found)),
                static_cast<std::uint32_t>(heif_image_handle_get_height(found))),
        !heif_image_handle_has_alpha_channel(found)};
}

StillHeader headerOf(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::exists(path, error)) refuse("There is no such file.");
    if (!std::filesystem::is_regular_file(path, error)) refuse("It is not a file.");
    std::array<char, 12> start{};
    std::ifstream(path, std::ios::binary).read(start.data(), start.size());
    const std::string_view mark(start.data(), start.size());
    Source source(path);
    if (mark.starts_with("\x89PNG\r\n\x1a\n")) return readPngHeader(source);
    if (mark.starts_with("\xff\xd8\xff")) return readJpegHeader(source);
    if (mark.starts_with("RIFF") && mark.ends_with("WEBP")) return readWebpHeader(source);
    if (mark.substr(4, 4) == "ftyp") return readHeifHeader(path);
    refuse("It is not a PNG, JPEG, WebP, HEIC or AVIF image.");
}

}   // namespace

StillHeader readStillHeader(const std::filesystem::path& path) {
    try {
        return headerOf(path);
    } catch (const MediaError& error) {
        throw MediaError("Cannot read the image \"" + path.string() + "\". " + error.what());
    }
}

}   // namespace tavix::media
