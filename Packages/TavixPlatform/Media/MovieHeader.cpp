#include "TavixPlatform/Media/MovieHeader.h"

#include "TavixBase/Failure.h"
#include "TavixPlatform/Media/PlainFile.h"
#include "TavixPlatform/Media/VideoFile.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace tavix::media {
namespace {

struct Unusual {};   // thrown and caught here alone

void require(bool isUsual) {
    if (!isUsual) throw Unusual();
}

// A box of ISO/IEC 14496-12, 4.2. Its content lies from `begin` to `end` in the file.
struct Box {
    std::uint32_t kind = 0;
    std::int64_t begin = 0, end = 0;

    std::int64_t sizeBytes() const { return end - begin; }
};

constexpr std::uint32_t kindOf(const char (&word)[5]) {
    std::uint32_t kind = 0;
    for (int i = 0; i < 4; ++i) kind = kind << 8 | static_cast<unsigned char>(word[i]);
    return kind;
}

template <std::size_t count> using Kinds = std::array<std::uint32_t, count>;

template <class... Words> constexpr auto kindsOf(const Words&... words) {
    return Kinds<sizeof...(words)>{kindOf(words)...};
}

bool isOneOf(std::uint32_t kind, std::span<const std::uint32_t> kinds) {
    return std::ranges::find(kinds, kind) != kinds.end();
}

class HeaderFile {
public:
    explicit HeaderFile(const std::filesystem::path& path) : file_(path, {}) {}

    Box whole() const { return {0, 0, file_.sizeBytes()}; }

    // Big-endian, of up to eight bytes.
    std::uint64_t number(std::int64_t at, std::size_t bytes) const {
        std::array<std::byte, 8> read{};
        require(file_.read(std::span(read).first(bytes), at) == std::ptrdiff_t(bytes));
        std::uint64_t value = 0;
        for (const std::byte byte : std::span(read).first(bytes))
            value = value << 8 | std::to_integer<std::uint64_t>(byte);
        return value;
    }
    // Of a field of a box, from the beginning of its content.
    std::uint64_t number(const Box& box, std::int64_t at, std::size_t bytes) const {
        require(at + std::int64_t(bytes) <= box.sizeBytes());
        return number(box.begin + at, bytes);
    }

