// Films of reels by the command alone.
#include "Engine/Tests/EngineTest.h"

#include "TavixPlatform/Media/StillImages.h"
#include "TavixPlatform/Media/Tests/TestClip.h"

#include <gmock/gmock.h>

namespace tavix::engine::testing {

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

// A second is cut out of a recording of three, and a card of a second and a half stands at its start.
constexpr const char* effects = R"({"output": {"widthPx": 64, "heightPx": 96, "fps": 10}, "background": {
    "fill": {"kind": "solid", "color": {"r": 0, "g": 0, "b": 1, "a": 1}}, "padding": 8},
    "cuts": [{"kind": "trim", "dropRange": {"startSec": 1, "endSec": 2}}],
    "titleCards": [{"insertionSec": 0, "durationSec": 1.5, "headline": {"text": "Walk"}}]})";

class ReelFilms : public EngineTest {
protected:
    ReelFilms() {
        media::tests::makeClip({.path = at("walk.mov"), .times = media::tests::evenTimes(90)});
        write("walk.effects.json", effects);
    }
    Json film(std::vector<std::string> words) const {
        words.push_back("--json");
        return json(words);
    }
};

double number(const Json& json, const char* key) { return *json.find(key)->doubleValue(); }

TEST_F(ReelFilms, RenderMakesTheFilmThatTheDocumentTells) {
    const Json made = film({"reel", "render", "walk.mov", "-o", "walk.mp4"});
    EXPECT_EQ(number(made, "frames"), 35);
    EXPECT_EQ(number(made, "widthPx"), 64);
    EXPECT_EQ(made.find("output")->stringValue(), "walk.mp4");
    const Json told = json({"probe", "walk.mp4", "--json"});
    EXPECT_NEAR(number(told, "durationSec"), 3.5, 0.01);
    const Json gif = film({"reel", "render", "walk.mov", "-o", "walk.gif", "--fps", "5"});
    EXPECT_EQ(number(gif, "frames"), 18);
    const Json large = film({"reel", "render", "walk.mov", "-o", "large.mp4", "--resolution", "1080p"});
    EXPECT_EQ(number(large, "widthPx"), 1080);
    EXPECT_EQ(number(large, "heightPx"), 1620);
}

