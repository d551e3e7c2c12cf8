// How the command behaves in a shell: what it completes, its manual, and JSON wherever it is asked for.
#include "Engine/Tests/EngineTest.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>
#include <regex>
#include <set>

namespace tavix::engine::testing {

namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::Not;

using Words = std::vector<std::string>;

Words linesOf(const std::string& text) {
    Words lines;
    for (std::size_t at = 0; at < text.size(); at = text.find('\n', at) + 1)
        lines.push_back(text.substr(at, text.find('\n', at) - at));
    return lines;
}

std::set<std::string> matches(const std::string& text, const std::string& pattern) {
    std::set<std::string> found;
    const std::regex expression(pattern, std::regex::multiline);
    for (std::sregex_iterator at(text.begin(), text.end(), expression), end; at != end; ++at)
        found.insert((*at)[1]);
    return found;
}

class Manners : public EngineTest {
protected:
    // As a person reads them: "reel author" is two words.
    std::vector<Words> verbs() const {
        std::vector<Words> all;
        for (const std::string& line : linesOf(tavix({"--help"}).out)) {
            std::smatch match;
            if (!std::regex_match(line, match, std::regex("  ([a-z]+(?: [a-z]+)?)(?:  +| )[A-Z].*")))
                continue;
            const std::string name = match[1];
            if (name == "help") continue;
            const std::size_t blank = name.find(' ');
            all.push_back(blank == std::string::npos ? Words{name}
                                                     : Words{name.substr(0, blank), name.substr(blank + 1)});
        }
        return all;
    }

    // What bash would offer for the last of these words, which stand after "tavix".
    Words completed(const Words& words) const {
        std::string line = "COMP_WORDS=(tavix";
        for (const std::string& word : words) line += " '" + word + "'";
        const Outcome outcome = runIn(
            folder(), {"bash", "-c",
                          "source ./completion; " + line + "); COMP_CWORD=" + std::to_string(words.size()) +
                              "; _tavix; printf '%s\\n' \"${COMPREPLY[@]}\""});
        EXPECT_THAT(outcome.err, IsEmpty());
        Words lines = linesOf(outcome.out);
        std::erase(lines, "");
        return lines;
    }

