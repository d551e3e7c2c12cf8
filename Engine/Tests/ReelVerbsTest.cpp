#include "Engine/Tests/EngineTest.h"

#include "TavixPlatform/Media/StillImages.h"
#include "TavixPlatform/Media/Tests/TestClip.h"
#include "TestSupport/SourceTree.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tavix::engine::testing {

namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr const char* sidecar = R"({"video": {"widthPx": 64, "heightPx": 64, "fps": 30}, "events": [
    {"index": 0, "type": "tap", "tSec": 1, "regionPx": [4, 4, 8, 8], "label": "New walk"},
    {"index": 1, "type": "toggle", "tSec": 5, "regionPx": [50, 50, 8, 8], "label": "Pulse"}]})";
constexpr const char* flow = R"({"name": "walk", "schemaVersion": 1,
    "output": {"aspect": "vertical", "width": 1080, "height": 1920, "fps": 30, "container": "mp4", "codec": "h264"},
    "entry": {"rootViewType": "Home"}, "motion": {"touchRingPadPx": 4},
    "steps": [{"index": 0, "interaction": "tap", "dwellBeforeMs": 0, "dwellAfterMs": 0, "caption": "Start a walk",
               "target": {"kind": "text", "identifier": "new"}},
              {"index": 1, "interaction": "toggle", "dwellBeforeMs": 0, "dwellAfterMs": 0, "transition": "wipe",
               "target": {"kind": "text", "identifier": "pulse"}}]})";

class ReelVerbs : public EngineTest {
protected:
    ReelVerbs() {
        media::tests::makeClip(
            {.path = at("walk.mov"), .times = media::tests::evenTimes(240)});   // 8 seconds
        write("walk.timeline.json", sidecar);
        write("walk.flow.json", flow);
    }
    Json effects(const std::string& name = "walk.effects.json") const {
        return parseJson(readBytes(at(name)));
    }
};

std::size_t count(const Json& json, const char* key) { return json.find(key)->array()->size(); }

TEST_F(ReelVerbs, AuthorWritesADocumentBesideTheVideo) {
    const Outcome made = tavix({"reel", "author", "walk.mov", "--captions", "--format", "vertical"});
    ASSERT_EQ(made.status, 0) << made.err;
    EXPECT_THAT(made.out, HasSubstr("✓ Wrote walk.effects.json: "));
    EXPECT_THAT(made.err, HasSubstr("steps[1] wipe on a toggle"));
    const Json spec = effects();
    EXPECT_EQ(*spec.find("schemaVersion")->integerValue(), 4);
    EXPECT_EQ(*spec.find("output")->find("widthPx")->integerValue(), 1080);
    const Json& caption = spec.find("narration")->find("captions")->array()->front();
    EXPECT_EQ(caption.find("text")->stringValue(), "Start a walk");
    EXPECT_EQ(count(spec, "retimeTrack"), 1u);
    EXPECT_EQ(count(spec, "transitions"), 1u);
    EXPECT_GE(count(spec, "cameraTrack"), 3u);
}

TEST_F(ReelVerbs, AuthorNeverTakesADocumentAwayUnasked) {
    ASSERT_EQ(tavix({"reel", "author", "walk.mov"}).status, 0);
    write("walk.effects.json", "edited by hand");
    const Outcome again = tavix({"reel", "author", "walk.mov"});
    EXPECT_EQ(again.status, 3);
    EXPECT_THAT(again.err,
        HasSubstr("\"walk.effects.json\" is there already and may have been edited; give --replace"));
    EXPECT_EQ(readBytes(at("walk.effects.json")), "edited by hand");
    EXPECT_EQ(tavix({"reel", "author", "walk.mov", "-o", "other.json"}).status, 0);
    EXPECT_EQ(effects("other.json").find("cameraTrack")->array()->size(), 4u);
    EXPECT_EQ(tavix({"reel", "author", "walk.mov", "--replace"}).status, 0);
    EXPECT_EQ(effects(), effects("other.json"));
    EXPECT_EQ(tavix({"reel", "author", "walk.mov", "--replace", "--format", "verticl"}).err,
        "tavix: --format \"verticl\" is not known; use deviceNative, vertical or horizontal. Did you mean "
        "vertical?\n");
}

