#include "Engine/Tests/EngineTest.h"
#include "TavixPlatform/Media/AudioReader.h"
#include "TestSupport/SourceTree.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <csignal>
#include <thread>

namespace tavix::engine::testing {

namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

double number(const Json& json, const char* key) { return *json.find(key)->doubleValue(); }

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
        {{"-o", "a.webm"}, "a.webm", "vp9,64,96,10"},
        {{"--codec", "vp9"}, "tiny.mp4", "vp9,64,96,10"},
        {{"-o", "b.webm", "--codec", "av1", "--quality", "50"}, "b.webm", "av1,64,96,10"},
        {{"--codec", "av1", "--rate", "300k"}, "tiny.mp4", "av1,64,96,10"},
        {{"--format", "gif"}, "tiny.gif", "gif,64,96,10"},
        {{"-o", "slow.gif", "--fps", "5"}, "slow.gif", "gif,64,96,5"},
        {{"--format", "png"}, "tiny-frames/%05d.png", "png,64,96,10"},
        {{"-o", "shots/a-%d.png", "--fps", "5"}, "shots/a-%d.png", "png,64,96,5"},
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

// Told before it is made, and kept to; what fits is made as it is.
TEST_F(EngineTest, AnimationsFitIntoTheSizeThatIsGiven) {
    for (const std::string file : {"a.gif", "a.webp"}) {
        SCOPED_TRACE(file);
        const std::vector<std::string> words{"render", "tiny.json", "--resolution", "1080p", "-o", file};
        const auto made = [&](std::int64_t mostBytes) {
            std::vector<std::string> limited = words;
            limited.insert(limited.end(), {"--max-size", std::to_string(mostBytes / 1000) + "kB", "--json"});
            return json(limited);
        };
        const std::int64_t whole = std::int64_t(number(made(100'000'000), "sizeBytes"));
        EXPECT_EQ(number(made(100'000'000), "widthPx"), 720);
        const std::int64_t limit = whole / 2000 * 1000;
        const Json half = made(limit);
        EXPECT_LE(number(half, "sizeBytes"), double(limit));
        EXPECT_GT(number(half, "sizeBytes"), double(limit) / 3) << "and no less than it must";
        EXPECT_EQ(
            std::int64_t(std::filesystem::file_size(at(file))), std::int64_t(number(half, "sizeBytes")));

        const Outcome told = tavix({"render", "tiny.json", "--resolution", "1080p", "-o", file, "--max-size",
            std::to_string(limit / 1000) + "kB"});
        EXPECT_THAT(told.out, HasSubstr("• About "));
        const Outcome refused = tavix({"render", "tiny.json", "-o", file, "--max-size", "200"});
        EXPECT_EQ(refused.status, 3);
        EXPECT_THAT(refused.err, HasSubstr("allow it more bytes"));
        EXPECT_TRUE(std::filesystem::exists(at(file))) << "the film of before stays";
        EXPECT_THAT(names(), Not(Contains(StartsWith(".tavix"))));
    }
}

TEST_F(EngineTest, PicturesTakeTheirNamesWhenAllOfThemAreThere) {
    write("shots/00007.png", "of an earlier film");
    write("shots/00011.png", "of an earlier, longer film");
    const Outcome outcome = tavix({"render", "tiny.json", "-o", "shots/%05d.png"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("1 picture past the last one"));
    for (int i = 1; i <= 10; ++i) {
        char name[32];
        std::snprintf(name, sizeof name, "shots/%05d.png", i);
        EXPECT_EQ(probed(at(name)), "png,64,96,1") << name;
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(at("shots")), {}), 11);

    // A picture that the film itself shows is never written over, and nothing else is either.
    std::filesystem::copy_file(at("shots/00003.png"), at("2.png"));
    std::string document(tinyDocument);
    const std::string layers = "\"layers\": [";
    document.insert(
        document.find(layers) + layers.size(), R"({"kind": "image", "image": {"path": "2.png"}},)");
    write("own.json", document);
    const Outcome refused = tavix({"render", "own.json", "-o", "%d.png"});
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(refused.err, HasSubstr("\"2.png\" is used by the document itself"));
    EXPECT_FALSE(std::filesystem::exists(at("1.png")));
}

// As the film says it, however the rate was written.
TEST_F(EngineTest, RatesOfTelevisionAreWhatTheyAreCalled) {
    const struct {
        const char *asked, *rate;
    } cases[] = {{"23.976", "24000/1001"}, {"29.97", "30000/1001"}, {"30000/1001", "30000/1001"},
        {"60000/1001", "60000/1001"}, {"7", "7/1"}, {"12.5", "25/2"}, {"240", "240/1"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.asked);
        const Json made = json({"render", "tiny.json", "-o", "a.mp4", "--fps", c.asked, "--json"});
        const Outcome probe =
            runIn(folder(), {"ffprobe", "-v", "error", "-select_streams", "v:0", "-show_entries",
                                "stream=avg_frame_rate", "-of", "csv=p=0", "a.mp4"});
        EXPECT_EQ(probe.out, std::string(c.rate) + "\n");
        EXPECT_NEAR(*made.find("seconds")->doubleValue(), 1, 0.08);
    }
    write("tv.json",
        R"({"output": {"widthPx": 64, "heightPx": 64, "fps": "24000/1001"}, "scenes": [{"durationSec": 1}]})");
    EXPECT_EQ(*json({"render", "tv.json", "--json"}).find("fps"), Json("24000/1001"));
    EXPECT_THAT(tavix({"render", "tv.json"}).out, StartsWith("• 64×64 @ 23.976fps — "));
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

// Scenes of several phones, a clip in one that moves, and a screen that has gone dark.
TEST_F(EngineTest, RendersTheTourOfPhones) {
    const std::string tour = testsupport::inSourceTree("Examples/phone-tour.tavixcomp").string();
    std::vector<std::string> pictures;
    for (const char* atSec : {"1.4", "7.6", "11.2", "15.6"}) {
        const std::string name = std::string("at-") + atSec + ".png";
        const Json still = json({"still", tour, "--at", atSec, "-o", name, "--json"});
        EXPECT_TRUE(still.find("warnings")->array()->empty());
        pictures.push_back(readBytes(at(name)));
    }
    // A clip is at its place in time whichever frame is asked for first.
    EXPECT_EQ(
        json({"still", tour, "--at", "1.4", "-o", "again.png", "--json"}).find("warnings")->array()->size(),
        0u);
    EXPECT_EQ(readBytes(at("again.png")), pictures.front());
    EXPECT_NE(pictures[0], pictures[1]);
}

TEST_F(EngineTest, WarnsOfAnAssetThatIsMissing) {
    write(
        "poor.json", R"({"output": {"widthPx": 64, "heightPx": 96, "fps": 10}, "scenes": [{"durationSec": 0.2,
        "layers": [{"kind": "image", "image": {"path": "lost.png"}}]}]})");
    const Outcome outcome = tavix({"render", "poor.json", "--json"});
    EXPECT_EQ(outcome.status, 0);
    const JsonArray warnings = *parseJson(outcome.out).find("warnings")->array();
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_THAT(messageOf(warnings.front()), HasSubstr("lost.png"));
    EXPECT_THAT(outcome.err, HasSubstr("tavix: warning: "));
}