    void takeCompletion() { write("completion", tavix({"completion", "bash"}).out); }
};

TEST_F(Manners, BashCompletesEveryOptionThatHelpTells) {
    takeCompletion();
    const auto all = verbs();
    ASSERT_GT(all.size(), 30u);
    for (const Words& verb : all) {
        SCOPED_TRACE(verb.back());
        Words asking = verb, completing = verb;
        asking.emplace_back("--help");
        completing.emplace_back("--");
        const std::set<std::string> told = matches(tavix(asking).out, "^  (?:-.,)?(--[a-z-]+)");
        const Words offered = completed(completing);
        EXPECT_EQ(std::set<std::string>(offered.begin(), offered.end()), told);
    }
}

TEST_F(Manners, BashCompletesVerbsValuesAndPlaces) {
    takeCompletion();
    const struct {
        Words words, offered;
    } cases[] = {
        {{"rend"}, {"render"}},
        {{"reel", "auth"}, {"author"}},
        {{"reel", "author", "--capt"}, {"--captions"}},
        {{"mcp", "install", "--host", "c"}, {"claude", "cursor", "cline", "codex"}},
        {{"render", "film.json", "--format", ""}, {"video", "gif", "webp", "png"}},
        {{"render", "--format", "=", "g"}, {"gif"}},
        {{"render", "--format", "="}, {"video", "gif", "webp", "png"}},
        {{"render", "-o", "a b.mp4", "--effort", "b"}, {"balanced", "best"}},
        {{"presets", "back"}, {"backgrounds"}},
        {{"presets", "--preview", "a.png", "back"}, {"backgrounds"}},
        {{"presets", "backgrounds", "a"}, {}},
        {{"schema", "layer"}, {"layer"}},
        {{"new", "--template", "tea"}, {"teaser"}},
        {{"help", "rend"}, {"render"}},
        {{"nonsense", "--"}, {}},
        {{"render", "film.json", "--fps", ""}, {}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.words.front() + " " + each.words.back());
        EXPECT_EQ(completed(each.words), each.offered);
    }
    EXPECT_THAT(completed({""}), IsSupersetOf(Words{"render", "reel", "mcp", "help", "--version"}));
}

TEST_F(Manners, BashLeavesNamesOfFilesToTheShell) {
    takeCompletion();
    write("my film.json", "{}");
    const auto asked = [&](const std::string& words, int at) {
        return runIn(folder(), {"bash", "-c",
                                   "compopt() { echo \"$@\"; }; source ./completion; COMP_WORDS=(tavix " +
                                       words + "); COMP_CWORD=" + std::to_string(at) + "; _tavix"})
            .out;
    };
    EXPECT_EQ(asked("render my", 2), "-o default\n");
    EXPECT_EQ(asked("render my.json -o my", 4), "-o default\n");
    EXPECT_EQ(asked("render my.json --fps my", 4), "");
    EXPECT_EQ(asked("render my.json --eff", 3), "");
}

TEST_F(Manners, OtherShellsReadTheirScripts) {
    for (const std::string shell : {"zsh", "fish"}) {
        write("script", tavix({"completion", shell}).out);
        if (runIn(folder(), {"sh", "-c", "command -v " + shell}).status != 0) continue;
        const Outcome read = runIn(folder(), {shell, "-n", "script"});
        EXPECT_EQ(read.status, 0) << read.err;
    }
    const Outcome wrong = tavix({"completion", "bsh"});
    EXPECT_EQ(wrong.status, 2);
    EXPECT_THAT(wrong.err, HasSubstr("use bash, zsh or fish. Did you mean bash?"));
}

TEST_F(Manners, EveryPageOfTheManualRendersWithoutAWarning) {
    const auto pages = *json({"manual", "-o", "man", "--json"}).find("files");
    EXPECT_EQ(pages.array()->size(), verbs().size() + 1);
    if (runIn(folder(), {"sh", "-c", "command -v man"}).status != 0) GTEST_SKIP() << "There is no man here.";
    for (const Json& page : *pages.array()) {
        const Outcome shown = runIn(folder(), {"env", "LC_ALL=C.UTF-8", "MANWIDTH=80", "man", "--warnings=w",
                                                  "-P", "cat", "-l", *page.stringValue()});
        EXPECT_THAT(shown.err, IsEmpty()) << *page.stringValue();
        EXPECT_THAT(shown.out, HasSubstr("EXIT STATUS"));
    }
    const Outcome page =
        runIn(folder(), {"sh", "-c", "MANWIDTH=200 man -P cat -l man/tavix-render.1 | col -b"});
    EXPECT_THAT(page.out, HasSubstr("tavix render [OPTIONS] document"));
    EXPECT_THAT(page.out, HasSubstr("-o, --output FILE"));
    EXPECT_THAT(page.out, HasSubstr("--format video|gif|webp|png"));
    EXPECT_EQ(tavix({"manual", "reel", "author"}).out, readBytes(at("man/tavix-reel-author.1")));
}

// They are some ninety, and a start would wait for them.
TEST_F(Manners, LibrariesThatFilmsNeedAreNotLoadedAtTheStart) {
    const Outcome loaded = runIn(folder(), {"env", "LD_TRACE_LOADED_OBJECTS=1", tavixProgram()});
    ASSERT_THAT(loaded.out, HasSubstr("libpng"));
    EXPECT_THAT(loaded.out, Not(HasSubstr("libav")));
    EXPECT_THAT(loaded.out, Not(HasSubstr("libheif")));
}

TEST_F(Manners, EveryVerbAndEveryErrorHasJson) {
    for (const Words& verb : verbs()) {
        SCOPED_TRACE(verb.back());
        Words asking = verb;
        asking.emplace_back("--help");
        EXPECT_THAT(tavix(asking).out, HasSubstr("--json"));
        for (const Words& wrong :
            {Words{"--json", "--no-such-option"}, Words{"a", "b", "c", "d", "--json"}}) {
            Words calling = verb;
            calling.insert(calling.end(), wrong.begin(), wrong.end());
            const Outcome refused = tavix(calling);
            EXPECT_EQ(refused.status, 2);
            const Json told = parseJson(refused.out);
            EXPECT_EQ(told.find("error")->find("code")->stringValue(), "wrong-use");
            EXPECT_EQ("tavix: " + *told.find("error")->find("message")->stringValue() + "\n", refused.err);
        }
    }
    for (const Words& words : {Words{"--json"}, Words{"nonsense", "--json"}, Words{"reel", "--json"},
             Words{"render", "--json", "--fps"}, Words{"render", "--fps", "--json"}})
        EXPECT_EQ(parseJson(tavix(words).out).find("error")->find("status")->integerValue(), 2);
    EXPECT_THAT(tavix({"render", "--", "--json"}).out, IsEmpty());   // a document of that name
}

}   // namespace

}   // namespace tavix::engine::testing
