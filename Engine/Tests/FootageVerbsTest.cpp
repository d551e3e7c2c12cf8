#include "Engine/Tests/EngineTest.h"
#include "TavixCore/Support/JsonWriter.h"
#include "TavixPlatform/Media/Tests/TestClip.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tavix::engine::testing {

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class FootageVerbs : public EngineTest {
protected:
    FootageVerbs() {
        media::tests::makeClip({.path = at("clip.mp4"),
            .size = {64, 96},
            .times = media::tests::evenTimes(30),
            .pixelAspect = {2, 1},
            .clockwiseDeg = 90});
    }
    // A film of 720 × 1280 with one clip in it, in a window of so many seconds.
    void writeFilm(const std::string& path, double windowSec) {
        write("film.json",
            R"({"output": {"widthPx": 720, "heightPx": 1280, "fps": 30}, "scenes": [{"durationSec": )" +
                std::to_string(windowSec) +
                R"(, "layers": [{"kind": "video", "position": {"x": 360, "y": 640},
            "video": {"path": ")" +
                path + R"(", "holdLastFrame": false}}]}]})");
    }
};

TEST_F(FootageVerbs, TellOfFilmsThatEndTooEarly) {
    writeFilm("clip.mp4", 2.5);
    const std::string told =
        "warning scenes[0].layers[0]: scene-0: the video's footage ends 1.00s into the layer window";
    const Outcome audit = tavix({"audit", "film.json"});
    EXPECT_EQ(audit.status, 0) << audit.err;
    EXPECT_THAT(audit.out, AllOf(HasSubstr(told), HasSubstr("\n  Shorten the scene/window")));
    const JsonArray found = *json({"audit", "film.json", "--json"}).array();
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(*found[0].find("level"), Json("warning"));
    EXPECT_THAT(tavix({"lint", "film.json", "--footage"}).out, HasSubstr(told));
    EXPECT_THAT(tavix({"lint", "film.json"}).out, ::testing::Not(HasSubstr("footage")));
}

TEST_F(FootageVerbs, AreSilentWhereFootageLastsOrIsAbsent) {
    for (const char* path : {"clip.mp4", "lost.mp4"}) {
        writeFilm(path, path[0] == 'c' ? 1.0 : 9.0);
        const Outcome audit = tavix({"audit", "film.json"});
        EXPECT_EQ(audit.status, 0) << audit.err;
        EXPECT_THAT(audit.out, IsEmpty());
    }
}

TEST_F(FootageVerbs, TellOfFilmsThatAreDamagedOrCutShort) {
    // The index of the one stands at its front, so that what is cut off are pictures; the other has none.
    for (const char* name : {"whole.mp4", "whole.mkv"})
        runIn(
            folder(), {"ffmpeg", "-v", "error", "-f", "lavfi", "-i", "testsrc2=size=64x64:rate=30:duration=2",
                          "-pix_fmt", "yuv420p", "-g", "12", "-movflags", "faststart", name});
    for (const std::string extension : {".mp4", ".mkv"}) {
        SCOPED_TRACE(extension);
        const std::string whole = readBytes(at("whole" + extension));
        std::string damaged = whole;
        std::fill_n(damaged.begin() + std::ssize(whole) / 2, whole.size() / 5, '\xFF');
        const struct {
            std::string bytes;
            bool isTold;
        } cases[] = {
            {whole, false}, {whole.substr(0, whole.size() * 6 / 10), true}, {damaged, extension == ".mp4"}};
        // The reader of the other skips what is damaged and finds its way back without a word.
        for (const auto& c : cases) {
            write("film" + extension, c.bytes);
            write("film.json",
                R"({"output": {"widthPx": 64, "heightPx": 64, "fps": 10}, "scenes": [{"durationSec":
                1.9, "layers": [{"kind": "video", "video": {"path": "film)" +
                    extension + R"("}}]}]})");
            const Json result = json({"render", "film.json", "--json", "-o", "film-out.mp4"});
            const JsonArray warnings = *result.find("warnings")->array();
            ASSERT_EQ(warnings.size(), c.isTold ? 1u : 0u) << c.bytes.size() << writeJson(warnings);
            if (!c.isTold) continue;
            EXPECT_THAT(
                messageOf(warnings.front()), HasSubstr("film" + extension + " is damaged or cut short; "));
        }
    }
}

TEST_F(FootageVerbs, EndWithTheErrorsOfADocumentThatCannotBeAudited) {
    write("broken.json", R"({"scenes": [{"layers": [{"kind": "txt"}]}]})");
    for (const std::vector<std::string>& words :
        {std::vector<std::string>{"audit", "broken.json"}, {"lint", "broken.json", "--footage"}}) {
        const Outcome outcome = tavix(words);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.out, HasSubstr("error scenes[0].layers[0].kind"));
    }
    EXPECT_EQ(tavix({"audit", "gone.json"}).status, 3);
    EXPECT_EQ(tavix({"audit"}).status, 2);
}

TEST_F(FootageVerbs, ProbeTellsWhatAFilmHolds) {
    const Json info = json({"probe", "clip.mp4", "--json"});
    EXPECT_NEAR(info.find("durationSec")->doubleValue().value(), 1, 0.001);
    EXPECT_TRUE(info.find("audio")->array()->empty());
    const Json& video = info.find("video")->array()->front();
    EXPECT_EQ(*video.find("codec"), Json("h264"));
    EXPECT_EQ(*video.find("codedWidthPx"), Json(64));
    EXPECT_EQ(*video.find("widthPx"), Json(96)) << "it lies on its side";
    EXPECT_EQ(*video.find("heightPx"), Json(128)) << "and its pixels are twice as wide as high";
    EXPECT_NEAR(video.find("fps")->doubleValue().value(), 30, 0.01);
    EXPECT_THAT(tavix({"probe", "clip.mp4"}).out,
        AllOf(HasSubstr("1 seconds\n"),
            HasSubstr("video  h264, 96 × 128 pixels (stored as 64 × 96), 30 frames a second")));
}

TEST_F(FootageVerbs, ProbeRefusesWhatIsNoMedia) {
    write("letter.mov", "This is a letter.");
    for (const char* name : {"letter.mov", "lost.mp4"}) {
        const Outcome outcome = tavix({"probe", name});
        EXPECT_EQ(outcome.status, 3);
        EXPECT_THAT(outcome.err, HasSubstr(name));
    }
}

TEST_F(FootageVerbs, RendersNameAClipThatCannotBeDrawn) {
    write("letter.mov", "This is a letter.");
    writeFilm("letter.mov", 0.1);
    const Outcome outcome = tavix({"render", "film.json", "--json"});
    EXPECT_EQ(outcome.status, 0);
    const JsonArray warnings = *parseJson(outcome.out).find("warnings")->array();
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_THAT(messageOf(warnings.front()), HasSubstr("letter.mov"));
}

}   // namespace

}   // namespace tavix::engine::testing