TEST_F(ReelVerbs, AuthorWorksInABundleAndWithoutASidecar) {
    write("walk.tavixproj/raw.mov", readBytes(at("walk.mov")));
    const Outcome made = tavix({"reel", "author", "walk.tavixproj", "--json"});
    ASSERT_EQ(made.status, 0) << made.err;
    EXPECT_THAT(made.err,
        HasSubstr("There is no sidecar \"walk.tavixproj/timeline.json\", so the camera stands still."));
    const Json told = parseJson(made.out);
    EXPECT_EQ(*told.find("cameraKeyframes")->integerValue(), 1);
    EXPECT_EQ(told.find("output")->stringValue(), "walk.tavixproj/effects.json");
    EXPECT_EQ(*effects("walk.tavixproj/effects.json").find("output")->find("widthPx")->integerValue(), 64);
}

TEST_F(ReelVerbs, AuthorTellsAPictureFromWhereTheDocumentIs) {
    write("walk.tavixproj/raw.mov", readBytes(at("walk.mov")));
    write("walk.tavixproj/art/sky.png", "not looked into");
    ASSERT_EQ(
        tavix({"reel", "author", "walk.tavixproj", "--background", "walk.tavixproj/art/sky.png"}).status, 0);
    const Json spec = effects("walk.tavixproj/effects.json");
    EXPECT_EQ(
        spec.find("background")->find("fill")->find("image")->find("path")->stringValue(), "art/sky.png");
}

TEST_F(ReelVerbs, AuthorSaysWhatIsWrong) {
    write("bad.mov", "These are only words.");
    write("bad.flow.json", R"({"name": 7})");
    const struct {
        std::vector<std::string> words;
        int status;
        const char* sentence;
    } cases[] = {
        {{"walk.mov", "--background", "mauve"}, 2, "Unknown --background \"mauve\"."},
        {{"walk.mov", "--background", "no/such.png"}, 3, "The background \"no/such.png\" is no file"},
        {{"walk.mov", "--typography", "wave"}, 2, "--typography: unknown preset \"wave\""},
        {{"walk.mov", "--format", "square"}, 2, "square"},
        {{"bad.mov"}, 3, "Could not read raw recording: "},
        {{"gone.mov"}, 3, "There is no such file."},
        {{"walk.mov", "--flow", "bad.flow.json"}, 1, "bad.flow.json: \"name\" must be text"},
        {{}, 2, "reel author needs a recording"},
        {{"."}, 2, "is a folder without a raw.mov"},
    };
    for (const auto& c : cases) {
        std::vector<std::string> words{"reel", "author"};
        words.insert(words.end(), c.words.begin(), c.words.end());
        const Outcome outcome = tavix(words);
        EXPECT_EQ(outcome.status, c.status) << c.sentence;
        EXPECT_THAT(outcome.err, HasSubstr(c.sentence));
    }
    EXPECT_THAT(names(), Not(Contains("walk.effects.json")));
}

TEST_F(ReelVerbs, LintEndsWithTheErrorsOfAFlow) {
    const Outcome fine = tavix({"reel", "lint", "walk.flow.json"});
    EXPECT_EQ(fine.status, 0);
    EXPECT_THAT(fine.out, HasSubstr("warning: steps[1] wipe on a toggle"));
    std::string broken = flow;
    broken.replace(broken.find("\"wipe\""), 6, "\"spin\"");
    write("broken.json", broken);
    const Outcome outcome = tavix({"reel", "lint", "broken.json", "--json"});
    EXPECT_EQ(outcome.status, 1);
    const Json told = parseJson(outcome.out);
    EXPECT_EQ(told.find("findings")->array()->front().find("level")->stringValue(), "error");
}

