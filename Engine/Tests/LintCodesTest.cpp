// The rules of lint as the command lists them, and each rule's own example against the rule.
#include "Engine/Tests/EngineTest.h"
#include "TavixCore/Findings/LintRule.h"
#include "TestSupport/SourceTree.h"

#include <gmock/gmock.h>

#include <set>

namespace tavix::engine::testing {

namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;

// A whole document of a document, a scene or a layer.
std::string documentOf(const std::string& fragment) {
    const Json json = parseJson(fragment);
    if (json.find("scenes")) return fragment;
    const std::string scene =
        json.find("kind") ? R"({"durationSec": 3, "layers": [)" + fragment + "]}" : fragment;
    return R"({"scenes": [)" + scene + "]}";
}

class LintCodes : public EngineTest {
protected:
    std::set<std::string> codesOf(const std::vector<std::string>& arguments) {
        std::set<std::string> codes;
        const Json found = parseJson(tavix(arguments).out);
        for (const Json& finding : *found.array()) codes.insert(*finding.find("code")->text());
        return codes;
    }
};

TEST_F(LintCodes, AreToldByTheirOwnExamples) {
    for (const CompositionLint::RuleEntry& entry : CompositionLint::rules()) {
        if (entry.fragment.empty()) continue;
        SCOPED_TRACE(entry.code);
        write("example.json", documentOf(std::string(entry.fragment)));
        std::vector<std::string> arguments{"lint", "example.json", "--json"};
        const bool needsFrames = entry.code.starts_with("frames-") || entry.code.starts_with("flash-");
        if (needsFrames) arguments.push_back("--frames");
        EXPECT_THAT(codesOf(arguments), Contains(std::string(entry.code)));
    }
}

TEST_F(LintCodes, AreThoseOfThePage) {
    EXPECT_EQ(tavix({"lint", "--codes", "--markdown"}).out,
        readBytes(::tavix::testsupport::inSourceTree("docs/lint.md")))
        << "write it again: tavix lint --codes --markdown > docs/lint.md";
    const std::string listed = tavix({"lint", "--codes"}).out;
    for (const CompositionLint::RuleEntry& entry : CompositionLint::rules())
        EXPECT_THAT(listed, HasSubstr(std::string(entry.code) + " "));
}

TEST_F(LintCodes, MuteFindingsOnTheCommandLineAndInTheDocument) {
    const std::string small = R"({"kind": "text", "text": {"text": "Hello", "sizeFraction": 0.01}})";
    write("small.json", documentOf(small));
    EXPECT_THAT(codesOf({"lint", "small.json", "--json"}), Contains("text-small"));
    const Outcome told = tavix({"lint", "small.json", "--mute", "text-small", "--mute", "low-contrsat"});
    EXPECT_THAT(told.out, Not(HasSubstr("[text-small]")));
    EXPECT_THAT(told.out, HasSubstr("[mute-unknown]"));
    EXPECT_THAT(told.out, HasSubstr("Did you mean \"low-contrast\"?"));
    EXPECT_THAT(told.err, HasSubstr("1 finding is muted: text-small."));
    write("muted.json",
        R"({"lint": {"mute": ["text-small"]}, "scenes": [{"durationSec": 3, "layers": [)" + small + "]}]}");
    EXPECT_THAT(tavix({"lint", "muted.json"}).out, Not(HasSubstr("text-small")));
}

TEST_F(LintCodes, OfWhatCannotBeDrawnStopARenderUnlessMuted) {
    const auto film = [](const std::string& more) {
        return R"({"output": {"widthPx": 320, "heightPx": 320, "fps": 24}, )" + more +
               R"("scenes": [{"durationSec": 0.1, "layers": [{"kind": "image", "image": {"path": "gone.png"}}]}]})";
    };
    write("gone.json", film(""));
    const Outcome refused = tavixIn(folder(), {"render", "gone.json"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.err, HasSubstr("scenes[0].layers[0].image.path"));
    EXPECT_EQ(tavixIn(folder(), {"render", "gone.json", "--no-lint"}).status, 0);
    write("muted.json", film(R"("lint": {"mute": ["picture-missing"]}, )"));
    EXPECT_EQ(tavixIn(folder(), {"render", "muted.json"}).status, 0);
}

}   // namespace

}   // namespace tavix::engine::testing
