// Talks with the server, as clients of both revisions have them, and talks that no client would.
#include "TavixAgent/Server/AnswerParts.h"
#include "TavixAgent/Server/LineReader.h"
#include "TavixAgent/Server/McpServer.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Paths/JsonPointer.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixCore/Support/JsonParser.h"
#include "TavixCore/Values/SeededRandom.h"
#include "TavixRender/Tests/RenderTestKit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace tavix {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

// A stand-in for the command: a program of the system that echoes, sleeps or fails.
class Server : public ::testing::Test {
protected:
    explicit Server(const fs::path& program = "/bin/echo")
        : server_({program, RootFolder(folder_.path())},
              [this](const std::string& line) { lines_.push_back(line); }) {}

    // What is answered to a line, once all of it has been.
    std::vector<Json> told(std::string_view line) {
        server_.take(line);
        server_.finish();
        std::vector<Json> answers;
        for (const std::string& text : lines_) answers.push_back(parseJson(text));
        lines_.clear();
        return answers;
    }
    Json answer(std::string_view line) {
        const std::vector<Json> answers = told(line);
        EXPECT_EQ(answers.size(), 1u) << line;
        return answers.empty() ? Json() : answers.front();
    }
    void open() {
        answer(R"({"jsonrpc":"2.0","id":0,"method":"initialize","params":{"protocolVersion":"2025-11-25",
            "capabilities":{},"clientInfo":{"name":"t","version":"1"}}})");
    }

    testing::TemporaryFolder folder_;
    std::vector<std::string> lines_;
    McpServer server_;
};

const Json& at(const Json& json, std::string_view pointer) {
    static const Json nothing;
    const Json* found = find(json, JsonPointer::parse(pointer));
    EXPECT_TRUE(found) << pointer << " of " << rpc::inOneLine(json);
    return found ? *found : nothing;
}

std::string modern(const std::string& id, const std::string& method, const std::string& more = "") {
    return R"({"jsonrpc":"2.0","id":)" + id + R"(,"method":")" + method +
           R"(","params":{"_meta":{"io.modelcontextprotocol/protocolVersion":"2026-07-28",
              "io.modelcontextprotocol/clientCapabilities":{}})" +
           more + "}}";
}

TEST_F(Server, ShakesHandsInTheRevisionThatIsAskedFor) {
    const struct {
        const char *asked, *answered;
    } cases[] = {{"2025-11-25", "2025-11-25"}, {"2024-11-05", "2024-11-05"}, {"2025-06-18", "2025-06-18"},
        {"1999-01-01", "2025-11-25"}};
    for (const auto& c : cases) {
        const Json result =
            answer(std::string(R"({"jsonrpc":"2.0","id":"a","method":"initialize","params":{
            "protocolVersion":")") +
                   c.asked + R"(","capabilities":{},"clientInfo":{"name":"t","version":"1"}}})");
        EXPECT_EQ(at(result, "/result/protocolVersion").stringValue(), c.answered);
        EXPECT_EQ(at(result, "/id").stringValue(), "a");
        EXPECT_EQ(at(result, "/result/serverInfo/name").stringValue(), "tavix");
    }
    EXPECT_TRUE(told(R"({"jsonrpc":"2.0","method":"notifications/initialized"})").empty());
    EXPECT_EQ(at(answer(R"({"jsonrpc":"2.0","id":3,"method":"ping"})"), "/result"), Json(JsonObject()));
}

TEST_F(Server, ServesRequestsThatStandAlone) {
    const Json found = answer(modern("1", "server/discover"));
    EXPECT_EQ(at(found, "/result/resultType").stringValue(), "complete");
    EXPECT_EQ(at(found, "/result/supportedVersions/0").stringValue(), "2026-07-28");
    EXPECT_TRUE(at(found, "/result/ttlMs").isNumber());
    EXPECT_EQ(at(answer(modern("2", "tools/list")), "/result/resultType").stringValue(), "complete");

    const Json other = answer(R"({"jsonrpc":"2.0","id":4,"method":"tools/list","params":{"_meta":{
        "io.modelcontextprotocol/protocolVersion":"1900-01-01",
        "io.modelcontextprotocol/clientCapabilities":{}}}})");
    EXPECT_EQ(at(other, "/error/code").integerValue(), -32022);
    EXPECT_EQ(at(other, "/error/data/requested").stringValue(), "1900-01-01");
    // What its client can do is part of every request, and without a handshake so is the version.
    EXPECT_EQ(at(answer(R"({"jsonrpc":"2.0","id":5,"method":"tools/list","params":{"_meta":{
        "io.modelcontextprotocol/protocolVersion":"2026-07-28"}}})"),
                  "/error/code")
                  .integerValue(),
        -32602);
    EXPECT_EQ(at(answer(R"({"jsonrpc":"2.0","id":6,"method":"tools/list"})"), "/error/code").integerValue(),
        -32602);
}

