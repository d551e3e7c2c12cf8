// Talks that the protocol's own clients had with the server (./dev interop keeps them), had again: what the
// clients sent, word by word, and of the answers what a client relies on.
#include "Engine/Tests/EngineTest.h"
#include "TavixCore/Paths/JsonPointer.h"
#include "TavixCore/Support/JsonWriter.h"
#include "TavixPlatform/System/ChildProcess.h"
#include "TestSupport/SourceTree.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <poll.h>
#include <set>
#include <unistd.h>

namespace tavix::engine::testing {

namespace {

using ::testing::Not;
using Direction = system::ChildPipe::Direction;

constexpr int mostWaitMs = 60'000;

// The server, and what it says line by line.
class Session {
public:
    explicit Session(const std::filesystem::path& root)
        : server_({.program = tavixProgram(),
              .arguments = {"mcp", "serve", "--root", root.string()},
              .pipes = {{0, Direction::toChild}, {1, Direction::fromChild}},
              .environment = {}}) {}

    void send(const Json& message) {
        std::string line = writeJson(message);
        std::erase(line, '\n');
        line += '\n';
        for (std::size_t at = 0; at < line.size();) {
            const ssize_t count = ::write(server_.descriptor(0), line.data() + at, line.size() - at);
            if (count > 0) at += static_cast<std::size_t>(count);
        }
    }

    // Null at the end, or when nothing came for a long time.
    Json next() {
        for (;;) {
            if (const std::size_t end = text_.find('\n'); end != std::string::npos) {
                const Json message = parseJson(text_.substr(0, end));
                text_.erase(0, end + 1);
                return message;
            }
            pollfd ready{server_.descriptor(1), POLLIN, 0};
            char bytes[65'536];
            const ssize_t count =
                ::poll(&ready, 1, mostWaitMs) > 0 ? ::read(server_.descriptor(1), bytes, sizeof bytes) : 0;
            if (count <= 0) return {};
            text_.append(bytes, static_cast<std::size_t>(count));
        }
    }

    std::optional<int> end() {
        server_.close(0);
        return server_.wait(mostWaitMs / 1000.0);
    }

private:
    system::ChildProcess server_;
    std::string text_;
};

Json keysOf(const Json& object) {
    JsonArray keys;
    for (const JsonMember& member : *object.object()) keys.emplace_back(member.key);
    std::ranges::sort(keys, {}, [](const Json& key) { return *key.text(); });
    return keys;
}

// As the talks keep an answer.
Json outlineOf(const Json& message) {
    if (const Json* error = message.find("error"))
        return JsonObject{{"id", *message.find("id")}, {"error", *error->find("code")}};
    const Json& result = *message.find("result");
    JsonObject outline{{"id", *message.find("id")}, {"keys", keysOf(result)}};
    if (const Json* isError = result.find("isError"); isError && *isError->boolean())
        outline.set("isError", true);
    if (const Json* content = result.find("content")) {
        JsonArray types;
        for (const Json& part : *content->array()) types.push_back(*part.find("type"));
        outline.set("content", std::move(types));
    }
    if (const Json* structured = result.find("structuredContent"))
        outline.set("structured", keysOf(*structured));
    return outline;
}

class Talks : public EngineTest {
protected:
    Talks() {
        write("root/small.json", R"({"output": {"widthPx": 640, "heightPx": 360, "fps": 24}, "scenes": [
            {"id": "one", "durationSec": 1, "layers": [{"kind": "text", "text": {"text": "Hello there"}}]}]})");
        write("root/long.json", R"({"output": {"widthPx": 640, "heightPx": 360, "fps": 30}, "scenes": [
            {"id": "one", "durationSec": 600, "layers": [{"kind": "text", "text": {"text": "Hello there"}}]}]})");
        write("root/shop/manifest.webmanifest", R"({"name": "Shop", "theme_color": "#aa3355"})");
    }

    static std::vector<Json> talk(const std::string& name) {
        const std::string text = readBytes(testsupport::inSourceTree("Engine/Tests/Talks") / name);
        std::vector<Json> lines;
        for (std::size_t at = 0; at < text.size(); at = text.find('\n', at) + 1)
            lines.push_back(parseJson(text.substr(at, text.find('\n', at) - at)));
        return lines;
    }

    // Of a request that the talk has an answer to; of one that was cancelled there is none.
    static const Json* recordedAnswer(const std::vector<Json>& talk, const Json& request) {
        const Json* id = request.find("id");
        for (const Json& line : talk)
            if (const Json* from = line.find("from");
                id && from && from->find("id") && *from->find("id") == *id)
                return from;
        return nullptr;
    }

    // Sound files are not part of what is kept.
    static bool isHeard(const Json& request) {
        const Json* name = find(request, JsonPointer::parse("/params/name"));
        return name && name->stringValue() == "beats";
    }
};

TEST_F(Talks, AreAnsweredAsWhenTheyWereRecorded) {
    for (const std::string name : {"talk-sdk-1.jsonl", "talk-client-2.jsonl"}) {
        SCOPED_TRACE(name);
        const std::vector<Json> lines = talk(name);
        Session session(at("root"));
        int answered = 0, progressed = 0;
        for (const Json& line : lines) {
            const Json* request = line.find("to");
            if (!request || isHeard(*request)) continue;
            SCOPED_TRACE(writeJson(*request));
            session.send(*request);
            if (!request->find("id")) continue;
            const Json* recorded = recordedAnswer(lines, *request);
            for (;;) {
                const Json message = session.next();
                ASSERT_TRUE(message.object());
                if (message.find("method")) {
                    ++progressed;
                    if (!recorded) break;   // it runs, and is cancelled next
                    continue;
                }
                // One that was cancelled is answered no more.
                ASSERT_TRUE(recorded) << writeJson(message);
                EXPECT_EQ(writeJson(outlineOf(message)), writeJson(*recorded));
                ++answered;
                break;
            }
            if (HasFatalFailure()) return;
        }
        EXPECT_GT(answered, 20);
        EXPECT_GT(progressed, 2);
        EXPECT_EQ(session.end(), 0);
        EXPECT_THAT(names(), Not(::testing::Contains("long.mp4")));
        std::filesystem::remove_all(at("root/made.tavixcomp"));
    }
}

}   // namespace

}   // namespace tavix::engine::testing
