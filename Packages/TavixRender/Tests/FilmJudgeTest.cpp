// What the eye would see, told by geometry, and what the frames show, told by pixels.
#include "TavixRender/Judge/FilmJudge.h"

#include "RenderTestKit.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Support/Names.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixRender/Judge/Contrast.h"
#include "TavixRender/Judge/FrameJudge.h"
#include "TavixRender/Judge/StillnessWatch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace tavix {
namespace {

using CompositionLint::codeOf;
using CompositionLint::Finding;
using ::testing::ElementsAre;
using testing::fillLayer;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::keyframe;
using testing::sceneOf;
using testing::shapeLayer;
using testing::specOf;

constexpr imaging::Size canvas{1280, 720};
constexpr RGBAColor white{1, 1, 1, 1}, red{1, 0, 0, 1}, black{0, 0, 0, 1}, clear{1, 0, 0, 0.4};

std::vector<std::string> codesOf(const std::vector<Finding>& findings) {
    std::vector<std::string> codes;
    for (const Finding& finding : findings) codes.emplace_back(finding.code);
    return codes;
}

std::vector<Finding> seen(const CompositionSpec& spec) {
    FilmAssets assets(std::nullopt);
    return FilmJudge::seen(CompositionGeometry(spec, assets));
}
std::vector<Finding> seen(std::vector<CompositionLayer> layers, imaging::Size size = canvas) {
    CompositionSpec spec = specOf(size, 30, {sceneOf(3, {})});
    spec.scenes[0].layers = std::move(layers);
    return seen(spec);
}

CompositionLayer at(CompositionLayer layer, double x, double y) {
    layer.position = {x, y};
    return layer;
}
CompositionLayer box(double width, double height, const RGBAColor& color = white) {
    return at(shapeLayer(color, width, height), 640, 360);
}
CompositionLayer textLayer(const std::string& text, double size = 0.08, const RGBAColor& color = white) {
    CompositionLayer layer;
    layer.position = {640, 360};
    layer.content = TextContent{.text = text, .sizeFraction = size, .color = color};
    return layer;
}

TEST(FilmJudge, FindsLayersThatAreNeverSeen) {
    CompositionLayer passing = at(box(0.1, 0.1), -300, 360);
    passing.tracks = {{AnimProperty::x, {keyframe(0, 0), keyframe(2.9, 3)}}};
    CompositionLayer flashing = box(0.1, 0.1);   // for a tenth of a second
    flashing.tracks = {{AnimProperty::opacity,
        {keyframe(0, 0), keyframe(1.5, 0), keyframe(1.55, 1), keyframe(1.6, 0), keyframe(3, 0)}}};
    CompositionLayer faded = box(0.1, 0.1);
    faded.opacity = 0;
    CompositionLayer turned = box(0.5, 0.5, red);
    turned.tracks = {{AnimProperty::rotationDeg, {keyframe(0, 45)}}};
    const CompositionLayer anchor = at(box(0.05, 0.05), 60, 60);   // so that the scene opens with something
    const struct {
        const char* name;
        std::vector<CompositionLayer> layers;
        const char* reason;   // of the first finding; null for none
    } cases[] = {
        {"seen", {box(0.1, 0.1)}, nullptr},
        {"outside", {at(box(0.1, 0.1), -300, 360), anchor}, "outside the frame"},
        {"just outside", {at(box(0.1, 0.1), -64, 360), anchor}, "outside the frame"},
        {"a corner inside", {at(box(0.1, 0.1), -60, 360), anchor}, nullptr},
        {"passes through", {passing, anchor}, nullptr},
        {"shows for a moment", {flashing, anchor}, nullptr},
        {"clear", {faded, anchor}, "opacity"},
        {"covered", {box(0.1, 0.1), box(0.2, 0.2, red)}, "in front of all of it"},
        {"covered by a fill", {box(0.1, 0.1), fillLayer(red), anchor}, "in front of all of it"},
        {"seen through", {box(0.1, 0.1), box(0.2, 0.2, clear)}, nullptr},
        {"larger than its cover", {box(0.3, 0.1), box(0.2, 0.2, red)}, nullptr},
        {"outside of a turned cover", {box(0.45, 0.45), turned}, nullptr},
        {"within a turned cover", {box(0.1, 0.1), turned}, "in front of all of it"},
        {"no height", {box(0.2, 0), anchor}, "no size"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const std::vector<Finding> found = seen(c.layers);
        if (c.reason == nullptr) {
            EXPECT_THAT(codesOf(found), IsEmpty());
            continue;
        }
        ASSERT_THAT(codesOf(found), ElementsAre("never-visible"));
        EXPECT_THAT(found[0].message, HasSubstr(c.reason));
        EXPECT_EQ(found[0].path, "scenes[0].layers[0]");
    }
}

TEST(FilmJudge, FindsTextsThatAreBrokenTooLargeOrMoved) {
    CompositionLayer narrow = textLayer("Believe", 0.15);
    std::get<TextContent>(narrow.content).maxWidthFraction = 0.35;
    const auto tracked = [](const char* text, double em) {
        CompositionLayer layer = textLayer(text, 0.09);
        std::get<TextContent>(layer.content).trackingEm = em;
        return layer;
    };
    const struct {
        const char* name;
        CompositionLayer layer;
        std::vector<std::string> codes;
    } cases[] = {
        {"sound", textLayer("Plain words"), {}},
        {"wraps between words", textLayer("Several plain words that take two lines", 0.15), {}},
        {"wraps where Chinese may be broken", textLayer("我们今天发布了新的应用程序版本请看看", 0.2), {}},
        {"breaks a word", narrow, {"word-broken"}},
        {"tracked, in one line", tracked("Two words", 0.2), {}},
        {"tracked, and broken by line feeds", tracked("Several\ntracked\nwords", 0.5), {}},
        {"tracked, and broken inside a word", tracked("Several widely tracked words", 0.5), {"word-broken"}},
        {"too many lines", textLayer("One\nTwo\nThree\nFour\nFive\nSix", 0.17), {"text-overflow"}},
        {"beside the frame", at(textLayer("Beside"), 1270, 360), {"text-moved"}},
        {"below it", at(textLayer("Below"), 640, 719), {"text-moved"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(codesOf(seen({c.layer})), c.codes);
    }
}

TEST(FilmJudge, TellsWhereAMovedTextStands) {
    std::vector<Finding> found = seen({at(textLayer("Beside"), 1270, 360)});
    ASSERT_EQ(codesOf(found), std::vector<std::string>{"text-moved"});
    ASSERT_TRUE(found[0].suggestion);
    const std::size_t x = found[0].suggestion->find("\"x\": ") + 5;
    EXPECT_THAT(
        codesOf(seen({at(textLayer("Beside"), std::stod(found[0].suggestion->substr(x)), 360)})), IsEmpty());
}

TEST(FilmJudge, FindsAHeadlineThatIsLostWhereItCrossesSomething) {
    const CompositionLayer headline = textLayer("A headline as wide as this");
    const struct {
        double width;   // of what it crosses, in the headline's own colour or in another one
        RGBAColor color;
        bool isLost;
    } cases[] = {{0.09, white, true}, {0.02, white, false}, {0.09, red, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.width);
        const std::vector<Finding> found = seen({at(box(c.width, 0.5, c.color), 680, 360), headline});
        EXPECT_EQ(
            codesOf(found), c.isLost ? std::vector<std::string>{"low-contrast"} : std::vector<std::string>{});
        if (c.isLost) {
            EXPECT_THAT(found.at(0).message, HasSubstr("A part of \"A headline"));
        }
    }
}

TEST(FilmJudge, MeasuresContrastAsWcagDoes) {
    // Ratios of well-known pairs.
    const auto ratio = [](const RGBAColor& a, const RGBAColor& b) {
        return Contrast::ratio(Contrast::relativeLuminance(a), Contrast::relativeLuminance(b));
    };
    const RGBAColor grey767676{0x76 / 255.0, 0x76 / 255.0, 0x76 / 255.0, 1};
    EXPECT_NEAR(ratio(black, white), 21, 1e-9);
    EXPECT_NEAR(ratio(grey767676, white), 4.54, 0.01);
    EXPECT_NEAR(ratio({0, 0, 1, 1}, white), 8.59, 0.01);
    EXPECT_NEAR(ratio(white, red), 4.0, 0.01);
}

TEST(FilmJudge, WantsTextsToStandOutFromWhatLiesUnderThem) {
    const RGBAColor grey{0.6, 0.6, 0.6, 1};   // 2.85 : 1 against white, 7.4 : 1 against black
    const RGBAColor mid{0.5, 0.5, 0.5, 1};    // 3.98 : 1 against white
    const LinearGradient toLight{{{black, 0}, {black, 0.4}, {white, 0.6}, {white, 1}}, 90};
    CompositionLayer half = fillLayer(white);
    half.opacity = 0.5;
    CompositionLayer shadowed = textLayer("Words");
    std::get<TextContent>(shadowed.content).shadow =
        TextShadow{.color = black, .opacity = 0.9, .radiusFraction = 0.01};
    CompositionLayer picture;
    picture.content = ImageContent{.path = "gone.png"};
    const auto backed = [](CompositionLayer layer) { return at(std::move(layer), 640, 360); };
    const struct {
        const char* name;
        BackgroundFill background;
        std::vector<CompositionLayer> layers;
        bool isLow;
    } cases[] = {
        {"white on black", black, {textLayer("Words")}, false},
        {"white on white", white, {textLayer("Words")}, true},
        {"grey on white", white, {textLayer("Words", 0.08, grey)}, true},
        {"large on middle grey", mid, {textLayer("Words", 0.08)}, false},
        {"small on middle grey", mid, {textLayer("Words", 0.03)}, true},
        {"on a dark panel", white, {backed(box(0.8, 0.4, black)), textLayer("Words")}, false},
        {"beside its panel", white, {at(box(0.2, 0.2, black), 100, 100), textLayer("Words")}, true},
        {"under a panel in front", white,
            {textLayer("Words", 0.3, black), at(box(0.02, 0.02, red), 640, 360)}, false},
        {"on half a veil", black, {half, textLayer("Words", 0.08, grey)}, true},
        {"across a gradient", toLight, {textLayer("A wide line of words", 0.1)}, true},
        {"on the dark side of it", toLight, {at(textLayer("Words", 0.06), 250, 360)}, false},
        {"with a shadow", RGBAColor{0.7, 0.7, 0.7, 1}, {shadowed}, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        CompositionSpec spec = specOf(canvas, 30, {sceneOf(3, {})});
        spec.background = c.background;
        spec.scenes[0].layers = c.layers;
        const std::vector<std::string> codes = codesOf(seen(spec));
        EXPECT_EQ(std::count(codes.begin(), codes.end(), "low-contrast"), c.isLow ? 1 : 0);
    }
}

// One word of many is enough, and it is judged by its own colour on its own ground.
TEST(FilmJudge, WantsEmphasisedWordsToStandOutThemselves) {
    const RGBAColor grey{0.8, 0.8, 0.8, 1};   // 1.6 : 1 against white
    const auto emphasised = [](const EmphasisStyle& style, const char* preset,
                                const RGBAColor& color = black) {
        CompositionLayer layer = textLayer("Only one of these counts", 0.05, color);
        auto& text = std::get<TextContent>(layer.content);
        text.kinetic = KineticPresetRef{.preset = preset, .weight = {}};
        text.emphasis = {EmphasisSpan{{1}, EmphasisToken::accent, style}};
        return layer;
    };
    const struct {
        const char* name;
        CompositionLayer layer;
        const char* path;   // of the finding; null for none
    } cases[] = {
        {"dark emphasis", emphasised({.textColor = red}, "fade-up"), nullptr},
        {"light emphasis", emphasised({.textColor = grey}, "fade-up"), "text.emphasis"},
        {"light, of letters", emphasised({.textColor = grey}, "char-cascade"), "text.emphasis"},
        {"light on a dark marker", emphasised({.textColor = grey, .highlightColor = black}, "word-pop"),
            nullptr},
        {"dark on a dark marker", emphasised({.highlightColor = RGBAColor{0.1, 0.1, 0.1, 1}}, "word-pop"),
            "text.emphasis"},
        {"dark emphasis in light text", emphasised({.textColor = black}, "fade-up", grey), "text.color"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        CompositionSpec spec = specOf(canvas, 30, {sceneOf(3, {})});
        spec.background = white;
        spec.scenes[0].layers = {c.layer};
        const std::vector<Finding> found = seen(spec);
        if (c.path == nullptr) {
            EXPECT_THAT(codesOf(found), IsEmpty());
            continue;
        }
        ASSERT_THAT(codesOf(found), ElementsAre("low-contrast"));
        EXPECT_EQ(found[0].path, std::string("scenes[0].layers[0].") + c.path);
    }
}

TEST(FilmJudge, FindsScenesThatOpenEmpty) {
    const auto later = [](double sec) {
        CompositionLayer layer = box(0.2, 0.2);
        layer.fromSec = sec;
        return layer;
    };
    EXPECT_THAT(codesOf(seen({later(0.45)})), IsEmpty());
    EXPECT_THAT(codesOf(seen({later(0.6)})), ElementsAre("opens-empty"));
    EXPECT_THAT(codesOf(seen({fillLayer(red), later(0.6)})), ElementsAre("opens-empty"));
    EXPECT_THAT(codesOf(seen(std::vector<CompositionLayer>{})), IsEmpty()) << "a backdrop by itself";
    CompositionSpec overlapped = specOf(canvas, 30, {sceneOf(3, {box(0.2, 0.2)}), sceneOf(3, {later(0.9)})});
    EXPECT_THAT(codesOf(seen(overlapped)), ElementsAre("opens-empty"));
    overlapped.scenes[0].transition = testing::transitionOf(TransitionStyle::fade, 1);
    EXPECT_THAT(codesOf(seen(overlapped)), IsEmpty()) << "the scene before shows meanwhile";
}

TEST(FilmJudge, FindsDevicesOfAFormationOutsideTheFrame) {
    testing::TemporaryFolder folder;
    imaging::Evaluator evaluator{{.threadCount = 1}};
    const imaging::PixelRegion region{0, 0, 40, 80};
    media::writePng(folder / "a.png",
        evaluator.draw(imaging::Image::solid(imaging::Color::white()).cropped(region.rect()), region).view());
    const auto row = [&](double reach) {
        std::vector<CompositionLayer> layers;
        for (int k = 0; k < 3; ++k) {
            CompositionLayer layer;
            layer.id = "hero-split-" + std::to_string(k);
            layer.content = DeviceContent{.screen = StillScreen{"a.png"},
                .placement = DevicePlacementSpec{
                    .track = {{.tSec = 0, .offset = {reach * (k - 1), 0}, .scale = 0.5}}}};
            layers.push_back(layer);
        }
        CompositionSpec spec = specOf({720, 1280}, 30, {sceneOf(2, {})});
        spec.scenes[0].layers = layers;
        FilmAssets assets(folder.path());
        return FilmJudge::seen(CompositionGeometry(spec, assets));
    };
    EXPECT_THAT(codesOf(row(0.1)), IsEmpty());
    const std::vector<Finding> found = row(0.35);
    ASSERT_THAT(codesOf(found), ElementsAre("formation-cut"));
    EXPECT_THAT(found[0].message, HasSubstr("1 and 3 of the 3"));

    for (const std::string_view name : allNames<DeviceChoreographyPreset>()) {
        SCOPED_TRACE(name);
        const auto wide = decodeJson<CompositionSpec>(
            R"({"output": {"widthPx": 1920, "heightPx": 1080, "fps": 30}, "scenes": [{"durationSec": 1, "layers":
            [{"kind": "device", "device": {"screen": {"kind": "still", "path": "a.png"},
              "choreographyPreset": {"preset": ")" +
            std::string(name) + R"("}}}]}]})");
        FilmAssets assets(folder.path());
        EXPECT_THAT(codesOf(FilmJudge::seen(CompositionGeometry(wide, assets))), IsEmpty());
    }
}

TEST(FilmJudge, NamesWhatIsMissingAndWhatIsNearby) {
    testing::TemporaryFolder folder;
    imaging::Evaluator evaluator{{.threadCount = 1}};
    const imaging::PixelRegion region{0, 0, 4, 4};
    media::writePng(
        folder / "logo.png", evaluator.draw(imaging::Image::solid({}).cropped(region.rect()), region).view());
    CompositionSpec spec = specOf(canvas, 30, {sceneOf(2, {})});
    const auto missing = [&](const LayerContent& content) {
        CompositionLayer layer;
        layer.content = content;
        spec.scenes[0].layers = {layer};
        FilmAssets assets(folder.path());
        return FilmJudge::missingFiles(spec, assets);
    };
    EXPECT_THAT(missing(ImageContent{.path = "logo.png"}), IsEmpty());
    const auto near = missing(ImageContent{.path = "lgo.png"});
    ASSERT_THAT(codesOf(near), ElementsAre("picture-missing"));
    EXPECT_EQ(near[0].suggestion, "Did you mean \"logo.png\"?");
    EXPECT_EQ(near[0].path, "scenes[0].layers[0].image.path");
    EXPECT_THAT(
        codesOf(missing(VideoContent{.clip = {.path = "logo.png"}})), ::testing::Each("clip-missing"));
    EXPECT_THAT(codesOf(missing(VideoContent{.clip = {.path = "gone.mp4"}})), ElementsAre("clip-missing"));
    EXPECT_THAT(
        codesOf(missing(DeviceContent{.screen = StillScreen{"gone.png"}})), ElementsAre("picture-missing"));
    EXPECT_THAT(codesOf(missing(BackgroundFill(BackgroundImage{.bundledID = "arora"}))),
        ElementsAre("picture-missing"));
    EXPECT_THAT(
        codesOf(missing(TextContent{.text = "a", .font = "fonts/gone.ttf"})), ElementsAre("font-missing"));
}

TEST(StillnessWatch, TellsBlackAndFrozenStretchesOfASecond) {
    constexpr double fps = 10;
    const auto spans = [&](const std::function<std::uint8_t(int frame)>& levelOf, int frames) {
        StillnessWatch watch(fps);
        imaging::Bitmap frame({8, 8});
        for (int i = 0; i < frames; ++i) {
            for (int y = 0; y < 8; ++y) std::fill_n(frame.view().row(y), 32, levelOf(i));
            watch.take(frame.view());
        }
        return watch.spans();
    };
    EXPECT_THAT(spans([](int i) { return std::uint8_t(i * 5); }, 40), IsEmpty());
    EXPECT_THAT(spans([](int i) { return std::uint8_t(i < 9 ? 100 : 10 * i); }, 20), IsEmpty());
    const auto frozen = spans([](int i) { return std::uint8_t(i < 5 ? i * 9 : i < 15 ? 100 : i * 9); }, 20);
    ASSERT_EQ(frozen.size(), 1u);
    EXPECT_EQ(frozen[0].fromSec, 0.5);
    EXPECT_EQ(frozen[0].toSec, 1.5);
    EXPECT_FALSE(frozen[0].isBlack);
    const auto dark = spans([](int i) { return std::uint8_t(i < 12 ? 3 : 200); }, 20);
    ASSERT_EQ(dark.size(), 1u);
    EXPECT_TRUE(dark[0].isBlack);
    EXPECT_THAT(spans([](int i) { return std::uint8_t(i / 2 * 3); }, 60), IsEmpty())
        << "it creeps, but it moves";
}

TEST(FrameJudge, TellsWhatTheFramesOfADocumentShow) {
    CompositionSpec spec = specOf(canvas, 30, {sceneOf(1.5, {}), sceneOf(2, {fillLayer(white)})});
    spec.background = black;
    std::vector<CompositionKeyframe> strobe;
    for (int i = 0; i < 20; ++i) {
        strobe.push_back(keyframe(i * 0.1, (i + 1) % 2));
        strobe.push_back(keyframe(i * 0.1 + 0.09, (i + 1) % 2));
    }
    spec.scenes[1].layers[0].tracks = {{AnimProperty::opacity, strobe}};
    const std::vector<Finding> found = FrameJudge::findings({.spec = spec, .assetRoot = std::nullopt});
    ASSERT_THAT(codesOf(found), ElementsAre("flash-general", "frames-black"));
    EXPECT_EQ(found[0].path, "scenes[1]");
    EXPECT_THAT(found[1].message, HasSubstr("from 0.0 to 1.5 s"));
}

TEST(FrameJudge, MeasuresTheContrastOfTextsOverPictures) {
    testing::TemporaryFolder folder;
    imaging::Evaluator evaluator{{.threadCount = 1}};
    const imaging::PixelRegion region{0, 0, 64, 36};
    const auto codesOn = [&](const imaging::Color& color) {
        media::writePng(folder / "back.png",
            evaluator.draw(imaging::Image::solid(color).cropped(region.rect()), region).view());
        CompositionSpec spec = specOf(canvas, 24, {sceneOf(0.9, {textLayer("Words")})});
        spec.background = BackgroundImage{.path = (folder / "back.png").string()};
        const auto found = FrameJudge::findings({.spec = spec, .assetRoot = folder.path()});
        return codesOf(found);
    };
    EXPECT_THAT(codesOn({0.9, 0.9, 0.9, 1}), ElementsAre("low-contrast"));
    EXPECT_THAT(codesOn({0.1, 0.1, 0.2, 1}), IsEmpty());
}

}   // namespace
}   // namespace tavix
