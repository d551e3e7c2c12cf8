// What a render cannot have and goes on without: told once, as a warning, and the film is the same.
#include "Engine/Tests/EngineTest.h"

#include <gmock/gmock.h>

namespace tavix::engine::testing {

namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

std::size_t countOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

std::string word(const Json& json, const char* key) { return json.find(key)->stringValue().value(); }

class RenderTroubleTest : public EngineTest {
protected:
    // The codes of all warnings of the render, whose film is then of those bytes.
    std::vector<std::string> warningsOf(const std::vector<std::string>& words, const std::string& film) {
        outcome_ = tavix(words);
        EXPECT_EQ(outcome_.status, 0) << outcome_.err;
        json_ = parseJson(outcome_.out);
        std::vector<std::string> codes;
        for (const Json& warning : *json_.find("warnings")->array()) codes.push_back(word(warning, "code"));
        EXPECT_TRUE(readBytes(at("a.mp4")) == film);
        return codes;
    }
    std::string usualFilm(const std::vector<std::string>& options) {
        std::vector<std::string> words{"render", "tiny.json", "-o", "usual.mp4", "--no-cache"};
        words.insert(words.end(), options.begin(), options.end());
        EXPECT_EQ(tavix(words).status, 0);
        return readBytes(at("usual.mp4"));
    }

    Outcome outcome_;
    Json json_;
};

// A file, and a folder that nobody can make, in the place of the cache.
TEST_F(RenderTroubleTest, CacheThatCannotBeWrittenIsToldOnce) {
    const std::string usual = usualFilm({});
    write("file", "no folder");
    for (const std::string& place : {at("file").string(), std::string("/proc/1/nowhere")}) {
        SCOPED_TRACE(place);
        ::setenv("XDG_CACHE_HOME", place.c_str(), 1);
        EXPECT_THAT(warningsOf({"render", "tiny.json", "-o", "a.mp4", "--json"}, usual),
            ::testing::ElementsAre("cache-unwritable"));
        EXPECT_EQ(countOf(outcome_.err, "\n"), 1) << outcome_.err;
        EXPECT_THAT(outcome_.err, AllOf(HasSubstr(place), HasSubstr("--no-cache"), EndsWith(".\n")));
        // For people on the same stream, and not where nothing was to be kept.
        EXPECT_EQ(countOf(tavix({"render", "tiny.json", "-o", "a.mp4"}).err, "cannot be kept"), 1);
        EXPECT_THAT(tavix({"render", "tiny.json", "-o", "a.mp4", "--no-cache"}).err, IsEmpty());
    }
}

// On a machine with the hardware it is used; everywhere else that is told, and the film is the usual one.
TEST_F(RenderTroubleTest, HardwareEncoderIsUsedOrItsAbsenceIsTold) {
    for (const std::string& name : {std::string("h264_vaapi"), std::string("hevc_nvenc"),
             std::string("h264_qsv"), std::string("av1_vaapi")}) {
        SCOPED_TRACE(name);
        const Json json = this->json({"render", "tiny.json", "-o", "a.mp4", "--encoder", name, "--json"});
        const Json& encoder = *json.find("encoder");
        EXPECT_EQ(word(encoder, "asked"), name);
        if (word(encoder, "used") == name) {
            EXPECT_NE(json.find("verified"), nullptr);
            continue;
        }
        const std::string codec = name.substr(0, name.find('_')), usual = usualFilm({"--codec", codec});
        EXPECT_THAT(warningsOf({"render", "tiny.json", "-o", "a.mp4", "--encoder", name, "--json"}, usual),
            ::testing::ElementsAre("encoder-refused"));
        EXPECT_THAT(
            outcome_.err, AllOf(HasSubstr(name + " was asked for"), HasSubstr("instead."),
                              ::testing::Not(HasSubstr("partial")), ::testing::Not(HasSubstr("Generic"))));
        EXPECT_EQ(countOf(outcome_.err, "\n"), 1) << outcome_.err;
    }
}

TEST_F(RenderTroubleTest, HardwareEncoderThatContradictsOtherWishesIsRefused) {
    const struct {
        std::vector<std::string> words;
        const char* why;
    } cases[] = {
        {{"--encoder", "h264_nvenc", "--codec", "hevc"}, "writes H.264 and not HEVC"},
        {{"--encoder", "h264_nvenc", "-o", "a.webm"}, "H.264, which is not written to .webm files"},
        {{"--encoder", "h264_nvenc", "-o", "a.gif"}, "\"a.gif\" does not go with"},
        {{"--encoder", "h264_nvenc", "--format", "webp"}, "--encoder is for video"},
        {{"--encoder", "h264_nvenc", "--plan"}, "does not go with segments"},
        {{"--encoder", "libx264"}, "h264_vaapi"},
    };
    for (const auto& c : cases) {
        std::vector<std::string> words{"render", "tiny.json"};
        words.insert(words.end(), c.words.begin(), c.words.end());
        const Outcome outcome = tavix(words);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_THAT(outcome.err, HasSubstr(c.why));
    }
}

}   // namespace

}   // namespace tavix::engine::testing
