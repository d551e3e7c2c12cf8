#include "TavixPlatform/Text/FontBook.h"

#include "TavixPlatform/Text/FontStandIns.h"
#include "TavixPlatform/Text/Tests/TextTestKit.h"
#include "TestSupport/SourceTree.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <thread>

namespace tavix::text {
namespace {

const std::filesystem::path dataFolder = testsupport::inSourceTree("Packages/TavixPlatform/Text/Tests/Data");
const std::filesystem::path barsFile = dataFolder / "TavixBars-Variable.ttf";
const std::filesystem::path swashFile = dataFolder / "TavixSwash-Regular.ttf";

const FontBook& book() {
    static const FontBook fonts;
    return fonts;
}

// How much ink a line of that font leaves.
double inkOfText(const Font& font, const std::string& text) {
    const TypesetLine line = wrappedLines({text, font}, 1e6).front();
    return inkOf(drawn(line, {}, wholeOf(line), 1, regionOf(line, {}, 1)));
}

TEST(FontBook, FindsAFaceByPostScriptNameFullNameAndFamilyWhateverTheCase) {
    for (const char* name : {"Inter-SemiBold", "inter-semibold", "INTER SEMI BOLD", "Inter Semi Bold"}) {
        SCOPED_TRACE(name);
        const FoundFont found = book().named(name, 40);
        EXPECT_FALSE(found.isStandIn);
        EXPECT_EQ(found.font.postScriptName(), "Inter-SemiBold");
        EXPECT_EQ(found.font.sizePx(), 40);
    }
    EXPECT_EQ(book().named("Inter", 40).font.postScriptName(), "Inter-Regular");
    EXPECT_EQ(book().interfaceFont(40).familyName(), FontBook::interfaceFamily);
}

TEST(FontBook, EveryStandInIsAFontThatSetupInstalls) {
    for (const FontStandIn& row : fontStandIns()) {
        SCOPED_TRACE(row.nameBegin);
        const FoundFont found = book().named(row.family, 20);
        EXPECT_FALSE(found.isStandIn) << row.family;
        EXPECT_EQ(found.font.familyName(), row.family);
        EXPECT_FALSE(found.font.isItalic());
    }
}

TEST(FontBook, StandsInForWhatTheMachineLacksAndSaysSo) {
    const struct {
        const char *name, *postScriptName;
    } cases[] = {{"Palatino-Roman", "P052-Roman"}, {"HelveticaNeue-Bold", "NimbusSans-Bold"},
        {"Helvetica Neue", "NimbusSans-Regular"}, {"HelveticaNeue-Medium", "NimbusSans-Regular"},
        {"Futura-DemiBold", "URWGothic-Demi"}, {"No Such Font At All", "Inter-Regular"},
        {"NoSuchFont-Bold", "Inter-Bold"}, {"", "Inter-Regular"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const FoundFont found = book().named(c.name, 20);
        EXPECT_TRUE(found.isStandIn);
        EXPECT_EQ(found.font.postScriptName(), c.postScriptName);
    }
}

TEST(FontBook, AFileIsKnownOnlyToItsOwnBook) {
    const FontBook mine;
    const FontBook* withBars = mine.withFile(barsFile);
    ASSERT_TRUE(withBars);
    EXPECT_EQ(mine.withFile(barsFile), withBars);
    EXPECT_EQ(withBars->nameOfFile(), "TavixBars-Variable");
    EXPECT_FALSE(withBars->named("TavixBars-Variable", 20).isStandIn);
    EXPECT_FALSE(withBars->named("tavix bars", 20).isStandIn);
    EXPECT_FALSE(withBars->named("Inter", 20).isStandIn);
    EXPECT_TRUE(mine.named("TavixBars-Variable", 20).isStandIn);
    EXPECT_TRUE(mine.withFile(swashFile)->named("TavixBars-Variable", 20).isStandIn);
    EXPECT_EQ(mine.nameOfFile(), "");
}

// How a sign looks that only TavixSigns has, in the interface font of a book.
double inkOfSign(const FontBook& fonts) { return inkOfText(fonts.interfaceFont(100), "\uE7A0"); }

TEST(FontBook, AFileFillsInForNoOtherFontAndOthersFillInForIt) {
    const FontBook mine;
    const double box = inkOfSign(mine);
    const FontBook& signs = *mine.withFile(dataFolder / "TavixSigns-Wide.ttf");
    const Font font = signs.named("Tavix Signs", 100).font;
    EXPECT_NEAR(inkOfText(font, "\uE7A0"), 50 * 70, 10);
    EXPECT_NEAR(inkOfText(mine.withFile(dataFolder / "TavixSigns-Narrow.ttf")->named("Tavix Signs", 100).font,
                    "\uE7A0"),
        10 * 70, 10);
    EXPECT_EQ(inkOfSign(mine), box);
    EXPECT_EQ(inkOfSign(FontBook()), box);
    EXPECT_EQ(inkOfSign(*mine.withFile(swashFile)), box);
    EXPECT_EQ(inkOfText(font, "Wolf"), inkOfText(mine.interfaceFont(100), "Wolf"));
}

TEST(FontBook, ManyThreadsMayAskOneBookForFiles) {
    const FontBook mine;
    const double box = inkOfSign(mine);
    std::vector<std::array<double, 3>> inks(4);
    {
        std::vector<std::jthread> threads;
        for (auto& ink : inks)
            threads.emplace_back([&] {
                ink[0] = inkOfText(
                    mine.withFile(dataFolder / "TavixSigns-Wide.ttf")->named("Tavix Signs", 100).font,
                    "\uE7A0");
                ink[1] = inkOfSign(mine);
                ink[2] = inkOfSign(FontBook());
            });
    }
    for (const auto& ink : inks) {
        EXPECT_NEAR(ink[0], 50 * 70, 10);
        EXPECT_EQ(ink[1], box);
        EXPECT_EQ(ink[2], box);
    }
}

TEST(FontBook, WhatIsNoFontIsPassedOver) {
    const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) / "tavix-broken-fonts";
    std::filesystem::create_directories(folder);
    std::ifstream source(barsFile, std::ios::binary);
    const std::string good{std::istreambuf_iterator<char>(source), {}};
    std::ofstream(folder / "empty.ttf") << "";
    std::ofstream(folder / "text.otf") << "This is no font.";
    std::ofstream(folder / "short.ttf", std::ios::binary) << good.substr(0, 200);
    const FontBook mine;
    for (const char* name : {"empty.ttf", "text.otf", "short.ttf", "missing.ttf", "."}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(mine.withFile(folder / name), nullptr);
    }
    // Damage behind the tables' list may leave a font; whatever it is, text is set in it.
    for (std::size_t at = 200; at < good.size(); at += 97) {
        std::string damaged = good;
        for (std::size_t i = at; i < std::min(at + 40, good.size()); ++i)
            damaged[i] = static_cast<char>(0xA5);
        const std::filesystem::path file = folder / ("damaged-" + std::to_string(at) + ".ttf");
        std::ofstream(file, std::ios::binary) << damaged;
        if (const FontBook* with = mine.withFile(file))
            inkOfText(with->named(with->nameOfFile(), 30).font, "Wolf 12 ﬁ");
    }
    std::filesystem::remove_all(folder);
}

TEST(Font, AFamilyGivesTheFaceOfTheNearestWeight) {
    const Font regular = book().interfaceFont(30);
    double before = 0;
    for (const double trait : {-0.4, 0.0, 0.23, 0.3, 0.4, 0.56, 0.62}) {
        SCOPED_TRACE(trait);
        const Font face = regular.withWeightTrait(trait);
        EXPECT_NEAR(face.weightTrait(), trait, 1e-9);
        EXPECT_EQ(face.familyName(), regular.familyName());
        const double ink = inkOfText(face, "Heavier");
        EXPECT_GT(ink, before);
        before = ink;
    }
}

TEST(Font, AVariableAxisMovesTheInkAndIsHeldWithinItsLimits) {
    const FontBook mine;
    const Font font = mine.withFile(barsFile)->named("TavixBars-Variable", 100).font;
    ASSERT_EQ(font.variationAxes(), (std::vector<VariationAxis>{{weightAxis, 100, 100, 900}}));
    // A bar is 70 high, and from 10 to 50 wide.
    for (const auto& [value, width] :
        {std::pair{100.0, 10.0}, {300.0, 20.0}, {900.0, 50.0}, {5000.0, 50.0}}) {
        SCOPED_TRACE(value);
        const auto varied = font.withVariation(weightAxis, value);
        ASSERT_TRUE(varied);
        EXPECT_NEAR(inkOfText(*varied, "a"), 70 * width, 10);
    }
    EXPECT_FALSE(font.withVariation(0x77647468, 100));   // "wdth"
    EXPECT_FALSE(book().interfaceFont(20).withVariation(weightAxis, 700));
}

TEST(Font, MetricsGrowWithTheSize) {
    const FontBook mine;
    const FontBook& bars = *mine.withFile(barsFile);
    EXPECT_EQ(bars.named("Tavix Bars", 100).font.metrics(), (FontMetrics{80, 20, 10}));
    EXPECT_EQ(bars.named("Tavix Bars", 50).font.metrics(), (FontMetrics{40, 10, 5}));
}

TEST(FontBook, WithoutAnyFontTextIsSetAllTheSame) {
    const std::filesystem::path empty = std::filesystem::path(testing::TempDir()) / "tavix-no-fonts";
    std::filesystem::create_directories(empty);
    const FontBook none({empty});
    const Font font = none.interfaceFont(20).withWeightTrait(0.4);
    for (const Sample& sample : samples) wrappedLines({std::string(sample.text), font}, 100);
    std::filesystem::remove_all(empty);
}

}   // namespace
}   // namespace tavix::text
