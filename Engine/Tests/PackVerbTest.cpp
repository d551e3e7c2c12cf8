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

// A document from elsewhere carries nothing off but what it can show.
TEST_F(EngineTest, PacksOnlyWhatItIsTakenFor) {
    tavix({"still", "tiny.json", "--at", "0", "-o", "in/dot.png"});
    write("in/secret.txt", "root:x:0:0");
    const auto layer = [](const std::string& kind, const std::string& content) {
        return R"({"scenes": [{"durationSec": 1, "layers": [{"kind": ")" + kind + R"(", ")" + kind +
               R"(": )" + content + "}]}]}";
    };
    const struct {
        std::string document;
        const char* sentence;
    } cases[] = {
        {layer("image", R"({"path": "secret.txt"})"),
            "It is not a PNG, JPEG, WebP, HEIC or AVIF image. It is not packed"},
        {layer("video", R"({"path": "secret.txt"})"),
            "secret.txt\". It is not a film or sound that can be read"},
        {layer("video", R"({"path": "dot.png"})"), nullptr},   // a film of one picture
        {layer("text", R"({"text": "a", "font": "./secret.txt"})"),
            "secret.txt\" is not a font. It is not packed"},
        {R"({"fonts": {"title": "./secret.txt"}})", "secret.txt\" is not a font. It is not packed"},
        {R"({"audio": {"music": {"path": "secret.txt"}}})",
            "secret.txt\". It is not a film or sound that can be read"},
        {R"({"audio": {"cues": [{"atSec": 0, "sound": "dot.png"}]}})", "There is no sound in"},
        {layer("image", R"({"path": "dot.png"})"), nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.document);
        write("in/film.json", c.document);
        const Outcome outcome = tavix({"pack", "in/film.json", "-o", "packed"});
        EXPECT_EQ(outcome.status, c.sentence ? 3 : 0) << outcome.err;
        EXPECT_THAT(outcome.err, HasSubstr(c.sentence ? c.sentence : ""));
        EXPECT_FALSE(std::filesystem::exists(at("packed.tavixcomp/assets/secret.txt")));
        std::filesystem::remove_all(at("packed.tavixcomp"));
    }
}

TEST_F(EngineTest, PacksFilesFromOutsideOnlyWhereThatIsSaid) {
    tavix({"still", "tiny.json", "--at", "0", "-o", "outer.png"});
    std::filesystem::create_directories(at("in"));
    std::filesystem::create_symlink(at("outer.png"), at("in/link.png"));
    const std::string paths[] = {"../outer.png", at("outer.png").string(), "link.png"};
    for (const std::string& path : paths) {
        SCOPED_TRACE(path);
        write("in/film.json", R"({"background": {"kind": "image", "image": {"path": ")" + path + R"("}}})");
        const Outcome refused = tavix({"pack", "in/film.json", "-o", "packed"});
        EXPECT_EQ(refused.status, 3);
        EXPECT_THAT(
            refused.err, HasSubstr("Outside of the document's folder and not packed: \"" +
                                   (path == "link.png" ? at("in/link.png") : at("outer.png")).string() +
                                   "\". If they are meant, say --allow-outside."));
        EXPECT_FALSE(std::filesystem::exists(at("packed.tavixcomp")));
    }
    write("in/film.json",
        R"({"assetRoot": "..", "background": {"kind": "image", "image": {"path": "outer.png"}}})");
    EXPECT_EQ(tavix({"pack", "in/film.json", "-o", "packed"}).status, 3);
    const Outcome allowed = tavix({"pack", "in/film.json", "-o", "packed", "--allow-outside"});
    EXPECT_EQ(allowed.status, 0) << allowed.err;
    EXPECT_THAT(allowed.err,
        HasSubstr(at("outer.png").string() + "\", from outside of the document's folder, is packed."));
    EXPECT_EQ(readBytes(at("packed.tavixcomp/assets/outer.png")), readBytes(at("outer.png")));
}

}   // namespace

}   // namespace tavix::engine::testing
