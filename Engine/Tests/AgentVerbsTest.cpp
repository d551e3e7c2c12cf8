// The verbs that agents work with: read, edit, diff, check, describe.
#include "Engine/Tests/EngineTest.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace tavix::engine::testing {
namespace {

using ::testing::HasSubstr;

// Laid out by hand, with numbers as a person writes them.
constexpr const char* handWritten = R"({
   "output": { "widthPx": 640, "heightPx": 360, "fps": 30 },
   "scenes": [
      { "id": "one", "durationSec": 2.50, "layers": [
         { "kind": "shape", "opcity": 0.5, "position": { "x": 320, "y": 180 } },
         { "kind": "text", "position": { "x": 320, "y": 180 }, "text": { "text": "Hello", "sizeFraction": 0.1 } }
      ] }
   ]
}
)";

class AgentVerbs : public EngineTest {
protected:
    AgentVerbs() { write("film.json", handWritten); }
    std::string film() const { return readBytes(at("film.json")); }
    std::string revision() const { return *json({"read", "film.json", "--json"}).find("revision")->text(); }
};

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    return text.replace(text.find(from), from.size(), to);
}

TEST_F(AgentVerbs, EditLeavesEveryOtherByte) {
    const std::string before = film();
    write("patch.json", R"([{"op": "replace", "path": "/scenes/0/layers/1/text/text", "value": "Bye"}])");
    const Json told =
        json({"edit", "film.json", "--patch", "patch.json", "--if-revision", revision(), "--json"});
    EXPECT_EQ(film(), replaced(before, "Hello", "Bye"));
    EXPECT_EQ(*told.find("revision")->text(), revision());
    EXPECT_THAT(*told.find("difference")->text(), HasSubstr("-"));
    json({"edit", "film.json", "--pointer", "/scenes/0/layers/1/text/text", "--value", "Hello", "--json"});
    EXPECT_EQ(film(), before);
}

TEST_F(AgentVerbs, LintAndCheckTellAFindingInOneForm) {
    const Json checked = parseJson(tavix({"check", "film.json", "--quick", "--json"}).out);
    const Json linted = parseJson(tavix({"lint", "film.json", "--footage", "--json"}).out);
    const JsonArray& findings = *checked.find("findings")->array();
    ASSERT_FALSE(findings.empty());
    EXPECT_EQ(linted.array()->size(), findings.size());
    bool hasRepair = false;
    for (const Json& finding : findings) {
        EXPECT_THAT(*linted.array(), ::testing::Contains(finding)) << *finding.find("message")->text();
        hasRepair = hasRepair || finding.find("repair");
    }
    EXPECT_TRUE(hasRepair);   // of "opcity"
}

TEST_F(AgentVerbs, CaptionsGoOutAndComeIn) {
    EXPECT_EQ(tavix({"captions", "film.json"}).out, "1\n00:00:00,000 --> 00:00:02,500\nHello\n");
    write("in.vtt", "WEBVTT\n\n00:00.500 --> 00:01.250 line:0\n<b>Hi</b> there\n");
    const Json taken =
        json({"captions", "film.json", "--import", "in.vtt", "--if-revision", revision(), "--json"});
    EXPECT_EQ(taken.find("warnings")->array()->size(), 1u);
    EXPECT_EQ(*taken.find("revision")->text(), revision());
    const Outcome out = tavix({"captions", "film.json", "-o", "out.srt"});
    EXPECT_EQ(out.status, 0);
    EXPECT_THAT(readBytes(at("out.srt")), HasSubstr("2\n00:00:00,500 --> 00:00:01,250\nHi there\n"));
    EXPECT_EQ(tavix({"captions", "film.json", "--import", "in.vtt", "--if-revision", "x"}).status, 3);
    EXPECT_THAT(tavix({"captions", "film.json", "-o", "out.txt"}).err, HasSubstr("use .srt or .vtt."));
    EXPECT_THAT(tavix({"captions", "film.json", "--import", "film.json"}).err,
        HasSubstr("\"film.json\" cannot be taken in. There are no captions in it"));
    const Json cuts = json({"timeline", "film.json", "-o", "film.otio", "--json"});
    EXPECT_EQ(*cuts.find("output")->text(), "film.otio");
    EXPECT_EQ(parseJson(readBytes(at("film.otio"))).find("OTIO_SCHEMA")->stringValue(), "Timeline.1");
}

