#include "TavixRender/KineticText/KineticTextLayout.h"

#include "TavixCore/Support/Names.h"
#include "TavixCore/Values/TextWords.h"
#include "TavixPlatform/Text/FontBook.h"
#include "TavixRender/Typesetting/CaptionLayout.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tavix {
namespace {

using KineticTextLayout::Element;
using KineticTextLayout::Fragment;
using KineticTextLayout::Request;
using KineticTextLayout::Result;

const text::FontBook& book() {
    static const text::FontBook fonts;
    return fonts;
}

Request requestFor(std::string text, AnimationScope scope = AnimationScope::word) {
    Request request;
    request.text = std::move(text);
    request.scope = scope;
    request.width = 1080;
    request.height = 1920;
    request.position = NormalizedPoint{0.5, 0.5};
    request.style.fontSizeFraction = 0.03;
    request.style.safeInsetFraction = 0.09;
    request.style.maxBarWidthFraction = 0.82;
    return request;
}

Result laidOut(const Request& request) { return KineticTextLayout::build(request, book()).value(); }

std::string repeated(std::string_view part, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += part;
    return text;
}

std::string textOf(const Element& element, const std::string& text) {
    std::string result;
    for (const Fragment& fragment : element.fragments)
        if (result.empty() || &fragment == &element.fragments.front() ||
            fragment.range.begin != (&fragment)[-1].range.begin)
            result += text.substr(fragment.range.begin, fragment.range.length());
    return result;
}

imaging::Rect unionOfElements(const Result& result) {
    imaging::Rect all;
    for (const Element& element : result.elements) all = unionOf(all, element.restRect);
    return all;
}

constexpr const char* manyScripts[] = {"The quick brown fox jumps over the lazy dog",
    "مرحبا بالعالم، هذا نص عربي جميل جدا", "abc שלום עולם 123 def مرحبا (end) abcאב גד",
    "नमस्ते दुनिया क्षत्रिय हिन्दी", "日本語のテキスト、東京タワー。 まっすぐ",
    "👨‍👩‍👧‍👦 family 🇩🇪 flag x̂é"};

TEST(KineticTextLayout, ElementsHoldTheTextInOrderAndStandWithinTheirLines) {
    for (const std::string text : manyScripts)
        for (const AnimationScope scope : {AnimationScope::word, AnimationScope::character}) {
            SCOPED_TRACE(text);
            const Result result = laidOut(requestFor(text, scope));
            std::string expected, found;
            for (const std::string_view character : KineticMath::characters(text))
                if (!KineticMath::isWhitespace(character)) expected += character;
            for (std::size_t i = 0; i < result.elements.size(); ++i) {
                const Element& element = result.elements[i];
                EXPECT_EQ(element.logicalIndex, i);
                found += textOf(element, text);
                for (const Fragment& fragment : element.fragments) {
                    const imaging::Rect rect = fragment.rect();
                    EXPECT_EQ(unionOf(element.restRect, rect), element.restRect);
                    EXPECT_GE(fragment.spanX0, fragment.lineOriginX - 0.01);
                    EXPECT_LE(fragment.spanX1, fragment.lineOriginX + fragment.line.widthPx() + 0.01);
                }
                EXPECT_EQ(element.pivot, element.restRect.center());
            }
            EXPECT_EQ(found, expected);
        }
}

TEST(KineticTextLayout, EveryScopeStandsInTheSamePlace) {
    for (const std::string text : manyScripts) {
        const imaging::Rect block = unionOfElements(laidOut(requestFor(text, AnimationScope::block)));
        for (const AnimationScope scope : {AnimationScope::line, AnimationScope::word}) {
            const imaging::Rect rect = unionOfElements(laidOut(requestFor(text, scope)));
            EXPECT_NEAR(rect.x, block.x, 0.01);
            EXPECT_NEAR(rect.y, block.y, 0.01);
            EXPECT_NEAR(rect.maxX(), block.maxX(), 0.01);
            EXPECT_NEAR(rect.maxY(), block.maxY(), 0.01);
        }
    }
}

TEST(KineticTextLayout, TooManyElementsMakeTheScopeStepUp) {
    const struct {
        std::string text;
        AnimationScope asked, used;
        std::size_t elements;
    } cases[] = {
        {repeated("ab ", 24), AnimationScope::character, AnimationScope::character, 48},
        {repeated("ab ", 25), AnimationScope::character, AnimationScope::word, 25},
        {repeated("a ", 49), AnimationScope::word, AnimationScope::line, 4},
        {repeated("a\n", 60), AnimationScope::character, AnimationScope::block, 1},
        {repeated("word ", 20000), AnimationScope::character, AnimationScope::block, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text.substr(0, 10));
        const Result result = laidOut(requestFor(c.text, c.asked));
        EXPECT_EQ(result.scope, c.used);
        EXPECT_EQ(result.elements.size(), c.elements);
    }
}

TEST(KineticTextLayout, AWordThatIsBrokenOverLinesIsOneElement) {
    const Result result = laidOut(requestFor(repeated("a", 60)));
    ASSERT_EQ(result.elements.size(), 1u);
    const Element& word = result.elements[0];
    ASSERT_GE(word.fragments.size(), 2u);
    EXPECT_GT(word.fragments[0].baselineY, word.fragments[1].baselineY);
    EXPECT_EQ(word.restRect,
        unionOf(word.fragments.front().rect(), unionOf(word.fragments.back().rect(), word.restRect)));
}

TEST(KineticTextLayout, OfNothingThereIsNothing) {
    EXPECT_FALSE(KineticTextLayout::build(requestFor(""), book()));
    EXPECT_TRUE(laidOut(requestFor("  \n ")).elements.empty());
    EXPECT_EQ(laidOut(requestFor(" \n ", AnimationScope::line)).elements.size(), 2u);
}

TEST(KineticTextLayout, AlignmentSharesAnEdgeAndLeavesTheWidestLineInTheMiddle) {
    Request request = requestFor("a wide line of text\nshort", AnimationScope::line);
    for (const char* alignment : {"left", "right", "center", "nonsense"}) {
        SCOPED_TRACE(alignment);
        request.alignment = alignment;
        const Result result = laidOut(request);
        const imaging::Rect wide = result.elements[0].restRect, narrow = result.elements[1].restRect;
        EXPECT_NEAR(wide.center().x, 540, 1e-6);
        const std::string_view name = alignment;
        if (name == "left") {
            EXPECT_NEAR(wide.x, narrow.x, 1e-6);
        } else if (name == "right") {
            EXPECT_NEAR(wide.maxX(), narrow.maxX(), 1e-6);
        } else {
            EXPECT_NEAR(narrow.center().x, 540, 1e-6);
        }
    }
}

TEST(KineticTextLayout, TheBlockIsKeptInsideTheCanvas) {
    const Request middle = requestFor("Inside", AnimationScope::block);
    const imaging::Rect rest = laidOut(middle).elements[0].restRect;
    const double marginX = 0.6 * 0.03 * 1920, marginY = 0.5 * 0.03 * 1920;
    for (const auto& [x, y] : {std::pair{0.0, 0.0}, {1.0, 1.0}, {-5.0, 9.0}, {0.3, 0.6}}) {
        Request request = middle;
        request.position = NormalizedPoint{x, y};
        const imaging::Rect rect = laidOut(request).elements[0].restRect;
        EXPECT_NEAR(rect.width, rest.width, 1e-6);
        EXPECT_GE(rect.x, marginX - 1e-6);
        EXPECT_LE(rect.maxX(), 1080 - marginX + 1e-6);
        EXPECT_GE(rect.y, marginY - 1e-6);
        EXPECT_LE(rect.maxY(), 1920 - marginY + 1e-6);
    }
    Request bottom = middle;
    bottom.position.reset();
    EXPECT_NEAR(laidOut(bottom).elements[0].restRect.y, 0.09 * 1920 + marginY, 1e-6);
}

TEST(KineticTextLayout, EmphasisColoursAndWeighsWordsWithoutMovingLinesApart) {
    Request plain = requestFor("one two three\nfour");
    Request bold = plain;
    const RGBAColor gold{1, 0.8, 0, 1};
    bold.emphasisSpans = {{{1, -3, 99}, EmphasisToken::accent, {RGBAColor::black, {}, FontWeight::black, {}}},
        {{1}, EmphasisToken::accent, {gold, 1.2, FontWeight::black, {}}}};
    const Result before = laidOut(plain), after = laidOut(bold);
    ASSERT_EQ(after.elements.size(), 4u);
    EXPECT_EQ(after.elements[1].restFill, gold) << "the later span wins";
    EXPECT_EQ(after.elements[1].emphasis->scale, 1.2);
    EXPECT_EQ(after.elements[0].restFill, plain.style.textColor);
    EXPECT_FALSE(after.elements[0].emphasis);
    EXPECT_GT(after.elements[1].restRect.width, before.elements[1].restRect.width);
    EXPECT_EQ(after.elements[3].restRect, before.elements[3].restRect);
    EXPECT_EQ(after.elements[1].restRect.height, before.elements[1].restRect.height);
}

// The pixels of the text at rest, painted from its pieces.
imaging::Bitmap painted(const Result& result) {
    imaging::Bitmap canvas({int(result.canvasWidth), int(result.canvasHeight)});
    for (const Element& element : result.elements)
        for (const Fragment& fragment : element.fragments) {
            const imaging::PixelRegion region =
                inkRegion(fragment.line, fragment.origin(), fragment.part(), 1);
            if (region.isEmpty()) continue;
            const imaging::Bitmap piece = drawn(fragment.line, fragment.origin(), fragment.part(), 1, region);
            for (int y = 0; y < region.height(); ++y)
                for (int x = 0; x < 4 * region.width(); ++x) {
                    std::uint8_t& pixel =
                        canvas.view().row(int(result.canvasHeight) - region.y1 + y)[4 * region.x0 + x];
                    pixel = std::max(pixel, piece.view().row(y)[x]);
                }
        }
    return canvas;
}

TEST(KineticTextLayout, WordsAtRestHaveThePixelsOfTheWholeBlock) {
    for (const std::string text : manyScripts)
        for (const char* font : {"", "Georgia", "Futura-Medium"}) {
            SCOPED_TRACE(text);
            Request request = requestFor(text, AnimationScope::block);
            request.style.fontName = font;
            const imaging::Bitmap whole = painted(laidOut(request));
            request.scope = AnimationScope::word;
            const imaging::Bitmap words = painted(laidOut(request));
            for (int y = 0; y < whole.size().height; ++y)
                ASSERT_TRUE(std::equal(
                    whole.view().row(y), whole.view().row(y) + 4 * whole.size().width, words.view().row(y)))
                    << "row " << y;
        }
}

TEST(KineticTextLayout, BlanksAtTheEndOfAParagraphHideNoLetter) {
    // From right to left they stand before the text, and are wider than a line may be.
    const Result result = laidOut(requestFor("שלום" + std::string(300, ' '), AnimationScope::block));
    const Fragment& line = result.elements[0].fragments[0];
    const imaging::PixelRegion ink = inkRegion(line.line, line.origin(), line.part(), 1);
    EXPECT_GT(ink.width(), 50);
}

TEST(KineticTextLayout, WhatColoursAnimateIsDrawnWhite) {
    Request request = requestFor("white", AnimationScope::block);
    request.style.textColor = {1, 0, 0, 1};
    request.colorAnimated = true;
    const imaging::Bitmap canvas = painted(laidOut(request));
    const std::uint8_t* begin = canvas.view().row(0);
    const std::size_t bytes = std::size_t(canvas.view().strideBytes) * std::size_t(canvas.size().height);
    std::size_t colored = 0;
    for (std::size_t i = 0; i < bytes; i += 4) colored += begin[i] != begin[i + 2];
    EXPECT_EQ(colored, 0u);
}

TEST(KineticTextLayout, ANoteNamesTheFontThatStoodIn) {
    Request request = requestFor("text");
    EXPECT_FALSE(laidOut(request).note);
    request.style.fontName = "Palatino-Roman";
    EXPECT_EQ(laidOut(request).note,
        "The font \"Palatino-Roman\" is not on this machine; \"P052\" stands in for it. Bring its file in the bundle and name that as the font.");
    request.style.fontName = "fonts/Lost.otf";
    EXPECT_EQ(laidOut(request).note,
        "The font file \"fonts/Lost.otf\" is missing or holds no font; \"Inter\" stands in for it. Check its path, which starts at the document's folder.");
}

TEST(KineticTextLayout, OddSizesGiveALayoutAllTheSame) {
    for (const auto& [width, height] : {std::pair{0.0, 0.0}, {1.0, 1.0}, {10.0, 4000.0}, {8000.0, 2.0}})
        for (const double fraction : {-1.0, 0.0, 0.5, 30.0}) {
            Request request = requestFor("odd sizes", AnimationScope::word);
            request.width = width;
            request.height = height;
            request.style.fontSizeFraction = fraction;
            EXPECT_EQ(laidOut(request).elements.size(), 2u);
        }
}

TEST(ApplyWeight, GivesTheNearestFaceAndNeverALighterOneForBold) {
    const text::Font inter = book().interfaceFont(40);
    for (const FontWeight weight : allCases<FontWeight>())
        EXPECT_NEAR(
            KineticTextLayout::applyWeight(inter, weight).weightTrait(), coreTextWeight(weight), 1e-9);
    const text::Font palatino = book().named("P052-Roman", 40).font;   // regular and bold alone
    const struct {
        FontWeight weight;
        const char* face;
    } cases[] = {{FontWeight::light, "P052-Roman"}, {FontWeight::medium, "P052-Roman"},
        {FontWeight::semibold, "P052-Bold"}, {FontWeight::black, "P052-Bold"}};
    for (const auto& c : cases)
        EXPECT_EQ(KineticTextLayout::applyWeight(palatino, c.weight).postScriptName(), c.face);
}

}   // namespace
}   // namespace tavix
