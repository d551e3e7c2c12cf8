#include "TavixCore/Values/TextWords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tavix::KineticMath {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(TextWords, CountsCharactersAsAReaderSeesThem) {
    const struct {
        const char* text;
        std::size_t count;
    } cases[] = {
        {"", 0}, {"abc", 3}, {"e\xCC\x81t\xC3\xA9", 3},        // an accent of its own, and a joined one
        {"\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA7", 1},   // woman, joiner, girl
        {"\xF0\x9F\x87\xA9\xF0\x9F\x87\xAA\xF0\x9F\x87\xAB\xF0\x9F\x87\xB7", 2},   // two flags
        {"\xF0\x9F\x91\x8D\xF0\x9F\x8F\xBD", 1},   // a thumb with its skin tone
        {"\r\n", 1},
        {"a\xFF\xFE"
         "b",
            4},            // bytes that are no UTF-8
        {"\xE2\x82", 2},   // a character cut short
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        const auto found = characters(c.text);
        EXPECT_EQ(found.size(), c.count);
        std::string joined;
        for (const std::string_view character : found) joined += character;
        EXPECT_EQ(joined, c.text);
    }
}

TEST(TextWords, SplitsAtAnyWhiteSpace) {
    EXPECT_THAT(words(""), IsEmpty());
    EXPECT_THAT(words(" \t\r\n\xC2\xA0\xE3\x80\x80\xC2\x85\xE2\x80\xA8"), IsEmpty());
    EXPECT_THAT(words("  Ship it,\nnow! "),
        ElementsAre(Word{"Ship", {2, 6}}, Word{"it,", {7, 10}}, Word{"now!", {11, 15}}));
    EXPECT_THAT(words("a\xE2\x80\x8B"
                      "b"),
        ElementsAre(Word{"a\xE2\x80\x8B"
                         "b",
            {0, 3}}))
        << "no width, no space";
}

TEST(TextWords, RangesCountCharactersNotBytes) {
    EXPECT_THAT(words("\xC3\xA9 \xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA7!"),
        ElementsAre(Word{"\xC3\xA9", {0, 1}}, Word{"\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA7!", {2, 4}}));
}

}   // namespace
}   // namespace tavix::KineticMath