    // What a box consists of from `skipped` bytes on, without a gap.
    std::vector<Box> boxesOf(const Box& box, std::int64_t skipped = 0) const {
        constexpr std::size_t mostBoxes = 100;
        std::vector<Box> boxes;
        for (std::int64_t at = box.begin + skipped; at != box.end;) {
            require(at + 8 <= box.end && boxes.size() < mostBoxes);
            std::uint64_t length = number(at, 4), head = 8;
            const auto kind = static_cast<std::uint32_t>(number(at + 4, 4));
            if (length == 1) {   // a long one
                require(at + 16 <= box.end);
                length = number(at + 8, 8), head = 16;
            }
            require(length >= head && length <= std::uint64_t(box.end - at));
            boxes.push_back({kind, at + std::int64_t(head), at + std::int64_t(length)});
            at = boxes.back().end;
        }
        return boxes;
    }

private:
    PlainFile file_;
};

Box onlyOne(const std::vector<Box>& boxes, std::uint32_t kind) {
    const auto found = std::ranges::find(boxes, kind, &Box::kind);
    require(found != boxes.end() && std::ranges::count(boxes, kind, &Box::kind) == 1);
    return *found;
}

void requireKinds(const std::vector<Box>& boxes, std::span<const std::uint32_t> kinds) {
    for (const Box& box : boxes) require(isOneOf(box.kind, kinds));
}

// Nine numbers of fixed point, the last of each row with 30 bits behind the point and the others with 16.
using Matrix = std::array<std::int64_t, 9>;
constexpr std::int64_t one = 1 << 16, oneInLastColumn = 1 << 30;

Matrix matrixOf(const HeaderFile& file, const Box& box, std::int64_t at) {
    Matrix matrix;
    for (std::size_t i = 0; i < matrix.size(); ++i)
        matrix[i] = static_cast<std::int32_t>(file.number(box, at + 4 * std::int64_t(i), 4));
    return matrix;
}

// Whether a turn by quarters swaps width and height. It may move the picture, too: that is not seen.
bool swapsSides(const Matrix& m) {
    require(m[2] == 0 && m[5] == 0 && m[8] == oneInLastColumn);
    const std::array<std::int64_t, 4> turn{m[0], m[1], m[3], m[4]};
    static constexpr std::array<std::array<std::int64_t, 4>, 4> turns{
        {{one, 0, 0, one}, {0, one, -one, 0}, {-one, 0, 0, -one}, {0, -one, one, 0}}};
    const auto found = std::ranges::find(turns, turn);
    require(found != turns.end());
    return (found - turns.begin()) % 2 == 1;
}

// Heads of the film, of a track and of its media come in two versions, with three times of 4 bytes or of 8.
bool hasLongTimes(const HeaderFile& file, const Box& head, std::int64_t shortBytes) {
    const std::uint64_t version = file.number(head, 0, 1);
    require(version <= 1);
    require(head.sizeBytes() == shortBytes + (version == 1 ? 4 * 3 : 0));
    return version == 1;
}

// As FFmpeg rounds it: to the nearest microsecond, and up from the middle.
double durationSecOf(const HeaderFile& file, const Box& head) {
    const bool isLong = hasLongTimes(file, head, 100);
    const std::uint64_t scale = file.number(head, isLong ? 20 : 12, 4);
    const std::uint64_t duration = file.number(head, isLong ? 24 : 16, isLong ? 8 : 4);
    constexpr std::uint64_t microsecondsPerSec = 1'000'000, mostUnits = std::uint64_t{1} << 42;
    const bool isUnknown = !isLong && duration == 0xffffffff;
    require(scale > 0 && scale <= 0x7fffffff && duration <= mostUnits && !isUnknown);
    const std::uint64_t microseconds = (duration * microsecondsPerSec + scale / 2) / scale;
    require(microseconds > 0);   // else FFmpeg measures it
    require(matrixOf(file, head, isLong ? 48 : 36) == Matrix{one, 0, 0, 0, one, 0, 0, 0, oneInLastColumn});
    return double(microseconds) / double(microsecondsPerSec);
}

// A film may have tables of any length, which are not read; but each is as long as its count says.
void requireTables(const HeaderFile& file, const std::vector<Box>& boxes) {
    struct Table {
        std::uint32_t kind;
        std::int64_t headBytes, entryBytes;
    };
    static constexpr Table tables[] = {{kindOf("stts"), 8, 8}, {kindOf("stsc"), 8, 12},
        {kindOf("stco"), 8, 4}, {kindOf("co64"), 8, 8}, {kindOf("ctts"), 8, 8}, {kindOf("stss"), 8, 4}};
    for (const Table& table : tables)
        for (const Box& box : boxes) {
            if (box.kind != table.kind) continue;
            const auto count = std::int64_t(file.number(box, table.headBytes - 4, 4));
            require(box.sizeBytes() == table.headBytes + table.entryBytes * count);
        }
    const Box sizes = onlyOne(boxes, kindOf("stsz"));
    const auto entryBytes = file.number(sizes, 4, 4) == 0 ? std::int64_t{4} : std::int64_t{0};
    require(sizes.sizeBytes() == 12 + entryBytes * std::int64_t(file.number(sizes, 8, 4)));
    onlyOne(boxes, kindOf("stts"));
    onlyOne(boxes, kindOf("stsc"));
    require(std::ranges::count(boxes, kindOf("stco"), &Box::kind) +
                std::ranges::count(boxes, kindOf("co64"), &Box::kind) ==
            1);
}

// As its pictures are stored, of the only kind of sample that the track has.
imaging::Size codedSizeOf(const HeaderFile& file, const Box& descriptions) {
    constexpr std::int64_t entryHeadBytes = 78;
    require(descriptions.sizeBytes() >= 8 && file.number(descriptions, 4, 4) == 1);
    const std::vector<Box> entries = file.boxesOf(descriptions, 8);
    require(entries.size() == 1 && entries.front().sizeBytes() >= entryHeadBytes);
    static constexpr auto codecs = kindsOf("avc1", "avc3", "hvc1", "hev1", "vp09", "av01");
    require(isOneOf(entries.front().kind, codecs));

    const std::vector<Box> extensions = file.boxesOf(entries.front(), entryHeadBytes);
    require(std::ranges::none_of(extensions, [](const Box& box) { return box.kind == kindOf("clap"); }));
    const Box aspect = onlyOne(extensions, kindOf("pasp"));
    require(aspect.sizeBytes() == 8);
    require(file.number(aspect, 0, 4) == 1 && file.number(aspect, 4, 4) == 1);

    const auto width = int(file.number(entries.front(), 24, 2)),
               height = int(file.number(entries.front(), 26, 2));
    require(width > 0 && height > 0 && width <= mostFrameSidePx && height <= mostFrameSidePx);
    return {width, height};
}

imaging::Size shownSizeOf(const HeaderFile& file, const Box& head, const imaging::Size& coded) {
    const bool isLong = hasLongTimes(file, head, 84);
    const std::int64_t at = isLong ? 52 : 40;
    require((file.number(head, 3, 1) & 1) != 0);   // enabled
    // They are told with 16 bits behind the point.
    require(file.number(head, at + 36, 4) == std::uint64_t(coded.width) << 16);
    require(file.number(head, at + 40, 4) == std::uint64_t(coded.height) << 16);
    return swapsSides(matrixOf(file, head, at)) ? imaging::Size{coded.height, coded.width} : coded;
}

// Nothing for a track of sound.
std::optional<imaging::Size> shownSizeOf(const HeaderFile& file, const Box& track) {
    const std::vector<Box> boxes = file.boxesOf(track);
    static constexpr auto usual = kindsOf("tkhd", "edts", "mdia", "udta", "free");
    requireKinds(boxes, usual);
    const Box head = onlyOne(boxes, kindOf("tkhd"));

    const std::vector<Box> media = file.boxesOf(onlyOne(boxes, kindOf("mdia")));
    require(media.size() == 3 && media[0].kind == kindOf("mdhd") && media[1].kind == kindOf("hdlr") &&
            media[2].kind == kindOf("minf"));
    hasLongTimes(file, media[0], 24);
    const std::vector<Box> samples = file.boxesOf(onlyOne(file.boxesOf(media[2]), kindOf("stbl")));
    requireTables(file, samples);
    const Box descriptions = onlyOne(samples, kindOf("stsd"));

    const std::uint64_t handler = file.number(media[1], 8, 4);
    require(handler == kindOf("vide") || handler == kindOf("soun"));
    if (handler == kindOf("soun")) return std::nullopt;
    return shownSizeOf(file, head, codedSizeOf(file, descriptions));
}

MovieHeader headerOf(const HeaderFile& file) {
    const std::vector<Box> boxes = file.boxesOf(file.whole());
    static constexpr auto usual = kindsOf("ftyp", "moov", "mdat", "free", "skip", "wide");
    requireKinds(boxes, usual);
    require(!boxes.empty() && boxes.front().kind == kindOf("ftyp"));
    const std::vector<Box> movie = file.boxesOf(onlyOne(boxes, kindOf("moov")));
    static constexpr auto usualInMovie = kindsOf("mvhd", "trak", "udta", "meta", "iods", "free");
    requireKinds(movie, usualInMovie);
    require(!movie.empty() && movie.front().kind == kindOf("mvhd"));

    MovieHeader header{{}, durationSecOf(file, onlyOne(movie, kindOf("mvhd")))};
    int pictureTracks = 0;
    for (const Box& box : movie) {
        if (box.kind != kindOf("trak")) continue;
        const std::optional<imaging::Size> size = shownSizeOf(file, box);
        if (!size) continue;
        header.shownSize = *size;
        ++pictureTracks;
    }
    require(pictureTracks == 1);
    return header;
}

}   // namespace

std::optional<MovieHeader> readMovieHeader(const std::filesystem::path& path) {
    try {
        return headerOf(HeaderFile(path));
    } catch (const Unusual&) {
        return std::nullopt;
    } catch (const Failure&) {
        return std::nullopt;   // whoever asks FFmpeg is told why the file cannot be opened
    }
}

}   // namespace tavix::media