// As for compositions: finished pieces are found again, the film is looked at, and may be told to be small.
TEST_F(ReelFilms, RenderTakesWhatRendersOfCompositionsTake) {
    const auto pieces = [&](std::vector<std::string> more) {
        std::vector<std::string> words{"reel", "render", "walk.mov", "-o", "walk.mp4"};
        words.insert(words.end(), more.begin(), more.end());
        return film(words);
    };
    const Json first = pieces({"--verify"});
    EXPECT_EQ(number(*first.find("segments"), "reused"), 0);
    EXPECT_EQ(number(*first.find("verified"), "framesDecoded"), 35);
    EXPECT_GT(number(*first.find("verified"), "leastSimilarity"), 0.9);
    const std::string bytes = readBytes(at("walk.mp4"));
    const Json again = pieces({});
    EXPECT_EQ(number(*again.find("segments"), "reused"), number(*again.find("segments"), "count"));
    EXPECT_EQ(readBytes(at("walk.mp4")), bytes);
    EXPECT_EQ(number(*pieces({"--no-cache"}).find("segments"), "reused"), 0);
    EXPECT_LE(number(pieces({"--max-size", "40kB"}), "sizeBytes"), 40'000);
    const Outcome lines = tavix({"reel", "render", "walk.mov", "-o", "walk.mp4", "--progress", "json"});
    EXPECT_THAT(lines.out, HasSubstr("\"done\""));
    const Outcome gif = tavix({"reel", "render", "walk.mov", "-o", "walk.gif", "--verify"});
    EXPECT_EQ(gif.status, 2);
    EXPECT_THAT(gif.err, HasSubstr("--verify is for video, and a GIF takes none"));
}

// To look through a recording takes as long as to decode it, so it is done once for each; what it told then
// is told apart here by a flash that is not in the picture.
TEST_F(ReelFilms, ARecordingIsLookedThroughOnce) {
    const auto lengthSec = [&] { return number(film({"reel", "describe", "walk.mov"}), "durationSec"); };
    film({"reel", "render", "walk.mov", "-o", "walk.mp4", "--no-cache"});
    EXPECT_FALSE(std::filesystem::exists(cache() / "recordings")) << "asked to keep nothing";
    EXPECT_NEAR(lengthSec(), 3.5, 0.01);
    const auto kept = [&] { return std::filesystem::directory_iterator(cache() / "recordings")->path(); };
    std::string probe = readBytes(kept());
    probe.insert(probe.find('{') + 1, "\"endFlashStartSeconds\": 2.5, \"endFlashEndSeconds\": 2.6,");
    writeBytesAtomically(probe, kept());
    EXPECT_LT(lengthSec(), 3.1) << "as it was told then";
    writeBytesAtomically("{", kept());
    EXPECT_NEAR(lengthSec(), 3.5, 0.01);
    writeBytesAtomically(probe, kept());
    EXPECT_LT(lengthSec(), 3.1);
    writeBytesAtomically(readBytes(at("walk.mov")), at("walk.mov"));
    EXPECT_NEAR(lengthSec(), 3.5, 0.01) << "another file, of the same content";
    ASSERT_EQ(tavix({"cache", "--clear"}).status, 0);
    EXPECT_FALSE(std::filesystem::exists(cache() / "recordings"));
}

TEST_F(ReelFilms, WhatIsWrongWithADocumentIsToldBeforeTheRecordingIsLookedThrough) {
    write("walk.mov", "no film");
    write("walk.effects.json", "{\"cuts\": 3}");
    EXPECT_THAT(tavix({"reel", "render", "walk.mov"}).err, HasSubstr("walk.effects.json"));
    write("walk.effects.json", effects);
    EXPECT_THAT(tavix({"reel", "render", "walk.mov"}).err, HasSubstr("Could not read raw recording: "));
}

TEST_F(ReelFilms, WhoeverAlmostNamesAReelIsToldItsName) {
    ASSERT_EQ(tavix({"reel", "new", "walk.tavixproj", "--video", "walk.mov"}).status, 0);
    const Outcome almost = tavix({"reel", "render", "walk"});
    EXPECT_EQ(almost.status, 2);
    EXPECT_THAT(almost.err, HasSubstr("There is no \"walk\"; the reel's name is \"walk.tavixproj\"."));
    const Outcome other = tavix({"still", "walk.tavixproj"});
    EXPECT_EQ(other.status, 2);
    EXPECT_THAT(other.err, HasSubstr("is a reel; tavix reel render, reel still and reel sheet take it"));
}

TEST_F(ReelFilms, RenderNeverTakesAPartOfTheReelAway) {
    for (const char* target : {"walk.mov", "./walk.mov"}) {
        const Outcome outcome = tavix({"reel", "render", "walk.mov", "-o", target});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_THAT(outcome.err, HasSubstr("is used by the document itself and would be lost"));
    }
    EXPECT_EQ(number(json({"reel", "probe", "walk.mov", "--json"}), "fps"), 30);
}

TEST_F(ReelFilms, RenderSaysWhatIsWrong) {
    const struct {
        const char *key, *value, *sentence;
    } cases[] = {{"\"widthPx\": 64", "\"widthPx\": 0",
                     "output.widthPx: 0 pixels cannot be rendered; use 2 to 8192 pixels."},
        {"\"fps\": 10", "\"fps\": 900", "output.fps: 900 frames a second cannot be rendered; use 1 to 240"},
        {"\"endSec\": 2", "\"endSec\": -1", ""}};
    for (const auto& c : cases) {
        std::string broken = effects;
        broken.replace(broken.find(c.key), std::string(c.key).size(), c.value);
        write("broken.json", broken);
        const Outcome outcome =
            tavix({"reel", "render", "walk.mov", "--effects", "broken.json", "-o", "a.mp4"});
        EXPECT_EQ(outcome.status, *c.sentence ? 1 : 0) << c.value;
        EXPECT_THAT(outcome.err, HasSubstr(c.sentence));
    }
    EXPECT_EQ(tavix({"reel", "render", "walk.mov", "--effects", "gone.json", "-o", "b.mp4"}).status, 3);
    EXPECT_EQ(tavix({"reel", "render", "gone.mov", "-o", "b.mp4"}).status, 3);
    EXPECT_THAT(names(), Not(Contains("b.mp4")));
}

TEST_F(ReelFilms, WithoutADocumentTheStepsAloneMakeOne) {
    write("bare.mov", readBytes(at("walk.mov")));
    const Outcome made = tavix({"reel", "still", "bare.mov", "--at", "0", "-o", "bare.png"});
    ASSERT_EQ(made.status, 0) << made.err;
    EXPECT_THAT(made.err, HasSubstr("There is no \"bare.effects.json\" yet"));
}

TEST_F(ReelFilms, AStillIsOfTheFinishedReel) {
    ASSERT_EQ(tavix({"reel", "still", "walk.mov", "--at", "1.6", "-o", "still.png"}).status, 0);
    const imaging::Bitmap still = media::loadStillImage(at("still.png"));
    ASSERT_EQ(still.size(), (imaging::Size{64, 96}));
    const std::uint8_t* corner = still.view().row(2) + 4 * 2;
    EXPECT_GT(corner[0], 230);   // the blue ground around the device, in its shadow
    EXPECT_EQ(corner[2], 0);
    EXPECT_THAT(tavix({"reel", "still", "walk.mov", "--at", "3.6"}).err,
        HasSubstr("There is no picture at 3.60 s; the reel runs from 0 to 3.50 s."));
    EXPECT_THAT(tavix({"reel", "still", "walk.mov"}).err, HasSubstr("Say which moment: --at SEC"));
}

TEST_F(ReelFilms, ASheetShowsCardsAndCuts) {
    const Json sheet = film({"reel", "sheet", "walk.mov", "-o", "sheet.png"});
    std::vector<double> times;
    for (const Json& cell : *sheet.find("cells")->array()) times.push_back(number(cell, "atSec"));
    // The card's middle, where the footage starts, where it goes on after the cut, and the last frame.
    for (const double sec : {0.0, 0.8, 1.5, 2.5, 3.4})
        EXPECT_THAT(times, Contains(::testing::DoubleNear(sec, 0.06)));
    const Json steady =
        film({"reel", "sheet", "walk.mov", "-o", "steady.png", "--every", "0.5", "--from", "1.5"});
    EXPECT_EQ(steady.find("cells")->array()->size(), 4u);
}

TEST_F(ReelFilms, NewMakesABundleOfWhatLiesBesideTheVideo) {
    write("run.mov", readBytes(at("walk.mov")));
    write("run.timeline.json", R"({"video": {"widthPx": 64, "heightPx": 64, "fps": 30}, "events": []})");
    ASSERT_EQ(tavix({"reel", "new", "run.tavixproj", "--video", "run.mov"}).status, 0);
    EXPECT_EQ(readBytes(at("run.tavixproj/raw.mov")), readBytes(at("walk.mov")));
    ASSERT_EQ(tavix({"reel", "author", "run.tavixproj"}).status, 0);
    EXPECT_EQ(tavix({"reel", "new", "run.tavixproj", "--video", "run.mov"}).status, 3);
    EXPECT_EQ(tavix({"reel", "new", "run.bundle", "--video", "run.mov"}).status, 2);
    EXPECT_EQ(tavix({"reel", "new", "no.tavixproj", "--video", "gone.mov"}).status, 3);
    EXPECT_THAT(names(), Not(Contains("no.tavixproj")));
}

constexpr const char* teaser = R"({"output": {"widthPx": 96, "heightPx": 64, "fps": 10}, "beats": [
    {"text": "Walk on", "holdSec": 1.5}, {"text": "Every walk, remembered", "holdSec": 2, "subline": "Kestrel"}]})";

