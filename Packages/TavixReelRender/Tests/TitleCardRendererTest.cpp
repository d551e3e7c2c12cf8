// Title cards as they are seen.
#include "TavixReelRender/Cards/TitleCardRenderer.h"
#include "ReelTestKit.h"
#include "TavixCore/Typography/KineticPresetCatalog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavix {
namespace {

using namespace testing;
using ::testing::Contains;
using ::testing::HasSubstr;

constexpr imaging::Size canvas{360, 600};
constexpr Pixel ground{0, 0, 128, 255};

TitleCard cardOf(const std::string& headline) {
    TitleCard card;
    card.durationSec = 3;
    card.background = RGBAColor{0, 0, 128 / 255.0, 1};
    card.headline.text = headline;
    return card;
}

// The rows in which a picture is not all ground, as runs from the top.
struct Rows {
    int first, last;
    double middle() const { return (first + last) / 2.0; }
};
std::vector<Rows> inkIn(const Picture& picture, int mostGap = 6) {
    std::vector<Rows> runs;
    for (int y = 0; y < canvas.height; ++y) {
        bool isInked = false;
        for (int x = 0; x < canvas.width; ++x) isInked = isInked || picture.at(x, y) != ground;
        if (!isInked) continue;
        if (runs.empty() || y - runs.back().last > mostGap) runs.push_back({y, y});
        runs.back().last = y;
    }
    return runs;
}

struct Cards : ::testing::Test {
    Picture frame(const TitleCard& card, double sec = 1.5) {
        const TitleCardRenderer renderer(card, RGBAColor{1, 0, 0, 1}, studio.build());
        return studio.picture(renderer.frame(sec));
    }
    Studio studio{canvas};
};

TEST_F(Cards, StackLogoHeadlineAndSublineALittleAboveTheMiddle) {
    TitleCard card = cardOf("HEAD");
    const auto alone = inkIn(frame(card));
    ASSERT_EQ(alone.size(), 1u);
    EXPECT_NEAR(alone[0].middle(), 0.47 * canvas.height, 8);

    card.subline.emplace().text = "SUB";
    card.subline->sizeFraction = 0.03;
    card.showLogo = true;
    card.logoPath = ringName;
    card.logoSizeFraction = 0.2;
    const auto all = inkIn(frame(card));
    ASSERT_EQ(all.size(), 3u);
    EXPECT_NEAR(all[0].last - all[0].first + 1, 0.2 * canvas.height, 2);   // the logo at its size
    EXPECT_NEAR((all.front().first + all.back().last) / 2.0, 0.47 * canvas.height, 12);
    EXPECT_GT(all[1].first - all[0].last, 0.035 * canvas.height - 1);
    // A logo that was wanted and cannot be read is told, and the card looks as if there were none.
    TitleCard without = card;
    without.showLogo = false;
    card.logoPath = "gone.png";
    EXPECT_EQ(frame(card), frame(without));
    EXPECT_THAT(studio.log, Contains(HasSubstr("gone.png")));
}

TEST_F(Cards, TextsComeAtTheirTimesAndLeaveTheCardEmptyAtItsEnds) {
    TitleCard card = cardOf("HEAD");
    card.headline.delaySec = 0.5;
    EXPECT_TRUE(inkIn(frame(card, 0)).empty());
    EXPECT_TRUE(inkIn(frame(card, 0.45)).empty());
    EXPECT_FALSE(inkIn(frame(card, 2)).empty());
    EXPECT_TRUE(inkIn(frame(card, 3)).empty());
}

// However large a text is that rises out of a mask: the card is empty until it begins, and in the end again.
TEST_F(Cards, ALargeTextRisesFromNothing) {
    for (const double sizeFraction : {0.02, 0.06, 0.12}) {
        SCOPED_TRACE(sizeFraction);
        TitleCard card = cardOf("Hgj");
        card.headline.sizeFraction = sizeFraction;
        card.headline.delaySec = 0.2;
        card.headline.kinetic =
            KineticPresetCatalog::resolve({.preset = {"line-rise"}, .text = "Hgj", .seed = 1, .accent = {}})
                .style;
        EXPECT_TRUE(inkIn(frame(card, 0)).empty());
        EXPECT_TRUE(inkIn(frame(card, 0.19)).empty());
        EXPECT_FALSE(inkIn(frame(card, 0.3)).empty());
        EXPECT_FALSE(inkIn(frame(card, 1.5)).empty());
        EXPECT_TRUE(inkIn(frame(card, 2.999)).empty());
    }
}

TEST_F(Cards, WithoutABackgroundTheReelsIsBehindThem) {
    TitleCard card = cardOf("");
    EXPECT_EQ(frame(card).at(9, 9), ground);
    card.background.reset();
    EXPECT_EQ(frame(card).at(9, 9), (Pixel{255, 0, 0, 255}));
}

TEST_F(Cards, AreHeldToTheirOwnWidth) {
    TitleCard narrow = cardOf("SEVERAL WORDS THAT DO NOT FIT");
    narrow.headline.maxWidthFraction = 0.4;
    TitleCard wide = narrow;
    wide.headline.maxWidthFraction = 0.95;
    EXPECT_GT(inkIn(frame(narrow), 30)[0].last - inkIn(frame(narrow), 30)[0].first,
        inkIn(frame(wide), 30)[0].last - inkIn(frame(wide), 30)[0].first);
}

// The columns that have ink, over the whole card.
int inkWidth(const Picture& picture) {
    int first = canvas.width, last = -1;
    for (int y = 0; y < canvas.height; ++y)
        for (int x = 0; x < canvas.width; ++x)
            if (picture.at(x, y) != ground) first = std::min(first, x), last = std::max(last, x);
    return last - first + 1;
}

TEST_F(Cards, AreAsWideAsTheyMayBeAndBreakNoWord) {
    TitleCard card = cardOf("REMEMBERED");
    card.headline.maxWidthFraction = 0.8;
    card.headline.sizeFraction = 0.03;
    const auto small = inkIn(frame(card));
    ASSERT_EQ(small.size(), 1u);
    const double widthOfHeight = double(inkWidth(frame(card))) / (small[0].last - small[0].first + 1);
    card.headline.sizeFraction = 0.09;   // 54 pixels, at which ten capitals do not fit into 288
    const auto large = inkIn(frame(card));
    ASSERT_EQ(large.size(), 1u) << "on one line";
    const int width = inkWidth(frame(card));
    EXPECT_GT(width, 0.6 * 288);
    EXPECT_LE(width, 288);
    EXPECT_NEAR(double(width) / (large[0].last - large[0].first + 1), widthOfHeight, 0.6) << "not cut";
    card.headline.text = "GO ON";   // words that fit keep the size
    card.headline.sizeFraction = 0.05;
    TitleCard beside = card;
    beside.headline.text = "GO ON REMEMBERED";
    const auto one = inkIn(frame(card)), two = inkIn(frame(beside));
    EXPECT_NEAR(one[0].last - one[0].first, two[0].last - two[0].first, 1);
}

}   // namespace
}   // namespace tavix
