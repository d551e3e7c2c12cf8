#include "Engine/Tests/EngineTest.h"

#include <gmock/gmock.h>

namespace tavix::engine::testing {

namespace {

using ::testing::HasSubstr;
using ::testing::UnorderedElementsAre;

const char* const loose = R"({"output": {"widthPx": 64, "heightPx": 96, "fps": 10}, "assetRoot": "pictures",
    "scenes": [{"durationSec": 1, "layers": [
        {"kind": "image", "position": {"x": 32, "y": 48}, "image": {"path": "dot.png", "heightFraction": 1}}]}]})";

class PackVerb : public EngineTest {
protected:
    PackVerb() {
        write("loose.json", loose);
        tavix({"still", "tiny.json", "--at", "0.5", "-o", "pictures/dot.png"});
    }
};

TEST_F(PackVerb, APackedBundleShowsTheSameAnywhere) {
    const Json packed = json({"pack", "loose.json", "-o", "deep/film", "--json"});
    EXPECT_EQ(*packed.find("bundle"), Json("deep/film.tavixcomp"));
    json({"still", "loose.json", "--at", "0", "-o", "before.png", "--json"});
    std::filesystem::remove_all(at("pictures"));
    std::filesystem::rename(at("deep/film.tavixcomp"), at("moved.tavixcomp"));
    const Json still = json({"still", "moved.tavixcomp", "--at", "0", "-o", "after.png", "--json"});
    EXPECT_EQ(*still.find("warnings"), Json(JsonArray{}));
    EXPECT_EQ(readBytes(at("before.png")), readBytes(at("after.png")));
}

TEST_F(PackVerb, RefusesWhatWouldLoseSomething) {
    json({"pack", "loose.json", "--json"});
    const std::string document = readBytes(at("loose.tavixcomp/composition.json"));
    const struct {
        std::vector<std::string> words;
        int status;
        const char* sentence;
    } cases[] = {
        {{"loose.tavixcomp"}, 2, "is the document itself and is left alone"},
        {{"loose.tavixcomp/composition.json", "-o", "./loose.tavixcomp/"}, 2, "is the document itself"},
        {{"loose.json", "-o", ".."}, 2, "The bundle has no name"},
        {{"loose.json", "-o", ""}, 2, "The bundle has no name"},
        {{"broken.json", "-o", "loose"}, 3, "Missing asset \"gone.png\" (resolved to "},
    };
    write("broken.json", R"({"background": {"kind": "image", "image": {"path": "gone.png"}}})");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.sentence);
        std::vector<std::string> words{"pack"};
        words.insert(words.end(), c.words.begin(), c.words.end());
        const Outcome outcome = tavix(words);
        EXPECT_EQ(outcome.status, c.status);
        EXPECT_THAT(outcome.err, HasSubstr(c.sentence));
        EXPECT_EQ(readBytes(at("loose.tavixcomp/composition.json")), document);
        EXPECT_TRUE(std::filesystem::exists(at("loose.tavixcomp/assets/dot.png")));
    }
    EXPECT_THAT(names(),
        UnorderedElementsAre("tiny.json", "loose.json", "broken.json", "pictures", "loose.tavixcomp"));
}

}   // namespace

}   // namespace tavix::engine::testing
