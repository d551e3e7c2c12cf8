// The look of applications of every kind, written out as small folders.
#include "TavixRender/Brand/BrandExtractor.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixRender/Brand/AndroidHints.h"
#include "TavixRender/Brand/BrandColorset.h"
#include "TavixRender/Brand/BrandFonts.h"
#include "TavixRender/Brand/IconPalette.h"
#include "TavixRender/Brand/MarkupScan.h"
#include "TestSupport/SourceTree.h"
#include "TestSupport/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace tavix {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

struct Level {
    int r, g, b, a = 255;
};

class Brand : public testing::Test {
protected:
    fs::path at(const std::string& name) const { return folder_.path() / name; }

    void write(const std::string& name, const std::string& text) {
        fs::create_directories(at(name).parent_path());
        writeBytesAtomically(text, at(name));
    }
    // A square picture by a colour for each place.
    void paint(const std::string& name, int sidePx, const std::function<Level(int x, int y)>& colorAt) {
        fs::create_directories(at(name).parent_path());
        imaging::Bitmap bitmap({sidePx, sidePx});
        for (int y = 0; y < sidePx; ++y)
            for (int x = 0; x < sidePx; ++x) {
                const Level c = colorAt(x, y);
                std::uint8_t* p = bitmap.view().row(y) + 4 * x;
                const int levels[] = {c.b, c.g, c.r, 255};
                for (int i = 0; i < 4; ++i) p[i] = std::uint8_t(levels[i] * c.a / 255);
            }
        media::writePng(at(name), bitmap.view());
    }
    void paint(const std::string& name, int sidePx, Level color) {
        paint(name, sidePx, [color](int, int) { return color; });
    }
    // A small font of the text tests, under another name.
    void copyFont(const std::string& source, const std::string& name) {
        fs::create_directories(at(name).parent_path());
        fs::copy_file(testsupport::inSourceTree("Packages/TavixPlatform/Text/Tests/Data") / source, at(name));
    }
    BrandExtractor::Report extract(const std::string& name = "") { return BrandExtractor::extract(at(name)); }

private:
    testsupport::TemporaryFolder folder_;
};

void expectColor(const RGBAColor& color, double r, double g, double b, double tolerance = 0.01) {
    EXPECT_NEAR(color.r, r, tolerance);
    EXPECT_NEAR(color.g, g, tolerance);
    EXPECT_NEAR(color.b, b, tolerance);
}

