#include "Engine/Tests/EngineTest.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TestSupport/SourceTree.h"

#include <gmock/gmock.h>

#include <csignal>
#include <thread>

namespace tavix::engine::testing {

namespace {

using ::testing::HasSubstr;

// Three scenes of a second, each with a sound.
constexpr const char* threeScenes = R"({
  "output": {"widthPx": 64, "heightPx": 96, "fps": 10},
  "audio": {"cues": [{"atSec": 0.2, "sound": "ding"}, {"atSec": 2.2, "sound": "ding"}]},
  "scenes": [
    {"id": "a", "durationSec": 1, "layers": [{"kind": "text", "text": {"text": "One"}}]},
    {"id": "b", "durationSec": 1, "layers": [{"kind": "text", "text": {"text": "Two"}}]},
    {"id": "c", "durationSec": 1, "layers": [{"kind": "shape", "shape": {"shape": "ellipse"}}]}]})";

std::int64_t number(const Json& json, const char* group, const char* key) {
    return std::int64_t(json.find(group)->find(key)->doubleValue().value());
}

TEST_F(EngineTest, RendersOnlyWhatAnEditTouched) {
    write("film.json", threeScenes);
    const Json cold = json({"render", "film.json", "-o", "a.mp4", "--json"});
    EXPECT_EQ(number(cold, "segments", "count"), 3);
    EXPECT_EQ(number(cold, "segments", "reused"), 0);
    EXPECT_EQ(number(json({"render", "film.json", "-o", "b.mp4", "--json"}), "segments", "reused"), 3);
    EXPECT_EQ(readBytes(at("b.mp4")), readBytes(at("a.mp4")));
    std::string edited = threeScenes;
    edited.replace(edited.find("Two"), 3, "Ten");
    write("film.json", edited);
    EXPECT_EQ(number(json({"render", "film.json", "-o", "c.mp4", "--json"}), "segments", "reused"), 2);
    const Json anew = json({"render", "film.json", "-o", "d.mp4", "--no-cache", "--json"});
    EXPECT_EQ(number(anew, "segments", "reused"), 0);
    EXPECT_EQ(readBytes(at("d.mp4")), readBytes(at("c.mp4")));
    EXPECT_NE(readBytes(at("c.mp4")), readBytes(at("a.mp4")));
}

TEST_F(EngineTest, TellsWhatIsKeptAndRemovesIt) {
    write("film.json", threeScenes);
    json({"render", "film.json", "--json"});
    const Json kept = json({"cache", "--json"});
    EXPECT_EQ(*kept.find("segments"), Json(3));
    EXPECT_EQ(*kept.find("folder"), Json(cache().string()));
    EXPECT_THAT(tavix({"cache", "--clear"}).out, HasSubstr("Removed 3 segments"));
    EXPECT_EQ(*json({"cache", "--json"}).find("sizeBytes"), Json(0));
    EXPECT_EQ(number(json({"render", "film.json", "--json"}), "segments", "reused"), 0);
    json({"cache", "--clear", "--json"});
    json({"render", "film.json", "--no-cache", "--json"});
    EXPECT_EQ(*json({"cache", "--json"}).find("segments"), Json(0));
}

// A folder for what can be had again may be missing, read-only or a file; the film does not mind.
TEST_F(EngineTest, RendersWhereNothingCanBeKept) {
    write("film.json", threeScenes);
    write("blocked", "a file");
    ::setenv("XDG_CACHE_HOME", at("blocked").c_str(), 1);
    EXPECT_EQ(number(json({"render", "film.json", "-o", "a.mp4", "--json"}), "segments", "reused"), 0);
    EXPECT_EQ(readBytes(at("blocked")), "a file");
    ::unsetenv("XDG_CACHE_HOME");
    ::setenv("HOME", "", 1);
    EXPECT_EQ(tavix({"render", "film.json", "-o", "b.mp4"}).status, 0);
    EXPECT_EQ(readBytes(at("a.mp4")), readBytes(at("b.mp4")));
    EXPECT_EQ(tavix({"cache"}).status, 3);
}