TEST_F(Server, TellsToolsThatClientsCanCheck) {
    open();
    const Json list = answer(R"({"jsonrpc":"2.0","id":1,"method":"tools/list"})");
    const JsonArray& tools = *at(list, "/result/tools").array();
    EXPECT_EQ(tools.size(), 14u);
    for (const Json& tool : tools) {
        SCOPED_TRACE(*at(tool, "/name").text());
        for (const char* schema : {"/inputSchema", "/outputSchema"})
            EXPECT_EQ(at(tool, std::string(schema) + "/type").stringValue(), "object");
        const std::string name = *at(tool, "/name").text();
        const bool writes = name == "new_document" || name == "edit_document" || name == "render";
        EXPECT_EQ(*at(tool, "/annotations/readOnlyHint").boolean(), !writes);
        EXPECT_FALSE(*at(tool, "/annotations/openWorldHint").boolean());
        EXPECT_LE(at(tool, "/description").text()->size(), 320u);   // it is read at every turn
    }
}

TEST_F(Server, AnswersWrongInputWithWhatToDo) {
    open();
    const struct {
        const char *arguments, *says;
    } cases[] = {
        {R"({"name":"describe","arguments":{"pth":"film.json"}})", "Did you mean \"path\"?"},
        {R"({"name":"describe","arguments":{}})", "\"path\" is missing"},
        {R"({"name":"describe","arguments":{"path":7}})", "type string"},
        {R"({"name":"describe","arguments":{"path":"../elsewhere.json"}})", "lies outside"},
        {R"({"name":"describe","arguments":{"path":"/etc/passwd"}})", "lies outside"},
        {R"({"name":"describe","arguments":{"path":"film.json","cursor":"x"}})", "cursor"},
        {R"({"name":"edit_document","arguments":{"path":"film.json"}})", "Say what to change"},
    };
    for (const auto& c : cases) {
        const Json result = answer(
            R"({"jsonrpc":"2.0","id":1,"method":"tools/call","params":)" + std::string(c.arguments) + "}");
        EXPECT_TRUE(*at(result, "/result/isError").boolean()) << c.arguments;
        EXPECT_THAT(*at(result, "/result/content/0/text").text(), HasSubstr(c.says));
    }
    EXPECT_EQ(at(answer(R"({"jsonrpc":"2.0","id":1,"method":"tools/call","params":{"name":"shell"}})"),
                  "/error/code")
                  .integerValue(),
        -32602);
}

TEST_F(Server, FollowsNoLinkOutOfItsRoot) {
    fs::create_symlink("/etc", folder_.path() / "way-out");
    const RootFolder root(folder_.path());
    for (const char* outside : {"way-out/passwd", "way-out", "a/../../x", "/", "..", "./../.."}) {
        EXPECT_THROW(root.resolved(outside), Failure) << outside;
        EXPECT_FALSE(root.holds(outside)) << outside;
    }
    fs::create_directories(folder_.path() / "in");
    fs::create_symlink("in", folder_.path() / "also-in");
    EXPECT_EQ(root.resolved("also-in/new.json"), root.path() / "in" / "new.json");
    EXPECT_EQ(root.resolved("a/../b.json"), root.path() / "b.json");
}

TEST_F(Server, CutsLongAnswersAtTheirCursors) {
    std::string text;
    for (int i = 0; text.size() < 3 * mostAnswerCharacters; ++i)
        text += "line " + std::to_string(i) + " ä€\n";
    const ToolAnswer answer{JsonObject{{"text", text}}, text, {}};
    std::string whole;
    std::optional<std::string> cursor;
    int parts = 0;
    do {
        const Json part = answerParts(answer, cursor);
        whole += *at(part, "/structuredContent/text").text();
        EXPECT_LE(at(part, "/structuredContent/text").text()->size(), mostAnswerCharacters);
        const Json* next = at(part, "/structuredContent").find("nextCursor");
        cursor = next ? next->stringValue() : std::nullopt;
        ++parts;
    } while (cursor && parts < 10);
    EXPECT_EQ(whole, text);
    EXPECT_EQ(parts, 4);
    EXPECT_THROW(answerParts(answer, "99999999"), Failure);
}

class SleepingServer : public Server {
protected:
    SleepingServer() : Server(script()) {}
    static fs::path script() {
        static const testing::TemporaryFolder folder;
        const fs::path file = folder.path() / "slow";
        writeBytesAtomically("#!/bin/sh\nexec sleep 30\n", file);
        fs::permissions(file, fs::perms::owner_all);
        return file;
    }
};

