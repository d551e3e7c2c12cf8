// Moving text: what rests is the text as it is drawn at once, and what moves is only that.
#include "RenderTestKit.h"
#include "TavixCore/Typography/KineticPresetCatalog.h"
#include "TavixPlatform/Text/FontBook.h"
#include "TavixRender/Composition2D/CompositionContentSize.h"
#include "TavixRender/Composition2D/TextCompositionLayer.h"
#include "TavixRender/KineticText/KineticImageFX.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tavix {
namespace {

using imaging::Image;
using testing::Picture;
using testing::Pixel;

constexpr imaging::Size canvas{640, 360};
constexpr double windowSec = 4, holdSec = 2.5;

TextContent textOf(const std::string& text, const KineticSelector& kinetic) {
    TextContent content;
    content.text = text;
    content.sizeFraction = 0.12;
    content.kinetic = kinetic;
    return content;
}
KineticPresetRef preset(std::string_view id, KineticIntensity intensity = KineticIntensity::medium) {
    return {std::string(id), KineticSpeed::smooth, {}, intensity};
}

// A text layer in the middle of the canvas.
struct Block {
    explicit Block(const TextContent& content) {
        StillImageCache images{RenderLog()};
        const LayerBuild build{bounds, 30, {}, evaluator, images, book, {}};
        const TextCompositionLayer::Setting setting{bounds, {0.5, 0.5}, fonts, {}};
        layout =
            TextCompositionLayer::layout(content, setting, TextCompositionLayer::styleOf(content, 0), book);
        layer.emplace(content, setting, 0, KineticElementGroup::Window{windowSec, 30}, build);
    }
    std::optional<Image> at(double sec) { return layer->contentImage(sec); }
    Picture picture(double sec) { return Picture(at(sec).value_or(Image()), canvas); }
    const KineticElementGroup& group() const { return *layer->block().group(); }

