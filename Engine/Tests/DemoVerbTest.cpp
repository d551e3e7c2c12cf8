// From a flow on a page to its film, in a real browser. Without one these tests are skipped.
#include "Engine/Tests/EngineTest.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Media/VideoFile.h"

#include <gmock/gmock.h>

#include <array>
#include <cstdint>
#include <limits>

namespace tavix::engine::testing {

namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::HasSubstr;

class DemoVerb : public EngineTest {
protected:
    DemoVerb() {
        write("page/index.html",
            "<!doctype html><meta name=viewport content='width=device-width'><body style='background:#00f'>"
            "<button id=go style='height:60px' onclick='document.body.style.background = \"#0f0\"'>Go");
        write("shop.json", R"({"name": "shop", "schemaVersion": 1, "entry": {"rootViewType": "/"},
            "output": {"aspect": "vertical", "width": 1080, "height": 1920, "fps": 10, "container": "mp4", "codec": "h264"},
            "steps": [{"index": 0, "interaction": "tap", "caption": "Off it goes", "dwellBeforeMs": 300, "dwellAfterMs": 500,
                "target": {"kind": "viewId", "identifier": "go"}}]})");
    }
    Outcome demo(std::vector<std::string> more = {}) const {
        std::vector<std::string> words{"demo", "shop.json", "--url", "page", "--size", "540x960", "--scale",
            "3", "--fps", "10", "--background", "#ff0000"};
        words.insert(words.end(), more.begin(), more.end());
        return tavix(words);
    }
    // The colours of the middle of a film, one a frame.
    std::vector<std::array<int, 3>> middles(const std::string& film) const {
        media::VideoFile file(at(film));
        imaging::Evaluator evaluator({.threadCount = 1, .cacheBytes = 0});
        std::vector<std::array<int, 3>> found;
        const auto frames = file.framesFrom(0, std::numeric_limits<double>::infinity(), media::Pace::steady);
        while (auto frame = frames->next()) {
            const auto pixels =
                evaluator.draw(frame->image(), imaging::pixelsCovering(frame->image().extent()));
            const auto* p = pixels.view().row(pixels.size().height / 2) + 4 * (pixels.size().width / 2);
            found.push_back({p[2], p[1], p[0]});
        }
        return found;
    }
};

TEST_F(DemoVerb, MakesTheFilmAndKeepsWhatItIsMadeOf) {
    const Outcome made = demo({"--json"});
    if (made.out.find("There is no browser") != std::string::npos) GTEST_SKIP() << made.out;
    ASSERT_EQ(made.status, 0) << made.err << made.out;
    const Json result = parseJson(made.out);
    EXPECT_EQ(result.find("output")->stringValue(), "shop.mp4");
    EXPECT_THAT(names(), AllOf(Contains("shop.mp4"), Contains("shop.tavixproj")));
    const Json effects = parseJson(readBytes(at("shop.tavixproj/effects.json")));
    const Json& caption = effects.find("narration")->find("captions")->array()->front();
    EXPECT_EQ(caption.find("text")->stringValue(), "Off it goes");
    const auto seen = middles("shop.mp4");
    ASSERT_EQ(static_cast<std::int64_t>(seen.size()), *result.find("frames")->integerValue());
    EXPECT_GT(seen.front()[2], 200) << "the page before the tap";
    EXPECT_GT(seen.back()[1], 200) << "and after it";

    const Outcome again = demo();
    EXPECT_EQ(again.status, 3);
    EXPECT_THAT(again.err, HasSubstr("give --replace"));
}

TEST_F(DemoVerb, AStepThatFailsLeavesAPictureAndNoFilm) {
    write("page/index.html", "<!doctype html><p>Closed</p>");
    const Outcome outcome = demo({"--wait", "0.2"});
    if (outcome.err.find("There is no browser") != std::string::npos) GTEST_SKIP() << outcome.err;
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, AllOf(HasSubstr("steps[0].target"), HasSubstr("There was no viewId \"go\""),
                                 HasSubstr("shop-failed.png")));
    EXPECT_TRUE(readBytes(at("shop-failed.png")).starts_with("\x89PNG"));
    EXPECT_THAT(
        names(), ::testing::UnorderedElementsAre("page", "shop.json", "shop-failed.png", "tiny.json"));
}

}   // namespace

}   // namespace tavix::engine::testing