TEST_F(ReelVerbs, TellWhatIsIgnoredInADocument) {
    std::string misspelt = flow;
    misspelt.replace(misspelt.find("\"caption\""), 9, "\"captoin\"");
    write("misspelt.json", misspelt);
    EXPECT_THAT(tavix({"reel", "lint", "misspelt.json"}).err,
        HasSubstr("misspelt.json: steps[0].captoin: \"captoin\" is no key here, and is not read."));
}

TEST_F(ReelVerbs, ProbeNamesItsFields) {
    const Json probe = json({"reel", "probe", "walk.mov", "--json"});
    EXPECT_EQ(*probe.find("widthPx")->integerValue(), 64);
    EXPECT_NEAR(*probe.find("fps")->doubleValue(), 30, 1e-6);
    EXPECT_TRUE(probe.find("markBlipSeconds"));
    EXPECT_FALSE(probe.find("syncSeconds"));
    EXPECT_THAT(tavix({"reel", "probe", "walk.mov"}).out, HasSubstr("flash at the go  none"));
}

// Between two flashes an app taps once, on its own clock; the corner shows when.
TEST_F(ReelVerbs, SidecarComesFromTheReportAndThePicture) {
    media::tests::ClipRecipe recipe{
        .path = at("run.mov"), .size = {128, 128}, .times = media::tests::evenTimes(150)};
    recipe.paint = [](AVFrame& frame, int index) {
        const bool isFlash = index == 12 || index == 13 || index == 132 || index == 133;
        const bool isMark = index >= 63 && index < 66;
        for (int plane = 0; plane < 3; ++plane) media::tests::fillPlane(frame, plane, 110);
        const int magenta[] = {78, 214, 230};
        for (int plane = 0; plane < 3 && (isFlash || isMark); ++plane) {
            const int shift = plane == 0 ? 0 : 1, from = isFlash ? 0 : (128 - 24) >> shift;
            for (int y = from; y < 128 >> shift; ++y)
                for (int x = 0; x < (isFlash ? 128 : 24) >> shift; ++x)
                    frame.data[plane][y * frame.linesize[plane] + x] = std::uint8_t(magenta[plane]);
        }
    };
    media::tests::makeClip(recipe);
    write("done.json", R"({"flowStart": 700, "flowEnd": 704, "displayScale": 2, "steps": [
        {"index": 0, "startedAt": 701.4, "endedAt": 703, "actionAt": 701.6, "label": "Save",
         "rect": {"x": 4, "y": 5, "width": 6, "height": 7}}]})");
    const Outcome made = tavix({"reel", "sidecar", "run.mov"});
    ASSERT_EQ(made.status, 0) << made.err;
    EXPECT_THAT(
        made.out, HasSubstr("✓ Wrote run.timeline.json: 1 step, 1 of 1 marks found, clock rate 1.0000"));
    const Json event = effects("run.timeline.json").find("events")->array()->front();
    EXPECT_NEAR(*event.find("actionSec")->doubleValue(), 63 / 30.0, 1e-6);   // as seen, not as reported
    EXPECT_NEAR(*event.find("tSec")->doubleValue(), 63 / 30.0 - 0.2, 1e-6);
    EXPECT_EQ(*event.find("regionPx"), parseJson("[8, 10, 12, 14]"));
    EXPECT_EQ(tavix({"reel", "author", "run.mov"}).status, 0);

    EXPECT_EQ(tavix({"reel", "sidecar", "run.mov"}).status, 3);   // it may have been edited
    const Outcome flashless = tavix({"reel", "sidecar", "walk.mov", "-o", "new.json"});
    EXPECT_EQ(flashless.status, 3);
    EXPECT_THAT(flashless.err, HasSubstr("\"walk.mov\" has no flash at the go"));
    EXPECT_THAT(tavix({"reel", "sidecar", "run.mov", "--report", "gone.json", "-o", "new.json"}).err,
        HasSubstr("gone.json"));
}

