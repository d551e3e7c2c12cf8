#include "TavixBase/NearestWord.h"

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace tavix {
namespace {

TEST(NearestWord, EditDistanceIsADistance) {
    EXPECT_EQ(editDistance("kitten", "sitting"), 3u);
    EXPECT_EQ(editDistance("", "abc"), 3u);
    EXPECT_EQ(editDistance("\xC3\xA9t\xC3\xA9", "ete"), 2u) << "in characters, not bytes";
    std::mt19937 random(7);
    const auto word = [&] {
        std::string made;
        while (random() % 5 != 0) made += random() % 2 != 0 ? 'a' : 'b';
        return made;
    };
    for (int i = 0; i < 300; ++i) {
        const std::string a = word(), b = word(), c = word();
        SCOPED_TRACE(a + " " + b + " " + c);
        EXPECT_EQ(editDistance(a, b) == 0, a == b);
        EXPECT_EQ(editDistance(a, b), editDistance(b, a));
        EXPECT_LE(editDistance(a, c), editDistance(a, b) + editDistance(b, c));
        EXPECT_LE(editDistance(a, b), std::max(a.size(), b.size()));
    }
}

TEST(NearestWord, SuggestsTheNearestNameWithinReach) {
    const struct {
        const char* word;
        std::vector<std::string_view> candidates;
        const char* suggestion;   // empty: none
    } cases[] = {
        {"fade", {}, ""}, {"fade", {"faXY"}, "Did you mean \"faXY\"?"},   // two off in a short word
        {"fade", {"fXYZ"}, ""},
        {"ripple", {"ripXYe"}, "Did you mean \"ripXYe\"?"},   // a third of a longer one
        {"ripple", {"riXYZe"}, ""}, {"crosswarp", {"XYZsswarp"}, "Did you mean \"XYZsswarp\"?"},
        {"crosswarp", {"WXYZswarp"}, ""},
        {"WHIP", {"whoosh", "Whip"}, "Did you mean \"Whip\"?"},    // whatever the case
        {"bat", {"dog", "cat", "hat"}, "Did you mean \"cat\"?"},   // the first of the nearest
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.word);
        EXPECT_EQ(didYouMean(c.word, c.candidates).value_or(""), c.suggestion);
    }
}

TEST(NearestWord, SuggestsNamesOfAnyLengthAndAlphabet) {
    const std::string name = std::string(90'000, 'a') + "end";
    const std::vector<std::string_view> names{name};
    EXPECT_EQ(didYouMean(std::string(90'000, 'a') + "edn", names), "Did you mean \"" + name + "\"?");
    EXPECT_EQ(didYouMean("EINGANGSMENÜ", std::vector<std::string_view>{"eingangsmenü"}),
        "Did you mean \"eingangsmenü\"?");
    // Answered, and at once.
    const std::string endless(10'000'000, 'a');   // NOLINT(bugprone-string-constructor)
    EXPECT_FALSE(didYouMean(endless, names));
    EXPECT_FALSE(didYouMean("fade", std::vector<std::string_view>{endless}));
}

}   // namespace
}   // namespace tavix
