#include "TavixBase/Failure.h"
#include "TavixCore/Support/DecodingError.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Theme/BackgroundCatalog.h"
#include "TavixCore/Theme/BackgroundSelector.h"
#include "TavixCore/Theme/BrandKit.h"
#include "TavixCore/Theme/FontCatalog.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace tavix {
namespace {

constexpr double one = 0x11 / 255.0, two = 0x22 / 255.0, three = 0x33 / 255.0;

TEST(BackgroundSelector, KnowsPicturesColoursGradientsAndFiles) {
    const RGBAColor navy{0x1e / 255.0, 0x2a / 255.0, 0x44 / 255.0, 1};
    const struct {
        const char* text;
        BackgroundFill fill;
    } cases[] = {
        {"  AURORA ", BackgroundImage::bundled("aurora")},
        {"default", BackgroundImage::bundled("default")},
        {"#1e2a44", navy},
        {"Solid: 1E2A44", navy},
        {"GRADIENT", LinearGradient::standard()},
        {"gradient:#111,#222@90", LinearGradient{{{{one, one, one, 1}, 0}, {{two, two, two, 1}, 1}}, 90}},
        {"Gradient: 111 ,, 222,333@ -4.5 ",
            LinearGradient{
                {{{one, one, one, 1}, 0}, {{two, two, two, 1}, 0.5}, {{three, three, three, 1}, 1}}, -4.5}},
        {"shots/bg.png", BackgroundImage{"shots/bg.png", {}}},
        {" bg.png", BackgroundImage{"bg.png", {}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(BackgroundSelector::resolve(c.text), c.fill);
    }
}

TEST(BackgroundSelector, SaysWhatItExpected) {
    const struct {
        const char *text, *sentence;
    } cases[] = {
        {" \n", "Empty --background value."},
        {"#xyz", "Invalid solid colour \"#xyz\" — expected a hex like #1E2A44 or #1E2A44FF."},
        {"solid:red", "Invalid solid colour \"red\" — expected a hex like #1E2A44 or #1E2A44FF."},
        {"gradient:#111", "A gradient needs at least two colours, e.g. gradient:#1E2A44,#0A0E17."},
        {"gradient:", "A gradient needs at least two colours, e.g. gradient:#1E2A44,#0A0E17."},
        {"gradient:#111,#222@ up ", "Invalid gradient angle \"up\" — expected a number of degrees."},
        {"gradient:#111,#222@", "Invalid gradient angle \"\" — expected a number of degrees."},
        {"gradient:#111,#222@nan", "Invalid gradient angle \"nan\" — expected a number of degrees."},
        {"gradient:#111,#22,#333", "Invalid gradient colour \"#22\" — expected a hex like #1E2A44."},
        {"bg", "Unknown --background \"bg\". Use a catalog id (default, aurora, ocean, graphite, sunset, "
               "coral, mint), "
               "a hex colour (#1E2A44), \"gradient[:<hex>,<hex>[@angle]]\", or a path to an image."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        try {
            BackgroundSelector::resolve(c.text);
            ADD_FAILURE() << "nothing failed";
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.message(), c.sentence);
        }
    }
}

TEST(BackgroundCatalog, FindsEachEntryByItsId) {
    std::set<std::string_view> files;
    for (const BundledBackground& entry : BackgroundCatalog::all) {
        EXPECT_EQ(BackgroundCatalog::background(entry.id), &entry);
        EXPECT_TRUE(files.insert(entry.resourceName).second);
    }
    EXPECT_EQ(BackgroundCatalog::standard.id, "default");
    EXPECT_EQ(BackgroundCatalog::background("Aurora"), nullptr);
}

TEST(FontCatalog, ResolvesShortNamesInAnyCase) {
    for (const FontOption& option : FontCatalog::standardOptions())
        EXPECT_EQ(FontCatalog::resolve(option.id, nullptr), option);
    EXPECT_EQ(FontCatalog::resolve(" FUTURA\n", nullptr)->postScriptName, "Futura-Medium");
    EXPECT_EQ(FontCatalog::resolve("System", nullptr), FontCatalog::system());
    EXPECT_EQ(FontCatalog::resolve("app", nullptr), FontCatalog::system());
    for (const char* text : {"", "  ", "Comic Sans", "Futura-Medium"})
        EXPECT_FALSE(FontCatalog::resolve(text, nullptr)) << text;
    EXPECT_EQ(FontCatalog::standardOptions().size(), 11u);
}

TEST(FontCatalog, PutsTheFontsOfABrandFirst) {
    BrandKit brand;
    brand.primaryFontName = "Menlo-Regular";
    brand.primaryFontPath = "app/Menlo.ttf";
    brand.fonts = {{"Lantern-Bold", "app/Lantern.otf"}, {"", "app/x.ttf"}, {"app", "app/other.ttf"},
        {"Lantern-Bold", "app/twice.otf"}};
    const FontOption app{"app", "App Font (Menlo-Regular)", "Menlo-Regular", "app/Menlo.ttf"};
    EXPECT_EQ(FontCatalog::resolve(" App ", &brand), app);
    EXPECT_EQ(FontCatalog::option("Menlo-Regular", "elsewhere.ttf", &brand), app);
    EXPECT_EQ(FontCatalog::option("Menlo-Regular", {}, nullptr).id, "menlo");
    const std::vector<FontOption> fonts = FontCatalog::brandFonts(&brand);
    ASSERT_EQ(fonts.size(), 2u);
    EXPECT_EQ(fonts[0], app);
    EXPECT_EQ(fonts[1].fontPath, "app/Lantern.otf");
    EXPECT_EQ(FontCatalog::option("Lantern-Bold", {}, &brand), fonts[1]);
    EXPECT_EQ(FontCatalog::option("", "x.ttf", &brand), FontCatalog::system());
    EXPECT_EQ(FontCatalog::option("Own", "own.ttf", &brand).fontPath, "own.ttf");
    EXPECT_TRUE(FontCatalog::brandFonts(nullptr).empty());
}

TEST(BrandKit, ReadsSparselyAndNeedsAnAccent) {
    const auto brand = decodeJson<BrandKit>(R"({"accent": {"r": 1, "g": 0, "b": 0, "a": 1}})");
    EXPECT_EQ(writeJson(Codec<BrandKit>::write(brand)),
        writeJson(parseJson(R"({"accent": {"r": 1, "g": 0, "b": 0, "a": 1}, "appMode": "light",
        "fonts": [], "palette": []})")));
    EXPECT_THROW(decodeJson<BrandKit>("{}"), DecodingError);
    EXPECT_THROW(
        decodeJson<BrandKit>(R"({"accent": {"r": 1, "g": 0, "b": 0, "a": 1}, "fonts": [{"name": "x"}]})"),
        DecodingError);
}

TEST(ThemeCatalog, LetsSelectorsBeTypedAnyhow) {
    EXPECT_EQ(FontCatalog::resolve("\u00A0FUTURA\u3000", nullptr)->id, "futura");
    EXPECT_EQ(BackgroundSelector::resolve("\u2003Aurora\u00A0"), BackgroundSelector::resolve("aurora"));
}

}   // namespace
}   // namespace tavix
