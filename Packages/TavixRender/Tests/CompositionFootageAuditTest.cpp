#include "TavixRender/Composition2D/CompositionFootageAudit.h"

#include "RenderTestKit.h"
#include "TavixPlatform/Media/Tests/TestClip.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavix {
namespace {

using CompositionLint::Finding;

struct Play {
    double windowSec, trimStartSec;
    std::optional<double> trimEndSec;
    bool holds;
    bool onDevice;
    int findings;
};

CompositionLayer layerOf(const Play& play, const std::string& path) {
    const VideoClip clip{path, play.trimStartSec, play.trimEndSec, {}};
    CompositionLayer layer;
    if (play.onDevice) {
        DeviceContent device;
        device.screen = clip;
        layer.content = device;
    } else {
        layer.content = VideoContent{.clip = clip, .holdLastFrame = play.holds};
    }
    layer.durationSec = play.windowSec;
    return layer;
}

TEST(CompositionFootageAudit, TellsOfWindowsThatOutlastTheirFootage) {
    const Play plays[] = {
        {5.1, 0, {}, false, false, 0}, {5.11, 0, {}, false, false, 1},
        {5.11, 0, 9.0, false, false, 1},   // a trim past the end is the end
        {4.5, 0, 4.0, false, false, 1}, {3.05, 2, {}, false, false, 0}, {3.2, 2, {}, false, false, 1},
        {50, 0, {}, true, false, 0},   // meant to freeze
        {5.2, 0, {}, true, true, 1},   // a device never means to
    };
    for (const Play& play : plays) {
        const auto spec = testing::specOf({64, 64}, 30, {testing::sceneOf(1, {layerOf(play, "a.mp4")})});
        const auto found =
            CompositionFootageAudit::findings(spec, "/films", [](const auto&) { return std::optional(5.0); });
        EXPECT_EQ(int(found.size()), play.findings) << play.windowSec << " from " << play.trimStartSec;
    }
}

TEST(CompositionFootageAudit, SaysWhereAndHowMuchIsMissing) {
    auto scene = testing::sceneOf(8, {testing::shapeLayer({}), layerOf({0, 2, {}, false, true, 1}, "a.mp4")});
    scene.id = "tour";
    scene.layers[1].durationSec.reset();
    scene.layers[1].fromSec = 1.5;
    const auto found = CompositionFootageAudit::findings(
        testing::specOf({64, 64}, 30, {scene}), "/films", [](const std::filesystem::path& path) {
            EXPECT_EQ(path, "/films/a.mp4");
            return std::optional(5.0);
        });
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0],
        (Finding{CompositionLint::Level::warning, "scenes[0].layers[1]",
            "tour: the device screen's footage ends 3.00s into the layer window but the window runs to 6.50s — the last frame freezes for 3.50s.",
            "Shorten the scene/window (durationSec/durationBeats) to fit the footage, trim later, or re-record a longer segment — recordings never stretch."}));
}

TEST(CompositionFootageAudit, OpensEachFilmOnceAndPassesOverThoseItCannotRead) {
    const Play tooLong{9, 0, {}, false, false, 1};
    const auto spec = testing::specOf({64, 64}, 30,
        {testing::sceneOf(
             9, {layerOf(tooLong, "a.mp4"), layerOf(tooLong, "lost.mp4"), layerOf(tooLong, "a.mp4")}),
            testing::sceneOf(9, {layerOf(tooLong, "/b.mp4")})});
    std::vector<std::string> opened;
    const auto found = CompositionFootageAudit::findings(
        spec, std::nullopt, [&](const std::filesystem::path& path) -> std::optional<double> {
            opened.push_back(path);
            if (path == "lost.mp4") return std::nullopt;
            return 5;
        });
    EXPECT_THAT(opened, ::testing::ElementsAre("a.mp4", "lost.mp4", "/b.mp4"));
    ASSERT_EQ(found.size(), 3u);
    EXPECT_EQ(found[2].path, "scenes[1].layers[0]");
    EXPECT_TRUE(CompositionFootageAudit::findings(CompositionSpec{}, std::nullopt).empty());
}

TEST(CompositionFootageAudit, KnowsTheLengthOfFilms) {
    const testing::TemporaryFolder folder;
    for (const char* name : {"a.mp4", "a.mkv", "a.ts"}) {
        const auto path = folder.path() / name;
        media::tests::makeClip({.path = path, .times = media::tests::evenTimes(45)});
        EXPECT_NEAR(CompositionFootageAudit::loadDuration(path).value_or(0), 1.5, 0.05) << name;
    }
    EXPECT_EQ(CompositionFootageAudit::loadDuration(folder.path() / "lost.mp4"), std::nullopt);
}

}   // namespace
}   // namespace tavix
