// What the work on a document finds: the same records in the text for a person and in the JSON for a machine.
#include "Engine/Tests/EngineTest.h"

#include "TavixCore/Support/JsonWriter.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace tavix::engine::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

std::string textOf(const Json& finding, const char* key) {
    const Json* value = finding.find(key);
    return value ? value->stringValue().value_or("") : "";
}

class WorkFindings : public EngineTest {
protected:
    void writeLayers(const std::string& name, const std::string& layers, const std::string& more = "") {
        write(name, R"({"output": {"widthPx": 64, "heightPx": 96, "fps": 10}, )" + more +
                        R"("scenes": [{"durationSec": 0.2, "layers": [)" + layers + "]}]}");
    }
    // With the resources of the program in a folder of the test.
    Outcome withResources(std::vector<std::string> words) const {
        words.insert(words.begin(), {"env", "TAVIX_RESOURCES=" + at("resources").string(), tavixProgram()});
        return runIn(folder(), words);
    }
    static JsonArray warningsOf(const Outcome& outcome) {
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return *parseJson(outcome.out).find("warnings")->array();
    }
};

constexpr const char* phone = R"({"kind": "device", "device": {"scene3D": {},
    "screen": {"kind": "still", "path": "screen.png"}, "frameID": "iphone-16-pro"}})";

TEST_F(WorkFindings, AreTheSameRecordsInTextAndInJson) {
    tavix({"still", "tiny.json", "--at", "0", "-o", "screen.png"});
    write("letter.mov", "This is a letter.");
    const struct {
        const char *layers, *more;
        const char *code, *path, *file, *message;
    } cases[] = {
        {R"({"kind": "image", "image": {"path": "lost.png"}})", "", "picture-missing", "scenes[0].layers[0]",
            "lost.png", "The image "},
        {"", R"("background": {"kind": "image", "image": {"path": "lost.png"}}, )", "picture-missing",
            "background", "lost.png", "The image "},
        {R"({"kind": "video", "video": {"path": "letter.mov"}})", "", "clip-missing", "scenes[0].layers[0]",
            "letter.mov", "The clip "},
        {R"({"kind": "text", "text": {"text": "A"}}, {"kind": "text", "text": {"text": "A", "font": "No Such"}})",
            "", "font-missing", "scenes[0].layers[1]", "", "The font \"No Such\" is not on this machine; "},
        {phone, "", "phone-missing", "scenes[0].layers[0]", "",
            "scene3D requested but the 3D device pass is unavailable (no model/GPU) — rendering the flat "
            "mockup."},
    };
    std::filesystem::create_directories(at("resources"));
    for (const auto& c : cases) {
        SCOPED_TRACE(c.layers);
        writeLayers("film.json", c.layers, c.more);
        for (const std::string verb : {"still", "sheet"}) {
            std::vector<std::string> words{verb, "film.json", "-o", verb + ".png"};
            if (verb == "still") words.insert(words.end(), {"--at", "0"});
            const Outcome told = withResources(words);
            EXPECT_EQ(told.status, 0) << told.err;
            EXPECT_THAT(told.out, HasSubstr(std::string("⚠️ ") + c.message));
            words.push_back("--json");
            const JsonArray warnings = warningsOf(withResources(words));
            const auto found = std::ranges::find(
                warnings, std::string(c.code), [](const Json& w) { return textOf(w, "code"); });
            ASSERT_NE(found, warnings.end()) << writeJson(warnings);
            EXPECT_EQ(textOf(*found, "level"), "warning");
            EXPECT_EQ(textOf(*found, "path"), c.path);
            EXPECT_TRUE(textOf(*found, "file").ends_with(c.file)) << textOf(*found, "file");
            EXPECT_EQ(textOf(*found, "message").find(c.message), 0u) << textOf(*found, "message");
            EXPECT_THAT(told.out, HasSubstr("⚠️ " + textOf(*found, "message"))) << "the same sentence";
        }
    }
}