TEST_F(AgentVerbs, EditIsWholeOrNothing) {
    const std::string before = film();
    const struct {
        std::vector<std::string> arguments;
        int status;
        const char* says;
    } cases[] = {
        {{"--patch", R"([{"op": "replace", "path": "/scenes/0/id", "value": "two"},
            {"op": "remove", "path": "/nothing"}])"},
            2, "\"/nothing\" does not exist"},
        {{"--patch", R"([{"op": "replace", "path": "/scenes", "value": 7}])"}, 1, "scenes"},
        {{"--pointer", "/scenes/0/id", "--value", "two", "--if-revision", "0123"}, 3, "its revision is"},
        {{"--patch", "[{]"}, 3, "not valid JSON"},
        {{"--value", "two"}, 2, "Say what to change"},
    };
    for (const auto& c : cases) {
        std::vector<std::string> words{"edit", "film.json"};
        words.insert(words.end(), c.arguments.begin(), c.arguments.end());
        const Outcome outcome = tavix(words);
        EXPECT_EQ(outcome.status, c.status) << outcome.err;
        EXPECT_THAT(outcome.err, HasSubstr(c.says));
        EXPECT_EQ(film(), before);
    }
    EXPECT_THAT(names(), ::testing::UnorderedElementsAre("film.json", "tiny.json"));   // nothing is left
}

TEST_F(AgentVerbs, EditTellsWhichFindingsCameAndWent) {
    const Json worse = json({"edit", "film.json", "--pointer", "/scenes/0/layers/1/text/sizeFraction",
        "--value", "0.001", "--json"});
    ASSERT_EQ(worse.find("came")->array()->size(), 1u);
    const Json& came = worse.find("came")->array()->front();
    EXPECT_EQ(*came.find("code")->text(), "text-small");
    EXPECT_EQ(*came.find("pointer")->text(), "/scenes/0/layers/1/text/sizeFraction");
    const Json better = json({"edit", "film.json", "--pointer", "/scenes/0/layers/1/text/sizeFraction",
        "--value", "0.1", "--json"});
    ASSERT_EQ(better.find("went")->array()->size(), 1u);
    EXPECT_TRUE(better.find("came")->array()->empty());
}

TEST_F(AgentVerbs, CheckFixesTheSpellingAndKeepsTheRest) {
    const std::string before = film();
    const Json told = json({"check", "film.json", "--fix", "--quick", "--json"});
    EXPECT_EQ(film(), replaced(before, "opcity", "opacity"));
    EXPECT_THAT(*told.find("fixed")->find("difference")->text(), HasSubstr("opacity"));
    for (const Json& finding : *told.find("findings")->array())
        EXPECT_NE(*finding.find("code")->text(), "key-unknown");
    EXPECT_EQ(json({"check", "film.json", "--fix", "--quick", "--json"})
                  .find("fixed")
                  ->find("patch")
                  ->array()
                  ->size(),
        0u);
}

// Spelled right, the layer would take no time, which is an error where there was a warning.
TEST_F(AgentVerbs, CheckUndoesWhatMakesItWorse) {
    const std::string before = replaced(film(), R"("opcity": 0.5)", R"("durationSce": 0)");
    write("film.json", before);
    const Json told = json({"check", "film.json", "--fix", "--quick", "--json"});
    EXPECT_FALSE(told.find("fixed")->find("patch")->array()->empty());
    EXPECT_EQ(*told.find("fixed")->find("undone")->boolean(), true);
    EXPECT_EQ(film(), before);
}

