// A font file is the business of the layers that name it: of no other layer, document, thread or later build.
#include "RenderTestKit.h"
#include "TestSupport/SourceTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <thread>
#include <vector>

namespace tavix {
namespace {

using testing::Picture;

constexpr imaging::Size canvas{320, 180};
constexpr double sizePx = 72;
constexpr const char* wideSigns = "TavixSigns-Wide.ttf";       // a bar of 0.5 by 0.7 of the size
constexpr const char* narrowSigns = "TavixSigns-Narrow.ttf";   // of the same name, 0.1 by 0.7
constexpr const char* sign = "\uE7A0";                         // which no other font has

enum class Half { left, right };

CompositionLayer textLayer(const std::string& text, const std::optional<std::string>& font, Half half) {
    constexpr double middleY = canvas.height / 2.0;
    TextContent content;
    content.text = text;
    content.font = font;
    content.sizeFraction = sizePx / canvas.height;
    content.kinetic = KineticPresetRef{.preset = "none"};
    CompositionLayer layer;
    layer.content = content;
    layer.position = {canvas.width * (half == Half::left ? 0.25 : 0.75), middleY};
    return layer;
}

CompositionSpec documentOf(std::vector<CompositionLayer> layers) {
    CompositionSpec spec = testing::specOf(canvas, 30, {testing::sceneOf(1, {})});
    spec.scenes[0].layers = std::move(layers);   // which stand where they were put
    return spec;
}

Picture pictureOf(const CompositionSpec& spec) {
    imaging::Evaluator evaluator{{.threadCount = 1}};
    const auto fontFolder = testsupport::inSourceTree("Packages/TavixPlatform/Text/Tests/Data");
    ResolvedComposition composition(spec, fontFolder, evaluator, {});
    return Picture(composition.frame(0.5), canvas);
}

// White on black, in whole pixels.
double inkOf(const Picture& picture, Half half) {
    double ink = 0;
    for (int y = 0; y < canvas.height; ++y)
        for (int x = 0; x < canvas.width / 2; ++x)
            ink += picture.at(half == Half::left ? x : x + canvas.width / 2, y).r / 255.0;
    return ink;
}

constexpr double wideInk = 0.5 * 0.7 * sizePx * sizePx, narrowInk = 0.1 * 0.7 * sizePx * sizePx;
constexpr double inkTolerance = 0.01 * wideInk;

// The document that brings the font, and one that has its sign and no font of its own.
CompositionSpec bringing() { return documentOf({textLayer(sign, wideSigns, Half::left)}); }
CompositionSpec lacking() { return documentOf({textLayer(std::string("A") + sign, {}, Half::left)}); }

TEST(FontsOfABuild, ADocumentLooksTheSameWithAndWithoutAnotherBeforeIt) {
    const Picture before = pictureOf(lacking());
    EXPECT_NEAR(inkOf(pictureOf(bringing()), Half::left), wideInk, inkTolerance);
    EXPECT_EQ(pictureOf(lacking()), before);
    // By its name the font is not there either, before or after.
    const auto byName = [] { return pictureOf(documentOf({textLayer(sign, "Tavix Signs", Half::left)})); };
    const Picture named = byName();
    pictureOf(bringing());
    EXPECT_EQ(byName(), named);
    EXPECT_GT(std::abs(inkOf(named, Half::left) - wideInk), 2 * inkTolerance);
}

TEST(FontsOfABuild, TheOrderOfLayersChoosesNoGlyph) {
    const CompositionLayer brings = textLayer(sign, wideSigns, Half::left);
    const CompositionLayer lacks = textLayer(sign, {}, Half::right);
    const CompositionLayer names = textLayer(sign, "TavixSigns-Regular", Half::right);
    for (const CompositionLayer& other : {lacks, names}) {
        const Picture alone = pictureOf(documentOf({other}));
        const Picture after = pictureOf(documentOf({brings, other}));
        EXPECT_EQ(pictureOf(documentOf({other, brings})), after);
        EXPECT_NEAR(inkOf(after, Half::left), wideInk, inkTolerance);
        EXPECT_EQ(inkOf(after, Half::right), inkOf(alone, Half::right));
    }
}

TEST(FontsOfABuild, TwoFilesOfOneNameKeepTheirOwnGlyphs) {
    const CompositionLayer wide = textLayer(sign, wideSigns, Half::left);
    const CompositionLayer narrow = textLayer(sign, narrowSigns, Half::right);
    const Picture picture = pictureOf(documentOf({wide, narrow}));
    EXPECT_NEAR(inkOf(picture, Half::left), wideInk, inkTolerance);
    EXPECT_NEAR(inkOf(picture, Half::right), narrowInk, inkTolerance);
    EXPECT_EQ(pictureOf(documentOf({narrow, wide})), picture);
    // Of a font that was asked for before the other came, too.
    const Picture thrice = pictureOf(documentOf({wide, narrow, wide}));
    EXPECT_NEAR(inkOf(thrice, Half::left), wideInk, inkTolerance);
    EXPECT_NEAR(inkOf(thrice, Half::right), narrowInk, inkTolerance);
}

TEST(FontsOfABuild, BuildsAtTheSameTimeSeeTheirOwnFontsAlone) {
    const std::vector<CompositionSpec> documents{bringing(), lacking(),
        documentOf({textLayer(sign, narrowSigns, Half::left)}),
        documentOf({textLayer("الحروف 文字 👋", {}, Half::left)})};
    std::vector<Picture> expected;
    for (const CompositionSpec& document : documents) expected.push_back(pictureOf(document));
    std::vector<std::vector<Picture>> seen(documents.size());
    {
        std::vector<std::jthread> threads;
        for (std::size_t i = 0; i < documents.size(); ++i)
            threads.emplace_back([&, i] {
                for (int round = 0; round < 3; ++round) seen[i].push_back(pictureOf(documents[i]));
            });
    }
    for (std::size_t i = 0; i < documents.size(); ++i) EXPECT_THAT(seen[i], ::testing::Each(expected[i]));
}

}   // namespace
}   // namespace tavix