// The tiny document with a sound at 0.5 s.
std::string withSound(const std::string& sound) {
    std::string document = tinyDocument;
    return document.insert(1, R"("audio": {"cues": [{"atSec": 0.5, "sound": ")" + sound + R"("}]}, )");
}

// What ffprobe says of a film's packets: times, lengths and a hash of the bytes.
std::string packetsOf(const std::filesystem::path& film) {
    const Outcome outcome = runIn(film.parent_path(),
        {"ffprobe", "-v", "error", "-select_streams", "v", "-show_data_hash", "md5", "-show_entries",
            "packet=pts,dts,duration,size,flags,data_hash", "-of", "csv", film.string()});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    return outcome.out;
}

TEST_F(EngineTest, PutsSoundUnderThePictureOfTheSilentFilm) {
    write("loud.json", withSound("ding"));
    for (const std::string name : {"a.mp4", "a.mov"}) {
        SCOPED_TRACE(name);
        tavix({"render", "tiny.json", "-o", "silent-" + name});
        const Outcome outcome = tavix({"render", "loud.json", "-o", name});
        EXPECT_EQ(outcome.out, "• 64×96 @ 10fps — 1 scenes, 1.0s (10 frames)\n  …0%\n"
                               "• muxed music/cues under the visual track\n✓ Wrote " +
                                   name + "\n");
        EXPECT_THAT(outcome.err, IsEmpty());
        EXPECT_EQ(packetsOf(at(name)), packetsOf(at("silent-" + name)));
        media::AudioReader reader(at(name), {48000, 1});
        std::vector<float> sound(50'000);
        ASSERT_EQ(reader.read(sound), 48'000U);   // as long as the picture
        const auto isLoud = [](float sample) { return std::abs(sample) > 0.02F; };
        const auto first = std::find_if(sound.begin(), sound.end(), isLoud) - sound.begin();
        EXPECT_NEAR(double(first), 24'000, 1500);
    }
    tavix({"render", "loud.json", "-o", "b.mp4"});
    EXPECT_EQ(readBytes(at("a.mp4")), readBytes(at("b.mp4")));
    EXPECT_THAT(names(), Not(Contains(StartsWith(".tavix"))));
}

TEST_F(EngineTest, RendersASilentFilmWhereASoundIsMissing) {
    write("loud.json", withSound("lost.mp3"));
    const Outcome outcome = tavix({"render", "loud.json"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("lost.mp3\". There is no such file.\n"));
    EXPECT_THAT(outcome.out, HasSubstr("• no playable audio — output stays silent\n✓ Wrote loud.mp4\n"));
    EXPECT_THAT(json({"render", "loud.json", "--json"}).find("warnings")->array()->size(), 1u);
    tavix({"render", "tiny.json"});
    EXPECT_EQ(readBytes(at("loud.mp4")), readBytes(at("tiny.mp4")));
}

// A long film, so that there is time to stop it.
class InterruptedRender : public EngineTest, public ::testing::WithParamInterface<int> {
protected:
    // Once the file that it writes has begun.
    void stop(const std::string& document, const std::string& written) {
        write("long.json", document);
        write("film.mp4", "the older film");
        Command render(folder(), {tavixProgram(), "render", "long.json", "-o", "film.mp4", "--no-lint"});
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        const auto hasBegun = [&] {
            std::error_code notThere;
            return std::filesystem::file_size(at(written), notThere) > 0 && !notThere;
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
};

TEST_P(InterruptedRender, LeavesTheOlderFilmAlone) {
    const auto lengthened = [](std::string document) {
        return document.replace(document.find("\"durationSec\": 1,"), 17, "\"durationSec\": 9000,");
    };
    stop(lengthened(tinyDocument), ".tavix-partial-film.mp4/.tavix-piece-0-film.mp4");
    stop(lengthened(withSound("ding")), ".tavix-partial-film.mp4/.tavix-piece-1-film.mp4");
}

INSTANTIATE_TEST_SUITE_P(Signals, InterruptedRender, ::testing::Values(SIGINT, SIGTERM, SIGHUP));

TEST_F(EngineTest, LeavesTheOlderFileWhenTheDiskIsFull) {
    write("loud.json", withSound("ding"));
    const struct {
        std::string document, name;
    } cases[] = {{"tiny.json", "film.mp4"}, {"tiny.json", "film.gif"}, {"loud.json", "film.mp4"}};
    for (const auto& [document, name] : cases) {
        SCOPED_TRACE(document + " to " + name);
        write(name, "the older film");
        // A limit on the size of files stands for the end of the disk.
        const Outcome outcome = runIn(folder(), {"bash", "-c",
                                                    "trap '' XFSZ; ulimit -f 1; exec " + tavixProgram() +
                                                        " render --no-lint " + document + " -o " + name});
        EXPECT_EQ(outcome.status, 3) << outcome.out;
        EXPECT_THAT(outcome.err, StartsWith("tavix: "));
        EXPECT_THAT(outcome.err, Not(HasSubstr(".tavix-")));
        EXPECT_EQ(readBytes(at(name)), "the older film");
        EXPECT_THAT(names(), Not(Contains(StartsWith(".tavix"))));
    }
}

}   // namespace

}   // namespace tavix::engine::testing