TEST_F(EngineTest, MakesAFilmOnSeveralMachines) {
    write("film.json", threeScenes);
    const Json plan = json({"render", "film.json", "--plan", "--json"});
    EXPECT_EQ(plan.find("segments")->array()->size(), 3u);
    for (const char* segment : {"2", "0"})
        json({"render", "film.json", "--no-cache", "--segment", segment, "-o", "parts", "--json"});
    const Outcome early = tavix({"join", "film.json", "--from", "parts"});
    EXPECT_EQ(early.status, 3);
    EXPECT_THAT(early.err, HasSubstr("Segment 1 is not there"));
    json({"render", "film.json", "--segment", "1", "-o", "parts", "--json"});
    json({"join", "film.json", "--from", "parts", "-o", "joined.mp4", "--json"});
    const Outcome refused = tavix({"join", "film.json", "--from", "parts", "-o", "joined.gif"});
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(refused.err, HasSubstr("Segments make a video"));
    json({"render", "film.json", "-o", "whole.mp4", "--no-cache", "--json"});
    EXPECT_EQ(readBytes(at("joined.mp4")), readBytes(at("whole.mp4")));
    // Segments of an older state of the document are not taken for those of this one.
    std::string edited = threeScenes;
    edited.replace(edited.find("One"), 3, "Six");
    write("film.json", edited);
    EXPECT_THAT(tavix({"join", "film.json", "--from", "parts"}).err, HasSubstr("Segment 0 is not there"));
    EXPECT_EQ(tavix({"render", "film.json", "--segment", "3"}).status, 2);
}

TEST_F(EngineTest, GoesOnWhereItWasKilled) {
    std::string longer = threeScenes;
    for (auto at = longer.find("\"durationSec\": 1"); at != std::string::npos;
         at = longer.find("\"durationSec\": 1", at + 1))
        longer.replace(at, 16, "\"durationSec\": 40");
    write("film.json", longer);
    Command render(folder(), {tavixProgram(), "render", "film.json", "-o", "film.mp4", "--no-lint"});
    const auto kept = [&] {
        std::error_code absent;
        const std::filesystem::directory_iterator entries(cache(), absent);
        return absent ? 0 : std::distance(entries, std::filesystem::directory_iterator());
    };
    for (int i = 0; i < 4000 && kept() < 3; ++i) std::this_thread::sleep_for(std::chrono::milliseconds(5));
    render.send(SIGKILL);
    render.wait();
    const Json resumed = json({"render", "film.json", "-o", "film.mp4", "--json"});
    EXPECT_GE(number(resumed, "segments", "reused"), 2);
    json({"render", "film.json", "-o", "whole.mp4", "--no-cache", "--json"});
    EXPECT_EQ(readBytes(at("film.mp4")), readBytes(at("whole.mp4")));
}

TEST_F(EngineTest, VerifiesTheFinishedFilm) {
    write("film.json", threeScenes);
    for (const char* file : {"a.mp4", "a.webm", "a.mov"}) {
        SCOPED_TRACE(file);
        const Json result = json({"render", "film.json", "-o", file, "--verify", "--json"});
        EXPECT_EQ(number(result, "verified", "framesDecoded"), 30);
        EXPECT_GE(number(result, "verified", "framesCompared"), 3);
    }
    EXPECT_EQ(tavix({"render", "film.json", "-o", "a.gif", "--verify"}).status, 2);
}