TEST_F(ReelVerbs, TellOfADamagedRecording) {
    media::tests::makeClip({.path = at("long.mkv"), .times = media::tests::evenTimes(240)});
    const std::string bytes = readBytes(at("long.mkv"));
    write("cut.mkv", bytes.substr(0, bytes.size() / 2));
    for (const char* verb : {"probe", "describe", "author"})
        EXPECT_THAT(tavix({"reel", verb, "cut.mkv"}).err, HasSubstr("\"cut.mkv\" is damaged or cut short"));
    EXPECT_EQ(*json({"reel", "probe", "cut.mkv", "--json"}).find("isDamaged")->boolean(), true);
    EXPECT_FALSE(json({"reel", "probe", "long.mkv", "--json"}).find("isDamaged"));
}

TEST_F(ReelVerbs, DescribeTellsTimesOfTheFinishedFilm) {
    ASSERT_EQ(tavix({"reel", "author", "walk.mov"}).status, 0);
    const Json story = json({"reel", "describe", "walk.mov", "--json", "--plot", "plot.png"});
    // Between the steps, 1.6 to 4.4 is played five times as fast.
    EXPECT_NEAR(*story.find("durationSec")->doubleValue(), 8 - 2.8 + 2.8 / 5, 1e-6);
    EXPECT_NEAR(*story.find("steps")->array()->at(1).find("atSec")->doubleValue(), 5 - 2.8 + 2.8 / 5, 1e-6);
    EXPECT_NEAR(*story.find("paces")->array()->front().find("endSec")->doubleValue(), 1.6 + 2.8 / 5, 1e-6);
    ASSERT_EQ(tavix({"reel", "author", "walk.mov", "--captions", "--replace"}).status, 0);
    const Json told = json({"reel", "describe", "walk.mov", "--json"});
    EXPECT_EQ(count(told, "captions"), 2u);
    // The first caption is to be read until 3, and the gap is hurried through after it alone.
    EXPECT_NEAR(*told.find("paces")->array()->front().find("startSec")->doubleValue(), 3, 1e-6);

    // The curve of the zoom lies at the bottom of its row at first, and higher when the camera is in.
    const imaging::Bitmap plot = media::loadStillImage(at("plot.png"));
    ASSERT_EQ(plot.size().width, 1600);
    const auto zoomLineAt = [&](int x) {
        for (int y = 100; y < 290; ++y) {
            const std::uint8_t* p = plot.view().row(y) + 4 * x;
            if (p[1] > 150 && p[2] < 130) return y;
        }
        return -1;
    };
    const int start = zoomLineAt(120), zoomed = zoomLineAt(110 + int(1.55 / 5.76 * 1462));
    EXPECT_GT(start, 250);
    EXPECT_GT(zoomed, 90);
    EXPECT_LT(zoomed, start - 40);
}

TEST_F(ReelVerbs, TheirReferencesAreCurrent) {
    for (const std::string type : {"effects", "flow", "timeline", "teaser"}) {
        EXPECT_EQ(json({"schema", type}).find("title")->stringValue(), type);
        const std::string name = "docs/" + type + "-reference.md";
        EXPECT_EQ(tavix({"schema", type, "--markdown"}).out, readBytes(testsupport::inSourceTree(name)))
            << "make it anew: tavix schema " << type << " --markdown > " << name;
    }
}

// The example is as its recording and the command make it, and its reel is one to keep: nothing crowds, no
// caption is lost in a gap, and the camera comes to rest.
TEST_F(ReelVerbs, TheExampleIsWhatTheCommandMakes) {
    const std::string example = testsupport::inSourceTree("Examples/walk-note.tavixproj").string();
    const Outcome made = tavix({"reel", "author", example, "--captions", "--format", "vertical",
        "--background", "aurora", "-o", "made.json"});
    ASSERT_EQ(made.status, 0) << made.err;
    EXPECT_THAT(made.out, HasSubstr("Found 16 of 16 marks in the picture."));
    EXPECT_EQ(readBytes(at("made.json")), readBytes(example + "/effects.json"));
    const Json story = json({"reel", "describe", example, "--json"});
    double freeFromSec = 0;
    for (const Json& caption : *story.find("captions")->array()) {
        EXPECT_GE(*caption.find("startSec")->doubleValue(), freeFromSec);
        freeFromSec = *caption.find("endSec")->doubleValue();
        EXPECT_GE(freeFromSec - *caption.find("startSec")->doubleValue(), 1.2);
        EXPECT_TRUE(*caption.find("moves")->boolean());
    }
    EXPECT_GE(count(story, "captions"), 4u);
    EXPECT_EQ(*story.find("camera")->array()->back().find("scale"), Json(1));
}

