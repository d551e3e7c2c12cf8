#include "Engine/Tests/EngineTest.h"
#include "TavixCore/Support/TavixVersion.h"

#include <gmock/gmock.h>

namespace tavix::engine::testing {

namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

constexpr const char* verbNames[] = {
    "new", "lint", "render", "still", "sheet", "resolve", "pack", "schema", "presets"};

TEST_F(EngineTest, EveryVerbExplainsItselfWithAnExample) {
    for (const std::string verb : verbNames) {
        SCOPED_TRACE(verb);
        const Outcome asked = tavix({verb, "--help"});
        EXPECT_EQ(asked.status, 0);
        EXPECT_THAT(asked.out, HasSubstr("Example:\n  tavix " + verb + " "));
        EXPECT_EQ(tavix({"help", verb}).out, asked.out);
        EXPECT_THAT(tavix({"--help"}).out, HasSubstr("\n  " + verb + " "));
    }
}

TEST_F(EngineTest, PrintsItsBareVersion) {
    EXPECT_EQ(tavix({"--version"}).out, std::string(TavixVersion::current) + "\n");
}

TEST_F(EngineTest, RefusesWrongUseWithASentence) {
    const struct {
        std::vector<std::string> words;
        const char* sentence;
    } cases[] = {
        {{}, "A verb is missing"},
        {{"rnder"}, "There is no verb \"rnder\". Did you mean render?"},
        {{"render"}, "render needs a document"},
        {{"render", "tiny.json", "more"}, "\"more\" is one argument too many for render."},
        {{"render", "tiny.json", "--efort", "best"}, "render has no option --efort. Did you mean --effort?"},
        {{"render", "tiny.json", "--effort", "bst"}, "use fast, balanced or best. Did you mean best?"},
        {{"render", "tiny.json", "--fps"}, "--fps needs a value."},
        {{"render", "tiny.json", "--fps", "0"},
            "--fps takes frames a second from 1 to 240, as in 30, 29.97 or 30000/1001, not \"0\"."},
        {{"render", "tiny.json", "--fps", "30", "--format", "gif"}, "A GIF shows at most 18 frames a second"},
        {{"render", "tiny.json", "-o", "-"}, "The output cannot be standard output"},
        {{"render", "tiny.json", "-o", "/dev/stdout"}, "The output cannot be standard output"},
        {{"render", "tiny.json", "-o", "/dev/null"}, "\"/dev/null\" is no regular file"},
        {{"render", "tiny.json", "-o", "film"}, "\"film\" has no extension; call it \"film.mp4\"."},
        {{"render", "tiny.json", "-o", "a.avi"}, "use .mp4, .mov, .webm, .gif, .webp or .png."},
        {{"render", "tiny.json", "-o", "a.mp4", "--format", "gif"},
            "\"a.mp4\" does not go with --format gif"},
        {{"render", "tiny.json", "-o", "a.mov", "--container", "mp4"}, "does not go with --container mp4"},
        {{"render", "tiny.json", "-o", "a.mp4", "--codec", "prores4444"}, "does not go with ProRes"},
        {{"render", "tiny.json", "-o", "a.png"}, "number them, as in \"a/%05d.png\"."},
        {{"render", "tiny.json", "-o", "a.mp4", "--format", "png"},
            "\"a.mp4\" does not go with --format png"},
        {{"render", "tiny.json", "-o", "a/%05d.png", "--format", "gif"}, "does not go with --format gif"},
        {{"render", "tiny.json", "-o", "a-%s.png"}, "is one picture, and a film has many"},
        {{"render", "tiny.json", "-o", "a-%05d-%05d.png"}, "is one picture, and a film has many"},
        {{"render", "tiny.json", "-o", "a/%05d.png", "--max-size", "1MB"}, "a PNG takes none"},
        {{"render", "tiny.json", "-o", "a.webp", "--rate", "1M"}, "--rate is for video, and a WebP has none"},
        {{"render", "tiny.json", "--format", "webp", "--codec", "hevc"}, "a WebP has none"},
        {{"render", "tiny.json", "-o", "a.gif", "--codec", "hevc"}, "does not go with --codec"},
        {{"render", "tiny.json", "--container", "mp4", "--codec", "prores4444"}, "use --container mov."},
        {{"still", "tiny.json"}, "either --at SEC, or --scene ID"},
        {{"still", "tiny.json", "--at", "soon"}, "--at takes a number, not \"soon\"."},
        {{"still", "tiny.json", "--at", "-1"}, "the film runs from 0 to 1.00 s."},
        {{"still", "tiny.json", "--scene", "onyl"},
            "There is no scene \"onyl\"; the document has only. Did you mean \"only\"?"},
        {{"still", "tiny.json", "--at", "0", "-o", "a.jpg"}, "a still is a .png file."},
        {{"sheet", "tiny.json", "--columns", "99"}, "--columns takes a whole number from 1 to 48"},
        {{"schema", "layr"}, "There is no type \"layr\""},
        {{"presets", "efects"}, "Did you mean effects?"},
        {{"presets"}, "presets needs a family"},
        {{"presets", "effects", "glow"}, "presets effects are shown together; leave out \"glow\"."},
        {{"presets", "motions", "rise-op"}, "Did you mean rise-up?"},
        {{"presets", "motions", "--duration", "2"}, "Options say how one preset is played"},
        {{"presets", "motions", "reveal", "--spread", "2"}, "--spread goes with presets formations"},
        {{"presets", "motions", "reveal", "--intensity", "high"}, "is a number, as in 0.5, not \"high\"."},
        {{"presets", "kinetic", "slamm"}, "Did you mean slam?"},
        {{"presets", "kinetic", "slam", "--intensity", "hihg"}, "Did you mean high?"},
        {{"presets", "kinetic", "slam", "--duration", "2"},
            "--duration goes with presets motions or formations"},
        {{"presets", "motions", "reveal", "--speed", "snap"},
            "--speed goes with presets kinetic, not with motions"},
        {{"presets", "formations", "fanDek"}, "Did you mean fanDeck?"},
        {{"presets", "devices", "iphone-16-prow"}, "Did you mean iphone-16-pro?"},
        {{"presets", "devices", "iphone-16-pro", "--count", "2"}, "A device has no options"},
        {{"new", "hello"}, "call it \"hello.tavixcomp\"."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.sentence);
        const Outcome outcome = tavix(c.words);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_THAT(outcome.err, StartsWith("tavix: "));
        EXPECT_THAT(outcome.err, HasSubstr(c.sentence));
        EXPECT_THAT(outcome.out, IsEmpty());
    }
    EXPECT_EQ(names(), std::vector<std::string>{"tiny.json"});
}

TEST_F(EngineTest, NamesTheFileAndThePlaceOfADocumentsFault) {
    const struct {
        const char *document, *sentence;
    } cases[] = {
        {R"({"scenes": [{"layers": [{"kind": "x"}]}]})",
            "tavix: bad.json: scenes[0].layers[0].kind: Unknown layer kind \"x\" — must be one of text"},
        {R"({"scenes": [{"durationSec": "long"}]})",
            "tavix: bad.json: \"scenes[0].durationSec\" must be a number, but is text.\n"},
        {"{", "tavix: bad.json: The document is not valid JSON at line 1"},
        {R"({"output": {"widthPx": 0}})", "tavix: bad.json: output.widthPx: 0 pixels cannot be rendered"},
        {R"({"output": {"heightPx": 8193}})", "tavix: bad.json: output.heightPx: 8193 pixels"},
        {R"({"output": {"fps": 100000}})", "tavix: bad.json: output.fps: 100000 frames a second"},
        {R"({"scenes": [{"durationSec": 1e9}]})", "tavix: bad.json: scenes: The film would be longer than"},
        {R"({"scenes": [{"durationSec": 1e308}, {"durationSec": 1e308}]})",
            "tavix: bad.json: scenes: The film"},
        {R"({"scenes": [{"durationSec": 0.001}]})", "tavix: bad.json: scenes: The film would have no frames"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.document);
        write("bad.json", c.document);
        const Outcome outcome = tavix({"render", "bad.json"});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.err, StartsWith(c.sentence));
        const Outcome machine = tavix({"render", "bad.json", "--json"});
        const Json error = *parseJson(machine.out).find("error");
        EXPECT_EQ(*error.find("status"), Json(1));
        EXPECT_EQ(*error.find("file"), Json("bad.json"));
    }
}

