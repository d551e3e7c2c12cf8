#include "Engine/Tests/EngineTest.h"

#include <gmock/gmock.h>

#include <chrono>
#include <csignal>
#include <thread>

namespace tavix::engine::testing {

namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

// What ffprobe counts of a film, as in "h264,64,96,10".
std::string probed(const std::filesystem::path& film) {
    const Outcome outcome = runIn(film.parent_path(),
        {"ffprobe", "-v", "error", "-count_frames", "-select_streams", "v:0", "-show_entries",
            "stream=codec_name,width,height,nb_read_frames", "-of", "csv=p=0", film.string()});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    return outcome.out.substr(0, outcome.out.find('\n'));
}

TEST_F(EngineTest, WritesEveryKindOfFilm) {
    const struct {
        std::vector<std::string> options;
        const char *file, *is;
    } cases[] = {
        {{}, "tiny.mp4", "h264,64,96,10"},
        {{"-o", "a.mov"}, "a.mov", "h264,64,96,10"},
        {{"-o", "deep/er/a.mp4", "--codec", "HEVC"}, "deep/er/a.mp4", "hevc,64,96,10"},
        {{"--codec", "prores422hq"}, "tiny.mov", "prores,64,96,10"},
        {{"--format", "gif"}, "tiny.gif", "gif,64,96,10"},
        {{"-o", "slow.gif", "--fps", "5"}, "slow.gif", "gif,64,96,5"},
        {{"-o", "twice.mp4", "--fps", "20", "--effort", "best"}, "twice.mp4", "h264,64,96,20"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        std::vector<std::string> words{"render", "tiny.json"};
        words.insert(words.end(), c.options.begin(), c.options.end());
        const Outcome outcome = tavix(words);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(outcome.out.substr(outcome.out.rfind("✓")), "✓ Wrote " + std::string(c.file) + "\n");
        EXPECT_EQ(probed(at(c.file)), c.is);
    }
}

TEST_F(EngineTest, LogsTheRenderForAPersonOnly) {
    EXPECT_EQ(tavix({"render", "tiny.json"}).out,
        "• 64×96 @ 10fps — 1 scenes, 1.0s (10 frames)\n  …0%\n✓ Wrote tiny.mp4\n");
    EXPECT_THAT(tavix({"render", "tiny.json", "--quiet"}).out, IsEmpty());
}

TEST_F(EngineTest, TellsAMachineWhatItMade) {
    const Json result = json({"render", "tiny.json", "--json"});
    EXPECT_EQ(*result.find("output"), Json("tiny.mp4"));
    EXPECT_EQ(*result.find("frames"), Json(10));
    EXPECT_EQ(*result.find("seconds"), Json(1));
    EXPECT_EQ(*result.find("sizeBytes"), Json(std::filesystem::file_size(at("tiny.mp4"))));
}

TEST_F(EngineTest, RendersTheSameBytesTwice) {
    for (const std::string extension : {".mp4", ".mov", ".gif"}) {
        SCOPED_TRACE(extension);
        tavix({"render", "tiny.json", "-o", "a" + extension});
        tavix({"render", "tiny.json", "-o", "b" + extension});
        EXPECT_EQ(readBytes(at("a" + extension)), readBytes(at("b" + extension)));
    }
}

TEST_F(EngineTest, FindsThePicturesOfADocumentBesideIt) {
    json({"still", "tiny.json", "--at", "0", "-o", "film.tavixcomp/assets/dot.png", "--json"});
    const std::string picture = R"({"kind": "image", "image": {"path": "assets/dot.png"}})";
    const std::string head = R"({"output": {"widthPx": 64, "heightPx": 96, "fps": 10}, "background": )";
    write("film.tavixcomp/composition.json", head + picture + R"(, "scenes": [{"durationSec": 1}]})");
    json({"still", "film.tavixcomp", "--at", "0", "-o", "whole.png", "--json"});
    json({"still", "film.tavixcomp/composition.json", "--at", "0", "-o", "part.png", "--json"});
    EXPECT_EQ(readBytes(at("whole.png")), readBytes(at("film.tavixcomp/assets/dot.png")));
    EXPECT_EQ(readBytes(at("part.png")), readBytes(at("whole.png")));
}

TEST_F(EngineTest, NamesAStillByTheFilmOrByTheScene) {
    json({"still", "tiny.json", "--at", "0.4", "-o", "a.png", "--json"});
    json({"still", "tiny.json", "--scene", "only", "--local", "0.4", "-o", "b.png", "--json"});
    json({"still", "tiny.json", "--at", "0.9", "-o", "c.png", "--json"});
    EXPECT_EQ(readBytes(at("a.png")), readBytes(at("b.png")));
    EXPECT_NE(readBytes(at("a.png")), readBytes(at("c.png")));
}

TEST_F(EngineTest, WarnsOfAnAssetThatIsMissing) {
    write(
        "poor.json", R"({"output": {"widthPx": 64, "heightPx": 96, "fps": 10}, "scenes": [{"durationSec": 0.2,
        "layers": [{"kind": "image", "image": {"path": "lost.png"}}]}]})");
    const Outcome outcome = tavix({"render", "poor.json", "--json"});
    EXPECT_EQ(outcome.status, 0);
    const JsonArray warnings = *parseJson(outcome.out).find("warnings")->array();
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_THAT(*warnings.front().text(), HasSubstr("lost.png"));
    EXPECT_THAT(outcome.err, HasSubstr("tavix: warning: "));
}

