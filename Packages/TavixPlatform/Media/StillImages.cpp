#include "TavixPlatform/Media/StillImages.h"

#include "TavixPlatform/Media/StillReaders.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <fstream>
#include <new>
#include <string_view>
#include <vector>

namespace tavix::media {
namespace {

constexpr std::uintmax_t maxFileBytes = std::uintmax_t{1} << 30;

struct Format {
    std::size_t at;   // where its mark stands in the file
    std::string_view mark;
    imaging::Bitmap (*read)(std::span<const std::byte>);
};
constexpr std::array<Format, 4> formats{{
    {0, "\x89PNG\r\n\x1a\n", readPng}, {0, "\xff\xd8\xff", readJpeg}, {8, "WEBP", readWebp},
    {4, "ftyp", readHeif},   // the reader looks at the brand
}};

bool hasMark(std::span<const std::byte> bytes, const Format& format) {
    return bytes.size() >= format.at + format.mark.size() &&
           !std::memcmp(bytes.data() + format.at, format.mark.data(), format.mark.size());
}

// Anything but a plain file might never end.
std::vector<std::byte> readFile(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::exists(path, error)) throw MediaError("There is no such file.");
    if (!std::filesystem::is_regular_file(path, error)) throw MediaError("It is not a file.");
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error) throw MediaError("Its size is unknown: " + error.message() + ".");
    if (size > maxFileBytes) throw MediaError("The file is larger than 1 GiB.");
    std::ifstream file(path, std::ios::binary);
    std::vector<std::byte> bytes(size);
    if (!file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size)))
        throw MediaError("The file cannot be read.");
    return bytes;
}

}   // namespace

imaging::Bitmap decodeStillImage(std::span<const std::byte> bytes) {
    const auto format =
        std::find_if(formats.begin(), formats.end(), [&](const Format& f) { return hasMark(bytes, f); });
    if (format == formats.end()) throw MediaError("It is not a PNG, JPEG, WebP, HEIC or AVIF image.");
    try {
        return format->read(bytes);
    } catch (const std::bad_alloc&) {
        throw MediaError("There is not enough memory for the image.");
    }
}

imaging::Bitmap loadStillImage(const std::filesystem::path& path) {
    try {
        return decodeStillImage(readFile(path));
    } catch (const MediaError& error) {
        throw MediaError("Cannot read the image \"" + path.string() + "\". " + error.what());
    }
}

}   // namespace tavix::media