    imaging::Rect bounds{0, 0, double(canvas.width), double(canvas.height)};
    std::map<std::string, std::string> fonts;
    text::FontBook book;
    imaging::Evaluator evaluator;
    std::optional<KineticTextLayout::Result> layout;
    std::optional<TextCompositionLayer> layer;
};

// From the top left; right and below are the first column and row without ink.
struct Ink {
    int left = canvas.width, top = canvas.height, right = 0, below = 0;
    int pixels = 0;
    double coverage = 0;   // in whole pixels
};
Ink inkOf(const Picture& picture, int leastAlpha = 8) {
    Ink ink;
    for (int y = 0; y < canvas.height; ++y)
        for (int x = 0; x < canvas.width; ++x) {
            if (picture.at(x, y).a < leastAlpha) continue;
            ink.left = std::min(ink.left, x);
            ink.right = std::max(ink.right, x + 1);
            ink.top = std::min(ink.top, y);
            ink.below = std::max(ink.below, y + 1);
            ++ink.pixels;
            ink.coverage += picture.at(x, y).a / 255.0;
        }
    return ink;
}

const char* const sentences[] = {"Ship it today", "Two lines of text, one of them long enough to be broken",
    "AV To fi ffl, y'all", "الحروف تتحرك", "अक्षर चलते हैं", "文字が動きだす", "ตัวอักษร เดิน",
    "👋 hi 👩‍🚀 e\u0301", "mixed مزيج of both"};

TEST(KineticText, RestsExactlyAsTheWholeTextIsDrawn) {
    for (const char* sentence : sentences) {
        SCOPED_TRACE(sentence);
        const Picture whole = Block(textOf(sentence, preset("none"))).picture(holdSec);
        ASSERT_GT(inkOf(whole).pixels, 500);
        for (const char* id :
            {"word-pop", "line-rise", "blur-in", "slam", "fade-up", "karaoke-fill", "tracking-in"}) {
            SCOPED_TRACE(id);
            // Where the ink of two words shares a pixel, each rounds on its own.
            EXPECT_LE(Block(textOf(sentence, preset(id))).picture(holdSec).distanceTo(whole), 3);
        }
    }
}

TEST(KineticText, KeepsItsHashWhileItRestsAndOnlyThen) {
    Block block(textOf("Ship it today", preset("word-pop")));
    const auto hash = [&](double sec) { return block.at(sec)->hash(); };
    EXPECT_EQ(hash(1.2), hash(2.9));
    EXPECT_NE(hash(0.2), hash(0.21));
    Block swaying(textOf("Ship it", preset("slam", KineticIntensity::high)));
    EXPECT_NE(swaying.at(1.5)->hash(), swaying.at(1.6)->hash());
}

TEST(KineticText, ShowsNothingOutsideItsWindow) {
    for (const KineticPresetCatalog::Entry& entry : KineticPresetCatalog::presets) {
        SCOPED_TRACE(entry.id);
        Block block(textOf("Ship it today", preset(entry.id)));
        const KineticStyle style =
            TextCompositionLayer::styleOf(textOf("Ship it today", preset(entry.id)), 0);
        EXPECT_EQ(block.at(0).has_value(), style.inPhase.opacity > 0);
        EXPECT_EQ(block.at(windowSec).has_value(), style.outPhase.opacity > 0);
        EXPECT_GT(inkOf(block.picture(holdSec)).pixels, 500);
    }
    EXPECT_FALSE(Block(textOf("", preset("slam"))).at(1));
    EXPECT_FALSE(Block(textOf(" \n ", preset("word-pop"))).at(1));
}

TEST(KineticText, RisesOutOfAMask) {
    TextContent content = textOf("Rising line", preset("line-rise", KineticIntensity::high));
    content.sizeFraction = 0.05;
    Block block(content);
    const imaging::Rect mask =
        imaging::grownBy(block.layout->elements.front().restRect, 0.08 * block.layout->pointSize + 1);
    const double whole = inkOf(block.picture(holdSec)).coverage;
    double before = 0;
    for (const double sec : {0.0, 0.02, 0.05, 0.1, 0.2, 0.5}) {
        const Ink ink = inkOf(block.picture(sec), 1);
        EXPECT_TRUE(ink.pixels == 0 || canvas.height - ink.below >= mask.y - 1)
            << "seen below the mask at " << sec;
        EXPECT_GE(ink.coverage, 0.99 * before) << "more of it has risen by " << sec;
        before = ink.coverage;
    }
    EXPECT_LT(inkOf(block.picture(0)).coverage, whole / 4);

    // Where it rests its shadow is whole.
    content.shadow = TextShadow{RGBAColor::black, 1, 0.03, {0, 0.05}};
    const Picture rising = Block(content).picture(holdSec);
    content.kinetic = preset("none");
    EXPECT_EQ(rising, Block(content).picture(holdSec));
}

TEST(KineticText, FillsWordByWord) {
    TextContent content = textOf("one two three", preset("karaoke-fill"));
    content.color = {1, 0.5, 0.25, 1};
    Block block(content);
    const auto strongest = [&](double sec, std::size_t element) {
        const imaging::Rect r = block.layout->elements[element].restRect;
        const Picture picture = block.picture(sec);
        Pixel most;
        for (int y = int(canvas.height - r.maxY()); y < int(canvas.height - r.y); ++y)
            for (int x = int(r.x); x < int(r.maxX()); ++x)
                if (picture.at(x, y).a > most.a) most = picture.at(x, y);
        return most;
    };
    ASSERT_EQ(block.layout->elements.size(), 3u);
    EXPECT_NEAR(strongest(0, 0).a, 0.42 * 255, 1);   // dim white
    EXPECT_EQ(strongest(0, 0).b, strongest(0, 0).a);
    EXPECT_EQ(strongest(0.23, 0), (Pixel{255, 128, 64, 255}));   // the first is filled
    EXPECT_NEAR(strongest(0.1, 1).a, 0.42 * 255, 1);             // and the second waits
    EXPECT_EQ(strongest(holdSec, 2), (Pixel{255, 128, 64, 255}));
}

TEST(KineticText, IsDrawnLargeEnoughForItsPeak) {
    const auto scale = [](const TextContent& content) { return Block(content).group().rasterScale(); };
    EXPECT_EQ(scale(textOf("Ship", preset("slam", KineticIntensity::high))), 3);
    EXPECT_EQ(scale(textOf("Ship", preset("slam"))), 2);
    EXPECT_EQ(scale(textOf("Ship", preset("word-pop"))), 1);
    EXPECT_EQ(KineticRaster::affordableScale({0, 0, 2000, 1000}, 4, 3), 2);
    EXPECT_EQ(KineticRaster::affordableScale({0, 0, 9000, 9000}, 4, 3), 1);
    EXPECT_EQ(KineticRaster::affordableScale({0, 0, 900, 900}, 4, 3), 3);
}

// An edge of enlarged text is as steep as one at rest, since it is not drawn from the pixels of the small
// one.
TEST(KineticText, StaysSharpWhileItIsLarge) {
    Block block(textOf("I", preset("slam", KineticIntensity::high)));
    const Picture large = block.picture(0.04);
    const Ink ink = inkOf(large, 1);
    const int row = (ink.top + ink.below) / 2;
    int peak = 0, soft = 0;
    for (int x = ink.left; x < ink.right; ++x) peak = std::max(peak, large.at(x, row).a);
    for (int x = ink.left; x < ink.right; ++x) {
        const int a = large.at(x, row).a;
        soft += a > peak / 20 && a < peak - peak / 20;
    }
    EXPECT_GT(
        ink.below - ink.top, 1.5 * (inkOf(block.picture(holdSec)).below - inkOf(block.picture(holdSec)).top));
    EXPECT_LE(soft, 4);
}

TEST(KineticText, EmphasisedWordsGrowAndAreMarked) {
    TextContent content = textOf("a bold word", preset("word-pop"));
    const Ink plain = inkOf(Block(content).picture(holdSec));
    content.emphasis = {{{1}, EmphasisToken::scalePop,
        {.textColor = {}, .scale = 1.5, .fontWeight = {}, .highlightColor = {}}}};
    Block grown(content);
    const KineticTextLayout::Element& word = grown.layout->elements[1];
    EXPECT_GT(inkOf(grown.picture(holdSec)).below - inkOf(grown.picture(holdSec)).top,
        1.3 * (plain.below - plain.top));
    EXPECT_EQ(grown.at(1.5)->hash(), grown.at(2.5)->hash()) << "it rests at that size";

    content.emphasis = {{{1}, EmphasisToken::highlight,
        {.textColor = RGBAColor::black,
            .scale = {},
            .fontWeight = {},
            .highlightColor = RGBAColor{0, 1, 0, 1}}}};
    const Picture marked = Block(content).picture(holdSec);
    const int x = int(word.pivot.x), top = int(canvas.height - word.restRect.maxY());
    EXPECT_EQ(marked.at(x, top - int(0.1 * grown.layout->pointSize)), (Pixel{0, 255, 0, 255}));
    EXPECT_EQ(marked.at(x, top - int(0.2 * grown.layout->pointSize)).a, 0);
}

TEST(KineticText, ATokenAloneIsEmphasisToo) {
    TextContent content = textOf("a bold word", preset("word-pop"));
    const Picture plain = Block(content).picture(holdSec);
    for (const EmphasisToken token :
        {EmphasisToken::accent, EmphasisToken::scalePop, EmphasisToken::highlight}) {
        content.emphasis = {{{1}, token, {}}};
        EXPECT_GT(Block(content).picture(holdSec).countBeyond(plain, 40), 200);
    }
}

TEST(KineticText, TakesEmphasisOfAnySize) {
    for (const double scale : {0.0, 1e-9, -2.0, 20.0, 1e9, 1e300}) {
        TextContent content = textOf("a bold word", preset("word-pop"));
        EmphasisStyle look;
        look.scale = scale;
        look.highlightColor = RGBAColor::white;
        content.emphasis = {{{1}, EmphasisToken::scalePop, look}};
        Block block(content);
        for (const double sec : {0.1, holdSec}) block.picture(sec);
    }
}

TEST(KineticText, SmearsWhileItIsFastAndSettlesSharp) {
    KineticStyle style;
    style.inPhase.durationSec = 0.5;
    style.inPhase.offset = {-0.5, 0};
    style.inPhase.motionBlur = 1;
    Block smeared(textOf("I", style));
    style.inPhase.motionBlur = 0;
    Block plain(textOf("I", style));
    const Ink fast = inkOf(smeared.picture(0.25), 1), same = inkOf(plain.picture(0.25), 1);
    // Half a frame's travel to either side: 0.5 of the height in 15 frames.
    EXPECT_NEAR(fast.right - fast.left - (same.right - same.left), 0.5 * canvas.height / 15, 3);
    EXPECT_EQ(fast.below - fast.top, same.below - same.top);
    EXPECT_EQ(smeared.picture(holdSec), plain.picture(holdSec));
}

TEST(KineticText, TipsAboutItsPivot) {
    KineticStyle style;
    style.inPhase.durationSec = 1;
    style.inPhase.rotationDeg = {0, 60, 0};
    Block block(textOf("Tipped", style));
    const Ink tipped = inkOf(block.picture(0)), rest = inkOf(block.picture(holdSec));
    EXPECT_LT(tipped.right - tipped.left, 0.75 * (rest.right - rest.left));
    EXPECT_NEAR((tipped.top + tipped.below) / 2.0, (rest.top + rest.below) / 2.0, 6);
}

TEST(KineticText, TakesHostileTextsAndStyles) {
    std::string endless;
    for (int i = 0; i < 20'000; ++i) endless += "word ";
    KineticStyle wild;
    wild.inPhase = {.durationSec = 1,
        .offset = {1e9, -1e9},
        .scale = 1e9,
        .rotationDeg = {89, 179, 1e9},
        .skewXDeg = 90,
        .trackingEm = -1,
        .blurRadiusFraction = 1e9,
        .motionBlur = 1e9};
    wild.idle = IdlePhase{IdlePhase::Target::scale, 1e6, 30, 1};
    for (const std::string& text : {endless, std::string("\x01\x02\xff\xed\xa0\x80 \U000E0001 \uFFFF\u0378"),
             std::string(500, '\n'), std::string("a\u0300\u0301\u0302\u0303\u0304\u0305\u0306")})
        for (const KineticSelector& kinetic :
            {KineticSelector(preset("char-cascade")), KineticSelector(wild)}) {
            TextContent content = textOf(text, kinetic);
            if (text.size() < 1000) content.shadow = TextShadow{RGBAColor::black, 1, 1e6, {1e6, -1e6}};
            Block block(content);
            for (const double sec : {0.0, 0.5, 1.5, 3.9}) block.picture(sec);
            content.sizeFraction = 1e6;
            if (text.size() < 1000) Block(content).picture(1);
        }
}

TEST(TextCompositionLayer, SpacesLettersInTheText) {
    const struct {
        double em;
        const char *text, *tracked;
    } cases[] = {{0.05, "a b", "a b"}, {0.06, "ab", "a\u2009b\u2009"}, {0.35, "a b", "a\u2009\u2002b\u2009"},
        {0.36, "a b", "a\u2002\u2002b\u2002"}, {0.4, " ", "\u2002"}, {0.1, "a\nb", "a\u2009\nb\u2009"},
        {0.1, "e\u0301👩‍🚀", "e\u0301\u2009👩‍🚀\u2009"}};
    for (const auto& c : cases) EXPECT_EQ(TextCompositionLayer::tracked(c.text, c.em), c.tracked);
    const std::vector<EmphasisSpan> spans{{{1, 7}, EmphasisToken::accent, {}}};
    EXPECT_EQ(TextCompositionLayer::trackedEmphasis(spans, "ab cde f", 0.2)[0].wordIndices,
        (std::vector<std::int64_t>{2, 3, 4}));
    EXPECT_EQ(TextCompositionLayer::trackedEmphasis(spans, "ab cde f", 0), spans);
}

TEST(CompositionContentSize, MeasuresWhatHasASize) {
    CompositionSpec spec = testing::specOf(canvas, 30, {});
    CompositionLayer layer;
    const TextContent content = textOf("Two words", preset("karaoke-fill"));
    layer.content = content;
    const auto size = CompositionContentSize::of(layer, spec, {});
    const imaging::Rect rests = KineticTextBlock::unionRect(*Block(content).layout);
    EXPECT_NEAR(size.width, rests.width, 1e-9);
    EXPECT_NEAR(size.height, rests.height, 1e-9);
    EXPECT_GT(size.height, 0.1 * canvas.height);
    EXPECT_NEAR(Block(content).layer->block().measuredHeight(), size.height, 1e-9);
    EXPECT_EQ(CompositionContentSize::of(testing::shapeLayer(RGBAColor::white, 0.25, 0.5), spec, {}),
        (CompositionContentSize::CanvasSize{160, 180}));
    layer.content = ImageContent{"lost.png", 0.5, 0, {}};
    EXPECT_EQ(CompositionContentSize::of(layer, spec, {}), CompositionContentSize::CanvasSize{});
    layer.content = textOf("", preset("none"));
    EXPECT_EQ(CompositionContentSize::of(layer, spec, {}), CompositionContentSize::CanvasSize{});
    EXPECT_EQ(CompositionContentSize::of(testing::fillLayer(RGBAColor::white), spec, {}),
        CompositionContentSize::CanvasSize{});
}

}   // namespace
}   // namespace tavix