TEST_F(SleepingServer, EndsWhatIsCancelledAndSaysNoMoreOfIt) {
    open();
    const auto start = std::chrono::steady_clock::now();
    server_.take(
        R"({"jsonrpc":"2.0","id":7,"method":"tools/call","params":{"name":"probe","arguments":{"path":"a"}}})");
    server_.take(
        R"({"jsonrpc":"2.0","id":7,"method":"tools/call","params":{"name":"probe","arguments":{"path":"a"}}})");
    ASSERT_EQ(lines_.size(), 1u);   // the same id again
    EXPECT_THAT(lines_[0], HasSubstr("still running"));
    lines_.clear();
    server_.take(R"({"jsonrpc":"2.0","id":8,"method":"ping"})");   // the next is not held up
    EXPECT_EQ(lines_.size(), 1u);
    server_.take(R"({"jsonrpc":"2.0","method":"notifications/cancelled","params":{"requestId":7}})");
    server_.finish();
    EXPECT_EQ(lines_.size(), 1u);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

// Cut, mixed, repeated and strewn with bytes: at most an answer each, and the next request is served.
TEST_F(Server, OutlivesTenThousandBadMessages) {
    open();
    SeededRandom dice("bad messages");
    const std::vector<std::string> good{R"({"jsonrpc":"2.0","id":1,"method":"tools/list"})",
        R"({"jsonrpc":"2.0","id":"x","method":"resources/read","params":{"uri":"tavix://example/title-card"}})",
        R"({"jsonrpc":"2.0","method":"notifications/cancelled","params":{"requestId":1}})",
        modern("9", "server/discover"), R"({"jsonrpc":"2.0","id":2,"result":{}})",
        R"({"jsonrpc":"2.0","id":3,"method":"prompts/get","params":{"name":"fix_findings","arguments":{"path":[]}}})"};
    LineReader lines(4096);
    for (int i = 0; i < 10'000; ++i) {
        std::string message = good[dice.next() % good.size()];
        for (std::uint64_t changes = dice.next() % 4; changes > 0; --changes) {
            const std::size_t place = dice.next() % (message.size() + 1);
            switch (dice.next() % 5) {
            case 0: message.erase(place); break;
            case 1: message.insert(place, 1, char(dice.next())); break;
            case 2: message.insert(place, good[dice.next() % good.size()]); break;
            case 3: message.insert(place, std::string(dice.next() % 300, '[')); break;
            default: message.insert(place, std::string(dice.next() % 6000, '9')); break;
            }
        }
        lines.take(message + "\n");
        while (const auto line = lines.next())
            line->wasTooLong ? server_.refuseLongLine() : server_.take(line->text);
        if (i % 500 == 0) server_.finish();
    }
    server_.finish();
    for (const std::string& line : lines_) {
        EXPECT_EQ(line.find('\n'), std::string::npos);
        EXPECT_EQ(parseJson(line).find("jsonrpc")->stringValue(), "2.0");
    }
    lines_.clear();
    EXPECT_FALSE(
        at(answer(R"({"jsonrpc":"2.0","id":1,"method":"tools/list"})"), "/result/tools").array()->empty());
    EXPECT_TRUE(fs::is_empty(folder_.path()));
}

TEST_F(Server, GivesWhatAgentsRead) {
    open();
    const Json list = answer(R"({"jsonrpc":"2.0","id":1,"method":"resources/list"})");
    EXPECT_GT(at(list, "/result/resources").array()->size(), 30u);
    const Json example = answer(
        R"({"jsonrpc":"2.0","id":1,"method":"resources/read","params":{"uri":"tavix://example/title-card"}})");
    EXPECT_TRUE(parseJson(*at(example, "/result/contents/0/text").text()).find("scenes"));
    EXPECT_EQ(
        at(answer(
               R"({"jsonrpc":"2.0","id":1,"method":"resources/read","params":{"uri":"file:///etc/passwd"}})"),
            "/error/code")
            .integerValue(),
        -32002);
    EXPECT_EQ(at(answer(modern("1", "resources/read", R"(,"uri":"tavix://nothing")")), "/error/code")
                  .integerValue(),
        -32602);
    const Json prompt = answer(
        R"({"jsonrpc":"2.0","id":1,"method":"prompts/get","params":{"name":"fix_findings","arguments":{"path":"film.json"}}})");
    EXPECT_THAT(*at(prompt, "/result/messages/0/content/text").text(), HasSubstr("film.json"));
}

}   // namespace
}   // namespace tavix
