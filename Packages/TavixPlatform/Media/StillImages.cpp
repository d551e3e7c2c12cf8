#include "TavixPlatform/Media/StillImages.h"

#include "TavixPlatform/Media/MediaFault.h"
#include "TavixPlatform/Media/PlainFile.h"
#include "TavixPlatform/Media/StillReaders.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <string_view>
#include <vector>

namespace tavix::media {
namespace {

constexpr std::int64_t maxFileBytes = std::int64_t{1} << 30;

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

std::vector<std::byte> readFile(const std::filesystem::path& path) {
    const PlainFile file(path, "");
    if (file.sizeBytes() > maxFileBytes) throw MediaError("The file is larger than 1 GiB.");
    std::vector<std::byte> bytes(static_cast<std::size_t>(file.sizeBytes()));
    std::size_t done = 0;
    while (done < bytes.size()) {
        const std::ptrdiff_t got = file.read(std::span(bytes).subspan(done), static_cast<std::int64_t>(done));
        if (got < 0)
            throw MediaFault("Reading it failed: " + PlainFile::reasonOf(static_cast<int>(-got)) + ".");
        if (got == 0) break;   // it has become shorter
        done += static_cast<std::size_t>(got);
    }
    bytes.resize(done);
    return bytes;
}

}   // namespace

imaging::Bitmap decodeStillImage(std::span<const std::byte> bytes) {
    const auto format =
        std::find_if(formats.begin(), formats.end(), [&](const Format& f) { return hasMark(bytes, f); });
    if (format == formats.end()) throw MediaError("It is not a PNG, JPEG, WebP, HEIC or AVIF image.");
    return format->read(bytes);
}

imaging::Bitmap loadStillImage(const std::filesystem::path& path) {
    const auto told = [&](const char* reason) {
        return "Cannot read the image \"" + path.string() + "\". " + reason;
    };
    try {
        return decodeStillImage(readFile(path));
    } catch (const MediaError& error) {
        throw MediaError(told(error.what()));
    } catch (const MediaFault& fault) {
        throw MediaFault(told(fault.what()));
    } catch (const std::bad_alloc&) {
        throw MediaFault(told("There is not enough memory for it."));
    }
}

}   // namespace tavix::media