TEST_F(EngineTest, TellsInputAndOutputThatFail) {
    write("empty.tavixcomp/notes.txt", "");
    const struct {
        std::vector<std::string> words;
        const char* sentence;
    } cases[] = {
        {{"resolve", "missing.json"}, "Cannot read \"missing.json\": No such file or directory."},
        {{"resolve", "empty.tavixcomp"},
            "\"empty.tavixcomp\" is not a .tavixcomp bundle with a composition.json."},
        {{"render", "tiny.json", "-o", "tiny.json/film.mp4"}, "Cannot write \"tiny.json/film.mp4\""},
        {{"new", "empty.tavixcomp"}, "\"empty.tavixcomp\" is there already and is left alone"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.sentence);
        const Outcome outcome = tavix(c.words);
        EXPECT_EQ(outcome.status, 3);
        EXPECT_THAT(outcome.err, HasSubstr(c.sentence));
    }
    const Outcome full = runIn(folder(), {"sh", "-c", tavixProgram() + " schema > /dev/full"});
    EXPECT_EQ(full.status, 3);
    EXPECT_THAT(full.err, HasSubstr("Cannot write to standard output"));
}

TEST_F(EngineTest, DrawsNoBarAndNoColourIntoAFile) {
    for (const Outcome& outcome : {tavix({"render", "tiny.json"}), tavix({"rnder"})})
        for (const std::string& said : {outcome.out, outcome.err})
            EXPECT_THAT(said, ::testing::AllOf(Not(HasSubstr("\033")), Not(HasSubstr("\r"))));
}

}   // namespace

}   // namespace tavix::engine::testing