TEST_F(AgentVerbs, CheckTellsFiguresOfTheFilm) {
    const Outcome outcome = tavix({"check", "film.json", "--json"});
    ASSERT_EQ(outcome.status, 0) << outcome.err << outcome.out;
    const Json told = parseJson(outcome.out);
    const Json* figures = told.find("figures");
    ASSERT_TRUE(figures);
    EXPECT_NEAR(*figures->find("lengthSec")->doubleValue(), 2.5, 1e-9);
    EXPECT_EQ(figures->find("frames")->integerValue(), 75);
    // What was foretold against what comes: within a factor of three.
    const Json film = json({"render", "film.json", "-o", "film.mp4", "--json"});
    const double bytes = *film.find("sizeBytes")->doubleValue();
    EXPECT_GT(*figures->find("estimatedBytes")->doubleValue(), bytes / 3);
    EXPECT_LT(*figures->find("estimatedBytes")->doubleValue(), bytes * 3);
    EXPECT_FALSE(figures->find("integratedLufs"));   // there is nothing to hear
}

TEST_F(AgentVerbs, ReadCutsToADepth) {
    const Json whole = json({"read", "film.json", "--json"});
    EXPECT_EQ(*whole.find("text")->text(), film());
    const Json part = json({"read", "film.json", "--pointer", "/scenes/0", "--depth", "1", "--json"});
    EXPECT_EQ(parseJson(*part.find("text")->text()),
        parseJson(R"({"id": "one", "durationSec": 2.5, "layers": "[2 elements]"})"));
    const Outcome nowhere = tavix({"read", "film.json", "--pointer", "/scenes/0/layrs"});
    EXPECT_EQ(nowhere.status, 3);
    EXPECT_THAT(nowhere.err, HasSubstr("durationSec"));   // the keys that there are
}

TEST_F(AgentVerbs, DiffNamesChangesAndTheirTimes) {
    write("later.json", replaced(replaced(handWritten, "Hello", "Bye"), R"("kind": "shape",)",
                            R"("kind": "shape", "fromSec": 1,)"));
    const Json told = json({"diff", "film.json", "later.json", "--sheet", "sheet.png", "--json"});
    const JsonArray& changes = *told.find("changes")->array();
    ASSERT_EQ(changes.size(), 2u);
    EXPECT_EQ(*changes[0].find("path")->text(), "/scenes/0/layers/0/fromSec");
    EXPECT_EQ(*changes[1].find("path")->text(), "/scenes/0/layers/1/text/text");
    EXPECT_THAT(*changes[1].find("words")->text(), HasSubstr("\"Hello\""));
    EXPECT_NEAR(*changes[1].find("toSec")->doubleValue(), 2.5, 1e-9);
    EXPECT_TRUE(std::filesystem::exists(at("sheet.png")));
    EXPECT_EQ(tavix({"diff", "film.json", "film.json"}).out, "Nothing differs.\n");
    EXPECT_EQ(tavix({"diff", "film.json"}).status, 2);
}

TEST_F(AgentVerbs, DescribeGivesWhatItsSchemaSays) {
    const Json told = json({"describe", "film.json", "--at", "1", "--json"});
    const Json schema = json({"describe", "--schema"});
    const Json* properties = schema.find("$defs")->find("FrameDescription")->find("properties");
    ASSERT_TRUE(properties);
    for (const JsonMember& member : *told.object()) EXPECT_TRUE(properties->find(member.key)) << member.key;
    EXPECT_EQ(tavix({"describe", "film.json", "--at", "9"}).status, 2);
    EXPECT_THAT(tavix({"describe", "film.json", "--from", "0"}).out, HasSubstr("\"Hello\""));
}

}   // namespace
}   // namespace tavix::engine::testing
