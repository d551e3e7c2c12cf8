#include "TavixPlatform/Text/FontBook.h"

#include "TavixPlatform/Text/FontStandIns.h"
#include "TavixPlatform/Text/Tests/TextTestKit.h"
#include "TestSupport/SourceTree.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace tavix::text {
namespace {

const std::filesystem::path dataFolder = testsupport::inSourceTree("Packages/TavixPlatform/Text/Tests/Data");
const std::filesystem::path barsFile = dataFolder / "TavixBars-Variable.ttf";

FontBook& book() { return FontBook::ofThisMachine(); }

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

TEST(FontBook, AFileIsKnownOnlyToTheBookItWasAddedTo) {
    FontBook mine;
    EXPECT_TRUE(mine.named("TavixBars-Variable", 20).isStandIn);
    EXPECT_EQ(mine.addFile(barsFile), "TavixBars-Variable");
    EXPECT_EQ(mine.addFile(barsFile), "TavixBars-Variable");
    EXPECT_FALSE(mine.named("TavixBars-Variable", 20).isStandIn);
    EXPECT_FALSE(mine.named("tavix bars", 20).isStandIn);
    EXPECT_TRUE(FontBook().named("TavixBars-Variable", 20).isStandIn);
}

TEST(FontBook, WhatIsNoFontIsPassedOver) {
    const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) / "tavix-broken-fonts";
    std::filesystem::create_directories(folder);
    std::ifstream source(barsFile, std::ios::binary);
    const std::string good{std::istreambuf_iterator<char>(source), {}};
    std::ofstream(folder / "empty.ttf");
    std::ofstream(folder / "text.otf") << "This is no font.";
    std::ofstream(folder / "short.ttf", std::ios::binary) << good.substr(0, 200);
    FontBook mine;
    for (const char* name : {"empty.ttf", "text.otf", "short.ttf", "missing.ttf", "."}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(mine.addFile(folder / name), std::nullopt);
    }
    // Damage behind the tables' list may leave a font; whatever it is, text is set in it.
    for (std::size_t at = 200; at < good.size(); at += 97) {
        std::string damaged = good;
        for (std::size_t i = at; i < std::min(at + 40, good.size()); ++i)
            damaged[i] = static_cast<char>(0xA5);
        const std::filesystem::path file = folder / ("damaged-" + std::to_string(at) + ".ttf");
        std::ofstream(file, std::ios::binary) << damaged;
        if (const auto name = mine.addFile(file)) inkOfText(mine.named(*name, 30).font, "Wolf 12 ﬁ");
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
    FontBook mine;
    mine.addFile(barsFile);
    const Font font = mine.named("TavixBars-Variable", 100).font;
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
    FontBook mine;
    mine.addFile(barsFile);
    EXPECT_EQ(mine.named("Tavix Bars", 100).font.metrics(), (FontMetrics{80, 20, 10}));
    EXPECT_EQ(mine.named("Tavix Bars", 50).font.metrics(), (FontMetrics{40, 10, 5}));
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
