#include "Engine/Tests/EngineTest.h"
#include "TestSupport/SourceTree.h"

#include <gmock/gmock.h>

namespace tavix::engine::testing {

namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

// A film with a grid of half seconds, and a layer on it.
std::string onBeat(const std::string& fromBeat) {
    return R"({"output": {"widthPx": 64, "heightPx": 96, "fps": 10}, "scenes": [{"durationSec": 3, "layers": [
        {"kind": "shape", "position": {"x": 32, "y": 48}, "fromBeat": )" +
           fromBeat + R"(}]}], "audio": {"music": {"path": "song.wav", "bpm": 120}}})";
}

const char* const faulty = R"({"output": {"widthPx": 640, "heightPx": 360, "fps": 24}, "scenes": [
    {"durationSec": 1, "layers": [{"kind": "shape", "position": {"x": 32, "y": 48}, "effects": [{"kind": "glwo"}]}]}]})";

class LintVerb : public EngineTest {};

TEST_F(LintVerb, NamesTheErrorsForPeopleAndMachines) {
    write("faulty.json", faulty);
    const Outcome told = tavix({"lint", "faulty.json"});
    EXPECT_EQ(told.status, 1);
    EXPECT_THAT(told.out, HasSubstr("error scenes[0].layers[0].effects[0]"));
    EXPECT_THAT(told.out, HasSubstr("\n  Did you mean"));
    EXPECT_THAT(told.err, IsEmpty());
    const Outcome machine = tavix({"lint", "faulty.json", "--json"});
    EXPECT_EQ(machine.status, 1);
    const Json found = parseJson(machine.out);
    const Json& first = found.array()->front();
    EXPECT_EQ(*first.find("level"), Json("error"));
    EXPECT_THAT(told.out,
        StartsWith("error " + *first.find("path")->text() + ": " + *first.find("message")->text() + "\n"));
}

TEST_F(LintVerb, WhatCannotBeReadIsAFindingToo) {
    write("broken.json", R"({"scenes": [{"layers": [{"kind": "txt"}]}]})");
    const Outcome outcome = tavix({"lint", "broken.json", "--json"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(*parseJson(outcome.out).array()->front().find("path"), Json("scenes[0].layers[0].kind"));
    EXPECT_EQ(tavix({"lint", "gone.json"}).status, 3);
}

TEST_F(LintVerb, OurOwnDocumentsHaveNoErrors) {
    const std::string page = readBytes(testsupport::inSourceTree("README.md"));
    const std::size_t begin = page.find("```json\n") + 8;
    write("sunrise.json", page.substr(begin, page.find("```", begin) - begin));
    tavix({"new", "hello.tavixcomp"});
    std::vector<std::string> documents{"sunrise.json", "hello.tavixcomp"};
    for (const auto& example : std::filesystem::directory_iterator(testsupport::inSourceTree("Examples")))
        if (example.path().extension() == ".tavixcomp") documents.push_back(example.path().string());
    for (const std::string& document : documents) {
        const Outcome outcome = tavix({"lint", document});
        EXPECT_EQ(outcome.status, 0) << document << "\n" << outcome.out;
    }
}

TEST_F(LintVerb, ResolvingTurnsBeatsIntoSeconds) {
    write("beats.json", onBeat("4"));
    const Json resolved = json({"resolve", "beats.json"});
    const Json& layer = resolved.find("scenes")->array()->front().find("layers")->array()->front();
    EXPECT_EQ(*layer.find("fromSec"), Json(2));
    EXPECT_EQ(layer.find("fromBeat"), nullptr);

    write("early.json", onBeat("-4"));
    const Outcome early = tavix({"resolve", "early.json"});
    EXPECT_EQ(early.status, 1);
    EXPECT_THAT(early.err, HasSubstr("scenes[0].layers[0].fromBeat: "));
    EXPECT_THAT(early.out, HasSubstr("\"fromBeat\" : -4")) << "the document stays as it was";
}

TEST_F(LintVerb, RenderingRefusesWhatHasErrors) {
    write("faulty.json", faulty);
    const Outcome refused = tavixIn(folder(), {"render", "faulty.json"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.err, StartsWith("tavix: faulty.json: scenes[0].layers[0].effects[0]"));
    EXPECT_FALSE(std::filesystem::exists(at("faulty.mp4")));
    EXPECT_EQ(tavixIn(folder(), {"render", "faulty.json", "--no-lint"}).status, 0);
    EXPECT_TRUE(std::filesystem::exists(at("faulty.mp4")));
}

}   // namespace

}   // namespace tavix::engine::testing