TEST_F(EngineTest, WarnsOfWhatIsLeftOut) {
    write(
        "film.json", R"({"output": {"widthPx": 64, "heightPx": 96, "fps": 10}, "scenes": [{"durationSec": 1}],
        "audio": {"music": {"path": "song.mp3"}}})");
    const Outcome outcome = tavix({"render", "film.json"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.err, HasSubstr("the film is silent."));
    EXPECT_THAT(tavix({"render", "tiny.json"}).err, IsEmpty());
}

// A long film, so that there is time to stop it.
class InterruptedRender : public EngineTest, public ::testing::WithParamInterface<int> {};

TEST_P(InterruptedRender, LeavesTheOlderFilmAlone) {
    std::string document = tinyDocument;
    document.replace(document.find("\"durationSec\": 1,"), 17, "\"durationSec\": 9000,");
    write("long.json", document);
    write("film.mp4", "the older film");
    Command render(folder(), {tavixProgram(), "render", "long.json", "-o", "film.mp4", "--no-lint"});
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    const auto hasBegun = [&] {
        std::error_code notThere;
        return std::filesystem::file_size(at(".tavix-partial-film.mp4"), notThere) > 0 && !notThere;
    };
    while (!hasBegun() && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    ASSERT_TRUE(hasBegun());
    render.send(GetParam());
    const Outcome outcome = render.wait();
    EXPECT_EQ(outcome.status, 128 + GetParam());
    EXPECT_EQ(outcome.err, "tavix: Stopped; nothing was written.\n");
    EXPECT_EQ(readBytes(at("film.mp4")), "the older film");
    EXPECT_THAT(names(), Not(Contains(StartsWith(".tavix"))));
}

INSTANTIATE_TEST_SUITE_P(Signals, InterruptedRender, ::testing::Values(SIGINT, SIGTERM, SIGHUP));

TEST_F(EngineTest, LeavesTheOlderFileWhenTheDiskIsFull) {
    for (const std::string name : {"film.mp4", "film.gif"}) {
        SCOPED_TRACE(name);
        write(name, "the older film");
        // A limit on the size of files stands for the end of the disk.
        const Outcome outcome = runIn(folder(), {"bash", "-c",
                                                    "trap '' XFSZ; ulimit -f 1; exec " + tavixProgram() +
                                                        " render --no-lint tiny.json -o " + name});
        EXPECT_EQ(outcome.status, 3) << outcome.out;
        EXPECT_THAT(outcome.err, StartsWith("tavix: "));
        EXPECT_THAT(outcome.err, Not(HasSubstr(".tavix-partial")));
        EXPECT_EQ(readBytes(at(name)), "the older film");
        EXPECT_THAT(names(), Not(Contains(StartsWith(".tavix"))));
    }
}

}   // namespace

}   // namespace tavix::engine::testing