TEST_F(ReelFilms, ATeaserIsAFilmOrAProjectOfTheSame) {
    write("launch.json", teaser);
    EXPECT_EQ(number(film({"teaser", "launch.json", "-o", "launch.mp4"}), "frames"), 35);
    ASSERT_EQ(tavix({"teaser", "launch.json", "--project", "launch.tavixproj"}).status, 0);
    const Json again = film({"reel", "render", "launch.tavixproj", "-o", "again.mp4"});
    EXPECT_EQ(number(again, "frames"), 35);
    EXPECT_EQ(readBytes(at("launch.mp4")), readBytes(at("again.mp4")));
    write("empty.json", R"({"output": {"widthPx": 96, "heightPx": 64, "fps": 10}})");
    EXPECT_THAT(tavix({"teaser", "empty.json"}).err,
        HasSubstr("beats: The film would have no frames; add a headline."));
    write("bare.json", R"({"beats": []})");
    EXPECT_EQ(tavix({"teaser", "bare.json"}).status, 1);
}

TEST_F(ReelFilms, AThemeChangesTheLookAndAsksBeforeItReplaces) {
    write("app/AccentColor.colorset/Contents.json",
        R"({"colors": [{"color": {"components": {"red": "0xE0", "green": "0x40", "blue": "0x20"}}}]})");
    EXPECT_THAT(tavix({"theme", "walk.mov"}).err, HasSubstr("Say whose look it is"));
    EXPECT_EQ(tavix({"theme", "walk.mov", "--brand-bundle", "app"}).status, 3);
    EXPECT_EQ(readBytes(at("walk.effects.json")), effects);
    ASSERT_EQ(tavix({"theme", "walk.mov", "--brand-bundle", "app", "-o", "themed.json"}).status, 0);
    const Json themed = parseJson(readBytes(at("themed.json")));
    EXPECT_EQ(themed.find("background")->find("fill")->find("kind")->stringValue(), "gradient");
    EXPECT_EQ(themed.find("cuts")->array()->size(), 1u);
    EXPECT_EQ(tavix({"theme", "walk.mov", "--brand-bundle", "app", "--replace"}).status, 0);
    EXPECT_EQ(readBytes(at("walk.effects.json")), readBytes(at("themed.json")));
}

}   // namespace
}   // namespace tavix::engine::testing
