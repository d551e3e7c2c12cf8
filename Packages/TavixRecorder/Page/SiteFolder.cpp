#include "TavixRecorder/Page/SiteFolder.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/FileBytes.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <system_error>

namespace tavix::recorder {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t mostFileBytes = std::size_t{64} << 20;

struct ContentType {
    std::string_view extension, type;
};
constexpr ContentType types[] = {
    {".html", "text/html; charset=utf-8"},
    {".htm", "text/html; charset=utf-8"},
    {".js", "text/javascript; charset=utf-8"},
    {".mjs", "text/javascript; charset=utf-8"},
    {".css", "text/css; charset=utf-8"},
    {".json", "application/json"},
    {".svg", "image/svg+xml"},
    {".png", "image/png"},
    {".jpg", "image/jpeg"},
    {".jpeg", "image/jpeg"},
    {".gif", "image/gif"},
    {".webp", "image/webp"},
    {".avif", "image/avif"},
    {".ico", "image/x-icon"},
    {".woff", "font/woff"},
    {".woff2", "font/woff2"},
    {".ttf", "font/ttf"},
    {".otf", "font/otf"},
    {".mp4", "video/mp4"},
    {".webm", "video/webm"},
    {".mp3", "audio/mpeg"},
    {".wav", "audio/wav"},
    {".wasm", "application/wasm"},
    {".txt", "text/plain; charset=utf-8"},
};

std::string typeOf(const fs::path& file) {
    const std::string extension = file.extension().string();
    const auto known = std::ranges::find(types, extension, &ContentType::extension);
    return std::string(known == std::end(types) ? "application/octet-stream" : known->type);
}

int digit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    const char small = static_cast<char>(c | 0x20);
    return small >= 'a' && small <= 'f' ? small - 'a' + 10 : -1;
}

// RFC 3986, 2.1; what is no escape stays as it is.
std::string unescaped(std::string_view path) {
    std::string plain;
    for (std::size_t i = 0; i < path.size(); ++i) {
        const bool isEscape =
            path[i] == '%' && i + 2 < path.size() && digit(path[i + 1]) >= 0 && digit(path[i + 2]) >= 0;
        plain += isEscape ? static_cast<char>(digit(path[i + 1]) * 16 + digit(path[i + 2])) : path[i];
        if (isEscape) i += 2;
    }
    return plain;
}

// One range of RFC 9110, 14.1.2; nothing for other forms, which may be ignored.
struct Range {
    std::size_t first, last;
};
std::optional<Range> rangeOf(std::string_view text, std::size_t size) {
    constexpr std::string_view unit = "bytes=";
    if (!text.starts_with(unit) || text.find(',') != text.npos || size == 0) return std::nullopt;
    text.remove_prefix(unit.size());
    Range range{0, size - 1};
    const char* end = text.data() + text.size();
    const auto first = std::from_chars(text.data(), end, range.first);
    if (first.ec != std::errc() || first.ptr == end || *first.ptr != '-') return std::nullopt;
    if (first.ptr + 1 != end && std::from_chars(first.ptr + 1, end, range.last).ec != std::errc())
        return std::nullopt;
    range.last = std::min(range.last, size - 1);
    return range.first <= range.last ? std::optional(range) : std::nullopt;
}

}   // namespace

SiteFolder::SiteFolder(const fs::path& pageOrFolder) {
    std::error_code error;
    const fs::path whole = fs::canonical(pageOrFolder, error);
    const bool isFolder = !error && fs::is_directory(whole, error);
    root_ = isFolder ? whole : whole.parent_path();
    const fs::path page = isFolder ? whole / "index.html" : whole;
    if (error || !fs::is_regular_file(page, error))
        throw Failure("There is no page \"" +
                      (isFolder ? pageOrFolder / "index.html" : pageOrFolder).string() + "\" to record.");
    if (!isFolder) startName_ = page.filename().string();
}

std::string SiteFolder::startUrl() const {
    std::string url(origin);
    url += '/';
    for (const char c : startName_) {
        constexpr std::string_view hex = "0123456789ABCDEF", plain = "-._~";
        const bool isPlain = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                             plain.find(c) != plain.npos;
        const auto byte = static_cast<unsigned char>(c);
        if (isPlain)
            url += c;
        else
            url.append({'%', hex[byte >> 4], hex[byte & 15]});
    }
    return url;
}

SiteAnswer SiteFolder::answer(std::string_view url, std::string_view range) const {
    if (!url.starts_with(origin)) return {};
    url.remove_prefix(origin.size());
    const std::string path = unescaped(url.substr(0, url.find_first_of("?#")));
    if (path.find('\0') != path.npos || !path.starts_with('/')) return {};
    std::error_code error;
    fs::path file = fs::canonical(root_ / fs::path(path).relative_path(), error);
    if (!error && fs::is_directory(file, error)) file = fs::canonical(file / "index.html", error);
    const auto inside = std::ranges::mismatch(root_, file).in1 == root_.end();
    if (error || !inside || !fs::is_regular_file(file, error) || error) return {};
    SiteAnswer answer{.status = 200, .contentType = typeOf(file), .contentRange = {}, .body = {}};
    try {
        answer.body = readBytes(file, mostFileBytes);
    } catch (const Failure&) {
        return {};
    }
    const std::size_t size = answer.body.size();
    if (const auto part = rangeOf(range, size)) {
        answer.status = 206;
        answer.contentRange = "bytes " + std::to_string(part->first) + "-" + std::to_string(part->last) +
                              "/" + std::to_string(size);
        answer.body = answer.body.substr(part->first, part->last - part->first + 1);
    }
    return answer;
}

}   // namespace tavix::recorder
