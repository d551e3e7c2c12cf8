#include "TavixPlatform/Media/Orientation.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <optional>
#include <utility>

namespace tavix::media {
namespace {

// The part of a TIFF file that EXIF is: a byte order, then directories of tagged values.
class TiffBlock {
public:
    explicit TiffBlock(std::span<const std::byte> bytes) : bytes_(bytes) {
        static constexpr std::array<char, 6> prefix{'E', 'x', 'i', 'f', 0, 0};
        if (bytes_.size() >= prefix.size() && !std::memcmp(bytes_.data(), prefix.data(), prefix.size()))
            bytes_ = bytes_.subspan(prefix.size());
        isBigEndian_ = byteAt(0) == 'M';
    }

    std::optional<unsigned> shortTag(unsigned wanted) const {
        constexpr std::size_t entryBytes = 12;
        constexpr unsigned shortType = 3;
        if (numberAt(2, 2) != 42) return std::nullopt;
        const std::size_t directory = numberAt(4, 4);
        const std::size_t count = numberAt(directory, 2);
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t entry = directory + 2 + i * entryBytes;
            if (entry + entryBytes > bytes_.size()) return std::nullopt;
            if (numberAt(entry, 2) == wanted && numberAt(entry + 2, 2) == shortType)
                return numberAt(entry + 8, 2);
        }
        return std::nullopt;
    }

private:
    unsigned byteAt(std::size_t at) const {
        return at < bytes_.size() ? std::to_integer<unsigned>(bytes_[at]) : 0;
    }

    unsigned numberAt(std::size_t at, std::size_t count) const {
        unsigned number = 0;
        for (std::size_t i = 0; i < count; ++i)
            number = number << 8 | byteAt(at + (isBigEndian_ ? i : count - 1 - i));
        return number;
    }

    std::span<const std::byte> bytes_;
    bool isBigEndian_ = false;
};

constexpr int squarePx = 32;

struct Turn {
    bool mirrorsColumns, mirrorsRows, swapsAxes;   // of the stored picture
};
constexpr std::array<Turn, 8> turns{{
    {false, false, false},
    {true, false, false},
    {true, true, false},
    {false, true, false},
    {false, false, true},
    {false, true, true},
    {true, true, true},
    {true, false, true},
}};

}   // namespace

int exifOrientation(std::span<const std::byte> exif) {
    constexpr unsigned orientationTag = 0x0112;
    const unsigned orientation = TiffBlock(exif).shortTag(orientationTag).value_or(1);
    return orientation >= 1 && orientation <= turns.size() ? static_cast<int>(orientation) : 1;
}

imaging::Bitmap upright(imaging::Bitmap bitmap, int orientation) {
    if (orientation <= 1 || orientation > static_cast<int>(turns.size())) return bitmap;
    const Turn turn = turns[static_cast<std::size_t>(orientation) - 1];
    const imaging::Size stored = bitmap.size();
    const imaging::Size shown = turn.swapsAxes ? imaging::Size{stored.height, stored.width} : stored;
    imaging::Bitmap result = imaging::Bitmap::uninitialised(shown);
    const imaging::ConstBitmapView from = std::as_const(bitmap).view();
    const imaging::BitmapView to = result.view();
    const auto copyPixel = [&](int x, int y) {
        int column = turn.swapsAxes ? y : x, row = turn.swapsAxes ? x : y;
        if (turn.mirrorsColumns) column = stored.width - 1 - column;
        if (turn.mirrorsRows) row = stored.height - 1 - row;
        std::memcpy(to.row(y) + std::ptrdiff_t{x} * 4, from.row(row) + std::ptrdiff_t{column} * 4, 4);
    };
    // In squares, so that the rows that a column crosses stay in the processor's cache.
    for (int top = 0; top < shown.height; top += squarePx)
        for (int left = 0; left < shown.width; left += squarePx)
            for (int y = top; y < std::min(top + squarePx, shown.height); ++y)
                for (int x = left; x < std::min(left + squarePx, shown.width); ++x) copyPixel(x, y);
    return result;
}

}   // namespace tavix::media
