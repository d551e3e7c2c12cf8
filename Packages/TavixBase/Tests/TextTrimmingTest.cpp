#include "TavixBase/TextTrimming.h"
#include "TavixBase/Utf8.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

TEST(TextTrimming, TakesWhateverIsWhiteOffTheEnds) {
    const struct {
        std::string_view text, trimmed;
    } cases[] = {
        {"", ""},
        {" \t\r\n", ""},
        {" a b ", "a b"},
        {"\u00A0\u3000 a\u2009b\u2028\u0085", "a\u2009b"},
        {"\u200Ba", "\u200Ba"},   // no width, no white
        {" \xFF ", "\xFF"},       // no UTF-8
        {"a", "a"},
    };
    for (const auto& c : cases) EXPECT_EQ(trimmed(c.text), c.trimmed) << c.text;
    const std::string white(100'000, ' ');
    EXPECT_EQ(trimmed(white + "x" + white), "x");
}

TEST(TextTrimming, LowersEveryAlphabet) {
    const struct {
        std::string_view text, lowered;
    } cases[] = {
        {"AbZ09[", "abz09["},
        {"ÄÖÉ", "äöé"},
        {"ΣΩ", "σω"},
        {"ЖЯ", "жя"},
        {"日本", "日本"},
        {"A\xFFZ", "a\xFFz"},
        {"\xC3", "\xC3"},
        {"", ""},
    };
    for (const auto& c : cases) EXPECT_EQ(lowered(c.text), c.lowered) << c.text;
}

TEST(TextTrimming, ReadsEveryCodePoint) {
    for (char32_t point = 0; point <= 0x10FFFF; point += point < 0x3000 ? 1 : 97) {
        if (point >= 0xD800 && point <= 0xDFFF) continue;
        std::string text;
        utf8::append(text, point);
        const utf8::CodePoint read = utf8::codePointAt(text, 0);
        ASSERT_TRUE(read.isValid && read.value == point && read.lengthBytes == text.size())
            << unsigned(point);
    }
    EXPECT_FALSE(utf8::codePointAt("\xE2\x82", 0).isValid);
    EXPECT_EQ(utf8::codePointAt("\xE2\x82", 0).lengthBytes, 1u);
}

}   // namespace
}   // namespace tavix
