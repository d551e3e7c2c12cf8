// Texts of many scripts, and pictures of lines, for the tests of this library.
#pragma once

#include "TavixPlatform/Text/FontBook.h"
#include "TavixPlatform/Text/LineDrawing.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::text {

struct Sample {
    std::string_view name, text;
};
inline std::ostream& operator<<(std::ostream& out, const Sample& sample) { return out << sample.name; }

inline std::string nameOfSample(const testing::TestParamInfo<Sample>& test) {
    return std::string(test.param.name);
}

// What each script does to its letters differs: joining, reordering, stacking, no blanks, no letters at all.
inline constexpr Sample samples[] = {
    {"Latin", "Wolf AVATAR fjord, office 0123 \"quoted\" ﬁ"},
    {"Marks", "x\u0302e\u0301o\u0308\u0323 Z\u0351\u0343\u036B a\u0301"},
    {"Arabic", "مرحبا بالعالم، هذا نص عربي لا إله"},
    {"Hebrew", "שלום עולם, זהו טקסט"},
    {"Mixed", "abc שלום עולם 123 def مرحبا (end) שלוםxyz אב"},
    {"Devanagari", "नमस्ते दुनिया क्षत्रिय हिन्दी"},
    {"Thai", "สวัสดีชาวโลก ภาษาไทย น้ำ"},
    {"Japanese", "日本語のテキスト、東京タワー。"},
    {"Korean", "한국어 텍스트 각"},
    {"Emoji", "👨‍👩‍👧‍👦 🇩🇪 👍🏽 ❤️ ok"},
    {"Paragraphs", "one\n\ntwo\r\nthree\rfour\u2028five\n"},
    {"Blank", "   "},
};

// Texts that a typesetter stumbles over.
std::vector<std::string> hostileTexts();

// Byte ranges of the words between blanks and line breaks.
std::vector<TextRange> wordsOf(std::string_view text);
// Byte ranges of what a reader sees as characters.
std::vector<TextRange> charactersOf(std::string_view text);
// Byte ranges of the code points; a broken byte counts as one.
std::vector<TextRange> codePointsOf(std::string_view text);

// What a whole line is, as a part.
LinePart wholeOf(const TypesetLine& line);
// A region that holds every part's ink.
imaging::PixelRegion regionOf(const TypesetLine& line, imaging::Point origin, double scale);

std::uint32_t pixelAt(const imaging::Bitmap& bitmap, int x, int fromTop);
// The one over the other.
imaging::Bitmap laidOver(const imaging::Bitmap& front, const imaging::Bitmap& back);
// How many pixels differ by more than that in any channel.
std::size_t pixelsApart(const imaging::Bitmap& a, const imaging::Bitmap& b, int mostLevels);
std::size_t differingPixels(const imaging::Bitmap& a, const imaging::Bitmap& b);
// The sum of all alphas, in whole pixels.
double inkOf(const imaging::Bitmap& bitmap);

}   // namespace tavix::text