TEST_F(EngineTest, KeepsToASize) {
    write("film.json", threeScenes);
    const Json usual = json({"render", "film.json", "-o", "a.mp4", "--json"});
    const Json small = json({"render", "film.json", "-o", "b.mp4", "--max-size", "150kB", "--json"});
    EXPECT_LE(small.find("sizeBytes")->doubleValue().value(), 150e3);
    EXPECT_EQ(*small.find("frames"), *usual.find("frames"));
    const Outcome none = tavix({"render", "film.json", "-o", "c.mp4", "--max-size", "1kB"});
    EXPECT_EQ(none.status, 3);
    EXPECT_THAT(none.err, HasSubstr("does not fit"));
    EXPECT_FALSE(std::filesystem::exists(at("c.mp4")));
}

TEST_F(EngineTest, RefusesWishesOfRatesThatContradict) {
    const struct {
        std::vector<std::string> words;
        const char* says;
    } cases[] = {
        {{"--quality", "80", "--rate", "2M"}, "contradict"},
        {{"--quality", "101"}, "100"},
        {{"--rate", "fast"}, "as in 8M"},
        {{"--max-size", "ten"}, "as in 10MB"},
        {{"--max-size", "1MB", "--rate", "2M"}, "chooses the rate"},
        {{"--codec", "prores4444", "--quality", "80"}, "ProRes"},
        {{"--codec", "h264", "-o", "a.webm"}, "not written to .webm"},
        {{"--codec", "vp9", "-o", "a.mov"}, ".mp4 and .webm"},
        {{"--format", "gif", "--rate", "2M"}, "GIF"},
    };
    for (const auto& c : cases) {
        std::vector<std::string> words{"render", "tiny.json"};
        words.insert(words.end(), c.words.begin(), c.words.end());
        const Outcome outcome = tavix(words);
        EXPECT_EQ(outcome.status, 2) << c.says << outcome.err;
        EXPECT_THAT(outcome.err, HasSubstr(c.says));
    }
}

// Scenes, each with a picture of its own of 17 MB once it is decoded: all of them at once would be 400 MB.
TEST_F(EngineTest, HasInMemoryWhatIsShownAndNotTheWholeFilm) {
    constexpr int scenes = 24, sidePx = 2048;
    std::string document = R"({"output": {"widthPx": 64, "heightPx": 64, "fps": 5}, "scenes": [)";
    for (int i = 0; i < scenes; ++i) {
        imaging::Bitmap picture(imaging::Size{sidePx, sidePx});
        for (int y = 0; y < sidePx; ++y)
            for (int x = 0; x < sidePx * 4; ++x)
                picture.view().row(y)[x] = x % 4 == 3 ? 255 : std::uint8_t(10 * i + x % 4);
        const std::string name = "p" + std::to_string(i) + ".png";
        media::writePng(at(name), picture.view());
        document += std::string(i > 0 ? "," : "") +
                    R"({"durationSec": 1, "layers": [{"kind": "image", "image": {"path": ")" + name +
                    "\"}}]}";
    }
    write("film.json", document + "]}");
    const Outcome outcome = tavix({"render", "film.json", "--no-cache", "--quiet"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_LT(outcome.peakKib, 260 * 1024);
}

// Examples with phones and clips, made one piece at a time however many cores there are. A tenth more than
// they take.
TEST_F(EngineTest, RendersItsExamplesInLittleMemory) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "Sanitizers take memory of their own.";
#endif
    const struct {
        std::vector<std::string> words;
        long mostMegabytes;
    } cases[] = {
        {{"render", "phone-tour", "--no-cache", "--fps", "3", "--memory", "300MB", "-o", "tour.mp4"}, 295},
        {{"still", "hero-phone", "--at", "4", "-o", "phone.png"}, 170},
        {{"still", "first-light", "--at", "8", "-o", "light.png"}, 175},
    };
    for (auto [words, mostMegabytes] : cases) {
        SCOPED_TRACE(words[0]);
        words[1] = testsupport::inSourceTree("Examples/" + words[1] + ".tavixcomp").string();
        const Outcome outcome = tavix(words);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_LT(outcome.peakKib, mostMegabytes * 1024);
    }
}

}   // namespace

}   // namespace tavix::engine::testing
