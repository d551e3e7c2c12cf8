// The files of a reel, and its pixels at another size.
#include "TavixReel/Project/ReelAssets.h"

#include "TavixCore/Support/Document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace tavix {
namespace {

using testing::UnorderedElementsAre;

// Every place of a document that names a file, each with a name of its own.
constexpr const char* withFiles = R"({"output": {"widthPx": 1080, "heightPx": 1920, "fps": 30},
  "background": {"fill": {"kind": "image", "image": {"path": "art/sky.png"}}, "padding": 120,
      "shadow": {"radius": 40, "opacity": 0.4, "offsetY": -24, "color": {"r": 0, "g": 0, "b": 0, "a": 1}},
      "device": {"framePath": "frame.png"}},
  "narration": {"style": {"fontName": "Rounded", "fontPath": "caption.ttf"}, "captions": [
      {"text": "One", "window": {"startSec": 0, "endSec": 1}, "style": {"fontPath": "one.ttf"}}]},
  "brand": {"accent": {"r": 1, "g": 0, "b": 0, "a": 1}, "primaryFontPath": "/abs/brand.ttf",
      "fonts": [{"name": "A", "path": "~/fonts/a.ttf"}], "appMode": "light", "sourceBundlePath": "apps/walk"},
  "deviceScene": {"backdrop": {"kind": "image", "image": {"path": "space.png"}}},
  "titleCards": [{"headline": {"text": "H", "fontPath": "head.ttf"}, "subline": {"text": "S", "fontPath": "sub.ttf"},
      "background": {"kind": "image", "image": {"path": "card.png"}}, "showLogo": true, "logoPath": "logo.png"}],
  "soundCues": [{"atSec": 1, "sound": "whoosh"}, {"atSec": 2, "sound": "cues/pop.wav"}]})";

std::vector<std::string> filesOf(EffectsSpec spec) {
    std::vector<std::string> files;
    ReelAssets::forEach(spec, [&](AssetKind, std::string& path) { files.push_back(path); });
    return files;
}

TEST(ReelAssets, AreAllThatADocumentNames) {
    const auto spec = decodeJson<EffectsSpec>(withFiles);
    EXPECT_THAT(filesOf(spec),
        UnorderedElementsAre("art/sky.png", "frame.png", "caption.ttf", "one.ttf", "/abs/brand.ttf",
            "~/fonts/a.ttf", "space.png", "head.ttf", "sub.ttf", "card.png", "logo.png", "cues/pop.wav"));
}

TEST(ReelAssets, CountFromTheFolderOfTheDocument) {
    const auto spec = ReelAssets::rooted(decodeJson<EffectsSpec>(withFiles), "/reels/walk");
    EXPECT_THAT(filesOf(spec),
        UnorderedElementsAre("/reels/walk/art/sky.png", "/reels/walk/frame.png", "/reels/walk/caption.ttf",
            "/reels/walk/one.ttf", "/abs/brand.ttf", "~/fonts/a.ttf", "/reels/walk/space.png",
            "/reels/walk/head.ttf", "/reels/walk/sub.ttf", "/reels/walk/card.png", "/reels/walk/logo.png",
            "/reels/walk/cues/pop.wav"));
    EXPECT_EQ(spec.soundCues.front().sound, "whoosh");
    EXPECT_EQ(ReelAssets::rooted(spec, "/elsewhere"), spec);
}

TEST(ReelAssets, PixelsGrowWithTheFrameAndBackAgain) {
    auto spec = decodeJson<EffectsSpec>(withFiles);
    spec.cameraTrack = {{.tSec = 0, .scale = 1.2, .centerPx = {300, 400}}};
    const EffectsSpec twice = ReelAssets::scaled(spec, 2160, 3840);
    EXPECT_EQ(twice.output.widthPx, 2160);
    EXPECT_EQ(twice.background.padding, 240);
    EXPECT_EQ(twice.background.shadow.radius, 80);
    EXPECT_EQ(twice.background.shadow.offsetY, -48);
    // The camera's points are the recording's.
    EXPECT_EQ(twice.cameraTrack, spec.cameraTrack);
    EXPECT_EQ(ReelAssets::scaled(twice, 1080, 1920), spec);
}

}   // namespace
}   // namespace tavix
