#include "TavixRender/Typesetting/CompositionFontResolver.h"

#include "TavixCore/Theme/CaptionStyle.h"
#include "TavixPlatform/Text/FontBook.h"
#include "TavixRender/Typesetting/CaptionFontFile.h"
#include "TavixRender/Typesetting/CaptionLayout.h"
#include "TestSupport/SourceTree.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

namespace tavix {
namespace {

// Fonts of our own, whose names no machine has.
const std::filesystem::path fontFolder = testsupport::inSourceTree("Packages/TavixPlatform/Text/Tests/Data");
constexpr const char* fileName = "TavixSwash-Regular.ttf";

TEST(CompositionFontResolver, FindsFilesShortNamesAndNamesInThisOrder) {
    const text::FontBook fonts;
    const std::string full = (fontFolder / fileName).string();
    const std::map<std::string, std::string> aliases{
        {"title", fileName}, {"body", "optima"}, {"futura", "Mine"}};
    const struct {
        std::optional<std::string> font;
        ResolvedFont resolved;
    } cases[] = {
        {std::nullopt, {}},
        {"", {}},
        {fileName, {"TavixSwash-Regular", full}},
        {std::string(" ") + fileName + "\n", {"TavixSwash-Regular", full}},
        {full, {"TavixSwash-Regular", full}},
        {"title", {"TavixSwash-Regular", full}},
        {"body", {"Optima-Regular", std::nullopt}},
        {"futura", {"Mine", std::nullopt}},
        {"GEORGIA", {"Georgia", std::nullopt}},
        {"system", {}},
        {"Some Font", {"Some Font", std::nullopt}},
        {"missing/Display.otf", {"missing/Display.otf", std::nullopt}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.font.value_or("absent"));
        EXPECT_EQ(CompositionFontResolver::resolve(c.font, aliases, fontFolder, fonts), c.resolved);
    }
}

TEST(CaptionFontFile, KnowsFontFilesByTheirEnding) {
    for (const char* path : {"a.ttf", "b/c.OTF", " d.ttc\n", "~/x.ttf"})
        EXPECT_TRUE(CaptionFontFile::looksLikePath(path)) << path;
    for (const char* path : {"", "ttf", ".ttf", "a.ttf/b", "a.woff", "folder/.otf", "Inter"})
        EXPECT_FALSE(CaptionFontFile::looksLikePath(path)) << path;
}

TEST(CaptionFontFile, WhatIsNoFontIsNoOption) {
    const text::FontBook fonts;
    const std::filesystem::path broken = std::filesystem::path(testing::TempDir()) / "tavix-broken.ttf";
    std::ofstream(broken) << "no font";
    EXPECT_FALSE(CaptionFontFile::option(broken.string(), std::nullopt, fonts));
    EXPECT_FALSE(CaptionFontFile::option("missing.ttf", fontFolder, fonts));
    const auto option = CaptionFontFile::option(fileName, fontFolder, fonts);
    ASSERT_TRUE(option);
    EXPECT_EQ(option->id, fileName);
    EXPECT_EQ(option->displayName, "File (TavixSwash-Regular)");
    std::filesystem::remove(broken);
}

TEST(CaptionLayout, SeeksANameInTheFileOfTheStyleFirst) {
    const text::FontBook fonts;
    const auto found = [&](const char* name, const std::string& path) {
        CaptionStyle style;
        style.fontName = name;
        style.fontPath = path;
        return CaptionLayout::resolveFont(style, 10, fonts).font.familyName();
    };
    const std::string file = (fontFolder / fileName).string();
    EXPECT_EQ(found("Tavix Swash", file), "Tavix Swash");
    EXPECT_EQ(found("DejaVu Sans", file), "DejaVu Sans");
    EXPECT_NE(found("Tavix Swash", "missing.ttf"), "Tavix Swash");
    EXPECT_NE(found("Tavix Swash", ""), "Tavix Swash");
}

}   // namespace
}   // namespace tavix
