#include "TavixPlatform/Text/Tests/TextTestKit.h"

#include "TavixBase/Characters.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace tavix::text {

std::vector<std::string> hostileTexts() {
    const auto repeated = [](std::string_view part, std::size_t bytes) {
        std::string text;
        while (text.size() < bytes) text += part;
        return text;
    };
    constexpr std::size_t large = 100000;
    return {
        std::string("nul\0inside\x01\x02\x1b[0m\x7f", 17),
        "lone surrogates \xed\xa0\x80 and \xed\xbf\xbf, overlong \xc0\x80, cut \xe2\x82",
        "\xff\xfe\xfd",
        "unassigned \U000E0080\u0378\U000FFFFF\U0010FFFF\uFDD0 private \uE000\U000F0000",
        "soft\u00ADhyphen zero\u200Bwidth\u2060joiner\uFEFF variation\uFE0F",
        "\u202E\u202D\u2066\u2067\u2068 never closed \u05D0",
        repeated("word and מילה lorem ", large),
        repeated("a", large),
        repeated("\u0301", large),
        repeated("👨‍👩‍👧‍👦", large),
        repeated("สวัสดีชาวโลก", large),
        repeated("\u202Ea(", large),
        repeated("\n", 2000),
        repeated("\t", 2000),
    };
}

std::vector<TextRange> charactersOf(std::string_view text) {
    std::vector<TextRange> ranges;
    std::size_t at = 0;
    for (const std::string_view character : characters(text)) {
        ranges.push_back({at, at + character.size()});
        at += character.size();
    }
    return ranges;
}

std::vector<TextRange> codePointsOf(std::string_view text) {
    std::vector<TextRange> ranges;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool continues = (static_cast<unsigned char>(text[i]) & 0xC0) == 0x80;
        if (continues && !ranges.empty())
            ranges.back().end = i + 1;
        else
            ranges.push_back({i, i + 1});
    }
    return ranges;
}

std::vector<TextRange> wordsOf(std::string_view text) {
    std::vector<TextRange> words;
    bool isInside = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isBlank = text[i] == ' ' || text[i] == '\n' || text[i] == '\r';
        if (!isBlank && !isInside) words.push_back({i, i});
        if (!isBlank) words.back().end = i + 1;
        isInside = !isBlank;
    }
    return words;
}

LinePart wholeOf(const TypesetLine& line) { return {line.range(), {-1e6, 1e6}}; }

imaging::PixelRegion regionOf(const TypesetLine& line, imaging::Point origin, double scale) {
    return grownBy(inkRegion(line, origin, wholeOf(line), scale), 2);
}

std::uint32_t pixelAt(const imaging::Bitmap& bitmap, int x, int fromTop) {
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, bitmap.view().row(fromTop) + 4 * x, 4);
    return pixel;
}

imaging::Bitmap laidOver(const imaging::Bitmap& front, const imaging::Bitmap& back) {
    imaging::Bitmap result(front.size());
    for (int y = 0; y < front.size().height; ++y)
        for (int i = 0; i < 4 * front.size().width; ++i) {
            const std::uint8_t* over = front.view().row(y);
            const double left = 1 - over[i / 4 * 4 + 3] / 255.0;
            result.view().row(y)[i] = std::uint8_t(std::lround(over[i] + back.view().row(y)[i] * left));
        }
    return result;
}

std::size_t pixelsApart(const imaging::Bitmap& a, const imaging::Bitmap& b, int mostLevels) {
    if (!(a.size() == b.size())) return SIZE_MAX;
    std::size_t count = 0;
    for (int y = 0; y < a.size().height; ++y)
        for (int x = 0; x < a.size().width; ++x) {
            int most = 0;
            for (int i = 4 * x; i < 4 * x + 4; ++i)
                most = std::max(most, std::abs(int(a.view().row(y)[i]) - int(b.view().row(y)[i])));
            count += most > mostLevels;
        }
    return count;
}

std::size_t differingPixels(const imaging::Bitmap& a, const imaging::Bitmap& b) {
    if (!(a.size() == b.size())) return SIZE_MAX;
    std::size_t count = 0;
    for (int y = 0; y < a.size().height; ++y)
        for (int x = 0; x < a.size().width; ++x) count += pixelAt(a, x, y) != pixelAt(b, x, y);
    return count;
}

double inkOf(const imaging::Bitmap& bitmap) {
    double sum = 0;
    for (int y = 0; y < bitmap.size().height; ++y)
        for (int x = 0; x < bitmap.size().width; ++x) sum += bitmap.view().row(y)[4 * x + 3];
    return sum / 255;
}

}   // namespace tavix::text