std::string colorset(const std::string& components) {
    return R"({"colors": [{"appearances": [{}], "color": {"components": {"red": 1}}},
                          {"color": {"components": )" +
           components + "}}]}";
}

TEST_F(Brand, AColorsetIsReadHoweverItWritesItsNumbers) {
    const struct {
        const char* components;
        RGBAColor color;
    } cases[] = {
        {R"({"red": "0xFF", "green": "0x80", "blue": "0x00", "alpha": "1.000"})", {1, 128 / 255.0, 0, 1}},
        {R"({"red": "1.000", "green": "0.502", "blue": "0.000"})", {1, 0.502, 0, 1}},
        {R"({"red": 51, "green": 0.25, "blue": 1, "alpha": 0.5})", {0.2, 0.25, 1, 0.5}},
        {R"({"red": " 51 ", "green": "words", "blue": [], "alpha": null})", {0.2, 0, 0, 1}},
    };
    for (const auto& c : cases) {
        write("AccentColor.colorset/Contents.json", colorset(c.components));
        const auto color = BrandColorsetParser::parseColorset(at("AccentColor.colorset/Contents.json"));
        ASSERT_TRUE(color) << c.components;
        expectColor(*color, c.color.r, c.color.g, c.color.b, 1e-9);
        EXPECT_NEAR(color->a, c.color.a, 1e-9);
    }
    for (const char* broken :
        {"", "{}", R"({"colors": []})", R"({"colors": [{"color": {}}]})", R"({"colors": 7})"}) {
        write("broken.json", broken);
        EXPECT_FALSE(BrandColorsetParser::parseColorset(at("broken.json"))) << broken;
    }
    EXPECT_EQ(BrandColorsetParser::findAccentColorset(at("AccentColor.colorset")),
        at("AccentColor.colorset/Contents.json"));
}

TEST_F(Brand, AnIconGivesAccentPaletteAndMode) {
    paint("AppIcon.appiconset/icon_512.png", 96, [](int x, int) {
        return x < 64 ? Level{250, 250, 250} : Level{200, 30, 60};
    });
    paint("photo.jpg.png", 400, Level{10, 200, 30});
    const auto report = extract();
    EXPECT_EQ(report.notes.at(0), "accent derived from app icon (icon_512.png)");
    EXPECT_THAT(report.notes.at(1), StartsWith("app mode: light (luminance 0."));
    expectColor(report.brand.accent, 200 / 255.0, 30 / 255.0, 60 / 255.0);
    expectColor(report.brand.palette.at(0), 250 / 255.0, 250 / 255.0, 250 / 255.0);
    EXPECT_FALSE(report.brand.secondary && *report.brand.secondary == report.brand.palette.at(0));
    EXPECT_EQ(report.brand.sourceBundlePath, at("").string());
}

TEST_F(Brand, AColorsetWinsOverTheIconForTheAccentAlone) {
    write("Assets/AccentColor.colorset/Contents.json",
        colorset(R"({"red": "0xFF", "green": "0x80", "blue": "0x00"})"));
    paint("Assets/AppIcon.appiconset/icon.png", 64, [](int x, int) {
        return x < 40 ? Level{20, 20, 60} : Level{0, 120, 200};
    });
    const auto report = extract();
    EXPECT_EQ(report.notes.at(0), "accent from AccentColor.colorset");
    expectColor(report.brand.accent, 1, 0.50196, 0, 1e-4);
    EXPECT_EQ(report.brand.appMode, BrandKit::AppMode::dark);
    expectColor(*report.brand.secondary, 0, 120 / 255.0, 200 / 255.0);
}

TEST_F(Brand, WithoutAnythingThereIsANeutralBlue) {
    write("readme.txt", "nothing here");
    write("broken/icon.png", "no picture");
    auto report = extract();
    EXPECT_THAT(report.notes,
        ElementsAre("no AccentColor and no icon image found — using a neutral accent",
            "app mode: dark (luminance 0.43)",
            "no embedded font found — captions use the system font (or pick one via captionFont)"));
    EXPECT_EQ(report.brand.accent, (RGBAColor{0.2, 0.45, 0.95, 1}));
    EXPECT_EQ(report.brand.palette, std::vector{report.brand.accent});
    // All white: white is what it has. All clear: it has nothing to say.
    paint("white/icon.png", 32, Level{255, 255, 255});
    expectColor(extract("white").brand.accent, 1, 1, 1);
    paint("clear/icon.png", 32, Level{9, 9, 9, 0});
    report = extract("clear");
    EXPECT_EQ(report.brand.accent, (RGBAColor{0.2, 0.45, 0.95, 1}));
    EXPECT_THAT(report.notes.at(0), StartsWith("app mode: light (luminance 0.50)"));
    try {
        extract("gone");
        ADD_FAILURE();
    } catch (const Failure& failure) {
        EXPECT_THAT(failure.message(), StartsWith("Brand bundle not found: "));
    }
}

TEST_F(Brand, FontsComeInTheOrderOfTheirWeightAndOnce) {
    copyFont("TavixBars-Variable.ttf", "Fonts/Brand-Bold.ttf");
    copyFont("TavixSwash-Regular.ttf", "Fonts/copy-Regular.ttf");
    copyFont("TavixSwash-Regular.ttf", "Fonts/Brand-Regular.ttf");
    write("Fonts/broken-Medium.ttf", "no font");
    auto report = extract();
    ASSERT_EQ(report.brand.fonts.size(), 2u);
    EXPECT_EQ(report.brand.fonts[0].name, "TavixSwash-Regular");
    EXPECT_EQ(report.brand.fonts[0].path, at("Fonts/Brand-Regular.ttf").string());
    EXPECT_EQ(report.notes.back(),
        "fonts: TavixSwash-Regular (primary) + 1 more — TavixSwash-Regular, TavixBars-Variable");
    // What the bundle declares comes first, wherever the file is.
    write("Info.plist", R"(<?xml version="1.0" encoding="UTF-8"?>
        <plist version="1.0"><dict><key>UIAppFonts</key><array><string>missing.ttf</string>
        <string>Brand-Bold.ttf</string></array></dict></plist>)");
    report = extract();
    EXPECT_EQ(report.brand.primaryFontName, "TavixBars-Variable");
    EXPECT_EQ(report.brand.primaryFontPath, at("Fonts/Brand-Bold.ttf").string());
    // The other form of a property list, byte by byte: {"UIAppFonts": ["Brand-Bold.ttf"]}.
    const std::string binary = std::string("bplist00\xD1\x01\x02\x5AUIAppFonts\xA1\x03\x5E"
                                           "Brand-Bold.ttf",
                                   39) +
                               std::string("\x08\x0B\x16\x18", 4) + std::string(6, '\0') +
                               std::string("\x01\x01", 2) + std::string(7, '\0') + '\4' +
                               std::string(15, '\0') + '\x27';
    fs::remove(at("Info.plist"));
    write("Info.plist", binary);
    EXPECT_EQ(extract().brand.primaryFontName, "TavixBars-Variable");
    write("Info.plist", "no list of properties");
    EXPECT_EQ(extract().brand.primaryFontName, "TavixSwash-Regular");
}

TEST_F(Brand, AWebApplicationHasAManifest) {
    write("site/manifest.webmanifest", R"({"theme_color": "#c81e3c", "icons": [
        {"src": "/img/small.png", "sizes": "48x48"}, {"src": "img/large.png", "sizes": "any 512x512"}, {"src": "gone.png", "sizes": "900x900"}]})");
    paint("img/small.png", 48, Level{255, 0, 0});
    paint("site/img/large.png", 64, Level{0, 60, 120});
    paint("unrelated-icon.png", 300, Level{0, 255, 0});
    auto report = extract();
    EXPECT_EQ(report.notes.at(0), "accent from theme_color of manifest.webmanifest");
    expectColor(report.brand.accent, 200 / 255.0, 30 / 255.0, 60 / 255.0);
    expectColor(report.brand.palette.at(0), 0, 60 / 255.0, 120 / 255.0);
    write("site/manifest.webmanifest", R"({"theme_color": "#ffffff", "icons": [{"src": "img/large.png"}]})");
    report = extract();
    EXPECT_EQ(report.notes.at(0), "accent derived from app icon (large.png)");
    EXPECT_EQ(report.notes.at(1), "theme_color \"#ffffff\" is nearly black or white and was passed over");
    write("site/manifest.webmanifest", R"({"theme_color": "tomato", "icons": []})");
    EXPECT_THAT(
        extract().notes, testing::Contains("theme_color \"tomato\" is no hex colour and was passed over"));
}

