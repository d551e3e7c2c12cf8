// The command `run` where there is no browser, or a bad one; RecorderTest has the rest.
#include "Engine/Tests/EngineTest.h"

#include <gmock/gmock.h>

#include <cstdlib>

namespace tavix::engine::testing {

namespace {

using ::testing::HasSubstr;
using ::testing::UnorderedElementsAre;

class RunVerbTest : public EngineTest {
protected:
    RunVerbTest() {
        write("page/index.html", "<button id=go>Go</button>");
        write("flow.json", R"({"name": "f", "schemaVersion": 1, "entry": {"rootViewType": "/"},
            "output": {"aspect": "vertical", "width": 1080, "height": 1920, "fps": 30, "container": "mp4", "codec": "h264"},
            "steps": [{"index": 0, "interaction": "tap", "target": {"kind": "viewId", "identifier": "go"},
                "dwellBeforeMs": 0, "dwellAfterMs": 0}]})");
        browserIs("no-such-browser-of-tavix");
    }
    ~RunVerbTest() override { ::unsetenv("TAVIX_BROWSER"); }
    static void browserIs(const std::string& program) { ::setenv("TAVIX_BROWSER", program.c_str(), 1); }

    void expectNothingNew() const {
        EXPECT_THAT(names(), UnorderedElementsAre("flow.json", "page", "tiny.json"));
    }
};

TEST_F(RunVerbTest, WrongUseIsToldBeforeAnythingStarts) {
    const struct {
        std::vector<std::string> words;
        int status;
        const char* sentence;
    } cases[] = {
        {{"run"}, 2, "run needs a flow"},
        {{"run", "flow.json"}, 2, "--url is missing"},
        {{"run", "none.json", "--url", "page"}, 3, "none.json"},
        {{"run", "flow.json", "--url", "page", "--size", "10x10"}, 2,
            "--size takes a width and a height from 64"},
        {{"run", "flow.json", "--url", "page", "--device", "toaster"}, 2, "There is no device \"toaster\""},
        {{"run", "flow.json", "--url", "page", "--scale", "9"}, 2, "--scale takes a number from 0.5 to 5"},
        {{"run", "flow.json", "--url", "page", "--allow", "file:///etc"}, 2, "--allow takes an origin"},
        {{"run", "flow.json", "--url", "page", "-o", "film.mp4"}, 2, "ends in .tavixproj"},
        {{"run", "flow.json", "--url", "page"}, 3,
            "There is no browser to record with. Install chromium-headless-shell"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.sentence);
        const Outcome outcome = tavix(c.words);
        EXPECT_EQ(outcome.status, c.status);
        EXPECT_THAT(outcome.err, HasSubstr(c.sentence));
        expectNothingNew();
    }
}

TEST_F(RunVerbTest, ABrowserThatEndsLeavesNothing) {
    browserIs("/bin/false");
    const Outcome outcome = tavix({"run", "flow.json", "--url", "page", "--json"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.out, HasSubstr("The browser ended with status 1."));
    expectNothingNew();
}

TEST_F(RunVerbTest, ARecordingThatIsThereIsKept) {
    write("flow.tavixproj/raw.mov", "mine");
    const Outcome outcome = tavix({"run", "flow.json", "--url", "page"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.err, HasSubstr("give --replace"));
    browserIs("/bin/false");
    EXPECT_EQ(tavix({"run", "flow.json", "--url", "page", "--replace"}).status, 3);
    EXPECT_EQ(readBytes(at("flow.tavixproj/raw.mov")), "mine");
}

}   // namespace

}   // namespace tavix::engine::testing