TEST_F(WorkFindings, TellOfAPhoneThatIsBroken) {
    tavix({"still", "tiny.json", "--at", "0", "-o", "screen.png"});
    writeLayers("film.json", phone);
    write("resources/models/device-phone.glb", "this is no model");
    const std::vector<std::string> words{"still", "film.json", "--at", "0", "-o", "still.png", "--json"};
    const JsonArray warnings = warningsOf(withResources(words));
    const auto found =
        std::ranges::find(warnings, "phone-not-built", [](const Json& w) { return textOf(w, "code"); });
    ASSERT_NE(found, warnings.end()) << writeJson(warnings);
    EXPECT_EQ(textOf(*found, "path"), "scenes[0].layers[0]");
    EXPECT_THAT(textOf(*found, "message"), HasSubstr("The device scene failed to build ("));
}

TEST_F(WorkFindings, NameTheCueThatIsNotHeardAndWhatBecameOfTheSound) {
    const std::string cues = R"("audio": {"music": {"path": "gone.mp3"}, "cues": [
        {"atSec": 0.1, "sound": "ding"}, {"atSec": 0, "sound": "lost.mp3"}]}, )";
    writeLayers("film.json", "", cues);
    const Json result = json({"render", "film.json", "--json"});
    const JsonArray warnings = *result.find("warnings")->array();
    ASSERT_EQ(warnings.size(), 2u) << writeJson(warnings);
    EXPECT_EQ(textOf(warnings[0], "path"), "audio.music");
    EXPECT_EQ(textOf(warnings[1], "path"), "audio.cues[1]")
        << "by its place in the document, not by its time";
    for (const Json& warning : warnings) EXPECT_EQ(textOf(warning, "code"), "sound-missing");
    ASSERT_EQ(result.find("notes")->array()->size(), 1u) << "the picture's own file is no news";
    EXPECT_EQ(textOf(result.find("notes")->array()->front(), "code"), "sound-added");
}

TEST_F(WorkFindings, NameTheLayerThatTheAuthorWrote) {
    writeLayers(
        "film.json", R"({"kind": "shape", "shape": {"shape": "ellipse"}}, {"kind": "device", "device": {
        "choreographyPreset": {"preset": "fanDeck", "count": 3},
        "screen": {"kind": "still", "path": "gone.png"}}})");
    const JsonArray warnings =
        warningsOf(tavix({"still", "film.json", "--at", "0", "-o", "still.png", "--json"}));
    ASSERT_EQ(warnings.size(), 1u) << writeJson(warnings);
    EXPECT_EQ(textOf(warnings[0], "path"), "scenes[0].layers[1]");
}

TEST_F(WorkFindings, ComeWithTheErrorThatEndsTheWork) {
    write(
        "reel/film.json", R"({"output": {"widthPx": 64, "heightPx": 96, "fps": 10}, "scenes": [{"durationSec":
        1, "layers": [{"kind": "image", "image": {"path": "../screen.png"}}]}]})");
    write("screen.png", "no picture");
    const Outcome outcome = tavix({"pack", "reel/film.json", "--allow-outside", "--json"});
    EXPECT_NE(outcome.status, 0);
    const Json told = parseJson(outcome.out);
    EXPECT_EQ(textOf(*told.find("error"), "level"), "error");
    EXPECT_EQ(textOf(*told.find("error"), "code"), "failed");
    ASSERT_EQ(told.find("warnings")->array()->size(), 1u);
    EXPECT_EQ(textOf(told.find("warnings")->array()->front(), "code"), "packed-from-outside");
}

TEST_F(WorkFindings, KeepTheListOfLintWhole) {
    write("film.json", R"({"scenes": [{"durationSec": 1, "layers": []}], "lint": {"mute": ["film-long"]},
        "output": {"fps": 0}})");
    const Outcome outcome = tavix({"lint", "film.json", "--frames", "--json"});
    EXPECT_EQ(outcome.status, 1);
    const JsonArray findings = *parseJson(outcome.out).array();
    EXPECT_EQ(textOf(findings.back(), "code"), "frames-not-seen") << "what was left out is told";
    EXPECT_THAT(tavix({"lint", "film.json", "--frames"}).out, Not(HasSubstr("not looked at")));
}

}   // namespace
}   // namespace tavix::engine::testing