TEST_F(ReelVerbs, ACompositionCutsByTheSameSidecar) {
    const std::string example = testsupport::inSourceTree("Examples/walk-marks.tavixcomp").string();
    EXPECT_EQ(tavix({"lint", example, "--footage"}).out, "");
    const Json scenes = *json({"resolve", example}).find("scenes");
    // The first scene starts a second before the row is tapped, and its text four tenths after that.
    const Json& layers = *scenes.array()->front().find("layers");
    const Json marks = parseJson(readBytes(example + "/assets/walk.timeline.json"));
    const Json& row = marks.find("events")->array()->at(1);
    EXPECT_NEAR(*layers.array()->at(0).find("device")->find("screen")->find("trimStartSec")->doubleValue(),
        *row.find("actionSec")->doubleValue() - 1, 1e-9);
    EXPECT_NEAR(*layers.array()->at(1).find("fromSec")->doubleValue(), 0.4, 1e-9);
}

TEST_F(ReelVerbs, BrandTellsTheLookOfAnApplication) {
    write("app/AccentColor.colorset/Contents.json",
        R"({"colors": [{"color": {"components": {"red": "0xE0", "green": "0x40", "blue": "0x20"}}}]})");
    EXPECT_THAT(tavix({"brand", "app"}).out, HasSubstr("accent     #E04020\n"));
    const Json told = json({"brand", "app", "--json"});
    EXPECT_EQ(told.find("notes")->array()->front().stringValue(), "accent from AccentColor.colorset");
    ASSERT_EQ(tavix({"reel", "author", "walk.mov", "--brand-bundle", "app"}).status, 0);
    EXPECT_EQ(*effects().find("brand"), *told.find("brand"));
    const Outcome both = tavix(
        {"reel", "author", "walk.mov", "--brand-bundle", "app", "--theme-from-app", "app", "-o", "b.json"});
    EXPECT_EQ(both.status, 2);
    EXPECT_THAT(both.err, HasSubstr("--theme-from-app and --brand-bundle say the same; give one of them."));
    const Outcome none =
        tavix({"reel", "author", "walk.mov", "--theme-from-app", "no such application", "-o", "b.json"});
    EXPECT_EQ(none.status, 3);
    EXPECT_THAT(none.err, HasSubstr("No installed application is called \"no such application\""));
    EXPECT_THAT(tavix({"brand", "gone"}).err, HasSubstr("Brand bundle not found: gone"));
}

TEST_F(ReelVerbs, AreAFamily) {
    const Outcome family = tavix({"reel", "--help"});
    EXPECT_EQ(family.status, 0);
    EXPECT_THAT(family.out, HasSubstr("reel describe  Tell what a reel does"));
    EXPECT_EQ(tavix({"help", "reel"}).out, family.out);
    EXPECT_THAT(tavix({"help", "reel", "author"}).out, HasSubstr("--typography"));
    EXPECT_THAT(tavix({"reel", "author", "--help"}).out, HasSubstr("--typography"));
    EXPECT_THAT(tavix({"reel"}).err, HasSubstr("A verb is missing after \"reel\", as in tavix reel author."));
    EXPECT_THAT(tavix({"reel", "descibe"}).err, HasSubstr("Did you mean reel describe?"));
    EXPECT_THAT(tavix({"reeel"}).err, HasSubstr("Did you mean reel?"));
}

}   // namespace
}   // namespace tavix::engine::testing