TEST_F(Brand, ADesktopEntryNamesItsIconAndItsMetadataHasColours) {
    write("share/applications/org.kestrel.Kestrel.desktop",
        "[Desktop Entry]\nName=Kestrel\nIcon=org.kestrel.Kestrel\n[Desktop Action new]\nIcon=other\n");
    write("share/metainfo/org.kestrel.Kestrel.metainfo.xml", R"(<component><branding>
        <color type="primary" scheme_preference="dark">#101820</color>
        <color type="primary" scheme_preference="light">#0e9f6e</color></branding></component>)");
    paint("share/icons/hicolor/48x48/apps/org.kestrel.Kestrel.png", 48, Level{0, 0, 255});
    paint("share/icons/hicolor/256x256/apps/org.kestrel.Kestrel.png", 256, [](int x, int) {
        return x % 2 ? Level{250, 90, 40} : Level{250, 92, 40};
    });
    const std::string entry = "share/applications/org.kestrel.Kestrel.desktop";
    const auto report = extract(entry);
    EXPECT_EQ(report.notes.at(0), "accent from branding of org.kestrel.Kestrel.metainfo.xml");
    expectColor(report.brand.accent, 0x0e / 255.0, 0x9f / 255.0, 0x6e / 255.0);
    expectColor(report.brand.palette.at(0), 250 / 255.0, 91 / 255.0, 40 / 255.0);
    EXPECT_EQ(extract("share").brand.accent, report.brand.accent);
    fs::remove_all(at("share/icons"));
    EXPECT_THAT(extract(entry).notes,
        testing::Contains(HasSubstr("no picture was found for the icon \"org.kestrel.Kestrel\"")));
}

TEST_F(Brand, AndroidResourcesHaveColoursAndALauncher) {
    write("res/values/colors.xml", R"(<resources><color name="colorAccent">#FF03DAC5</color>
        <color name="colorPrimary">#cc3366FF</color><color name="white">#FFFFFFFF</color></resources>)");
    write("res/values-night/colors.xml",
        R"(<resources><color name="colorPrimary">#FF000080</color></resources>)");
    paint("res/mipmap-xxxhdpi/ic_launcher_foreground.png", 200, Level{0, 200, 0});
    paint("res/mipmap-mdpi/ic_launcher.png", 48, Level{51, 102, 255});
    const auto report = extract();
    EXPECT_EQ(report.notes.at(0), "accent from colorPrimary of the Android resources");
    expectColor(report.brand.accent, 0.2, 0.4, 1);
    EXPECT_NEAR(report.brand.accent.a, 0.8, 1e-9);
    expectColor(report.brand.palette.at(0), 0.2, 0.4, 1);
    EXPECT_EQ(AppHints::androidColor("#8F00"), (RGBAColor{1, 0, 0, 0x88 / 255.0}));
    EXPECT_FALSE(AppHints::androidColor("@color/other"));
}

TEST(MarkupScan, FindsElementsAndTheirAttributes) {
    const auto found = MarkupScan::elements(
        R"(<colors><color a="1" name='x'> #fff </color><color/><colorful>no</colorful><color name="cut)",
        "color");
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].text, "#fff");
    EXPECT_EQ(found[0].attribute("name"), "x");
    EXPECT_FALSE(found[0].attribute("me"));
    EXPECT_EQ(found[1].text, "");
}

TEST(IconPalette, PicksTheMostSaturatedColourThatIsNeitherBlackNorWhite) {
    const RGBAColor black{0.02, 0.02, 0.05, 1}, white{0.99, 0.99, 1, 1}, grey{0.5, 0.5, 0.45, 1},
        red{0.6, 0.2, 0.2, 1}, blue{0.2, 0.2, 0.6, 1};
    EXPECT_EQ(IconPaletteExtractor::pickAccent(std::vector{black, grey, red, blue}), red);
    EXPECT_EQ(IconPaletteExtractor::pickAccent(std::vector{black, white}), black);
    EXPECT_FALSE(IconPaletteExtractor::pickAccent({}));
}

}   // namespace
}   // namespace tavix
