#include "Engine/Tests/EngineTest.h"
#include "TavixPlatform/Media/StillImages.h"

#include <gmock/gmock.h>

namespace tavix::engine::testing {

namespace {

using ::testing::HasSubstr;

class Templates : public EngineTest {
protected:
    std::vector<std::string> known() const {
        std::vector<std::string> all;
        const Json entries = json({"new", "--list", "--json"});
        for (const Json& entry : *entries.array()) all.push_back(*entry.find("name")->text());
        return all;
    }
    // Made at that size; empty for the template's own.
    Json made(const std::string& name, const std::string& size) {
        std::filesystem::remove_all(at("film.tavixcomp"));
        std::vector<std::string> words{"new", "film.tavixcomp", "--template", name, "--json"};
        if (!size.empty()) words.insert(words.end(), {"--size", size});
        json(words);
        return parseJson(readBytes(at("film.tavixcomp/composition.json")));
    }
};

TEST_F(Templates, AreListedForPeopleAndMachines) {
    EXPECT_GE(known().size(), 6u);
    const std::string table = tavix({"new", "--list"}).out;
    for (const std::string& name : known()) EXPECT_THAT(table, HasSubstr(name));
}

TEST_F(Templates, AreCleanAtEverySize) {
    for (const std::string& name : known())
        for (const std::string size : {"", "1920x1080", "1080x1920", "1080x1350"}) {
            SCOPED_TRACE(name + " " + size);
            const Json document = made(name, size);
            const Json& output = *document.find("output");
            if (!size.empty()) {
                EXPECT_EQ(std::to_string(*output.find("widthPx")->integerValue()) + "x" +
                              std::to_string(*output.find("heightPx")->integerValue()),
                    size);
            }
            // Devices of one formation are one thing to look at, whatever lint counts.
            const Json findings = json({"lint", "film.tavixcomp", "--json"});
            for (const Json& finding : *findings.array())
                EXPECT_THAT(*finding.find("message")->text(), HasSubstr("one focal point per frame"));
        }
}

// With all of their pictures, and something to see.
TEST_F(Templates, RenderAsTheyAre) {
    for (const std::string& name : known()) {
        SCOPED_TRACE(name);
        made(name, "320x568");
        const Json still = json({"still", "film.tavixcomp", "--at", "1.5", "-o", "still.png", "--json"});
        EXPECT_EQ(*still.find("warnings"), Json(JsonArray{}));
        const imaging::Bitmap picture = media::loadStillImage(at("still.png"));
        EXPECT_EQ(picture.size(), (imaging::Size{320, 568}));
        int edges = 0;
        for (int y = 0; y < 568; ++y)
            for (int x = 1; x < 320; ++x) {
                const std::uint8_t* pixel = picture.view().row(y) + 4 * x;
                edges += std::abs(pixel[1] - pixel[-3]) > 24;
            }
        EXPECT_GT(edges, 100);
    }
}

// What is drawn keeps its shape, and what stands apart its part of the frame.
TEST_F(Templates, GrowWithTheirFrame) {
    const auto titleOf = [](const Json& document) {
        const Json& scene = document.find("scenes")->array()->front();
        for (const Json& layer : *scene.find("layers")->array())
            if (*layer.find("kind") == Json("text")) return layer;
        return Json();
    };
    const Json small = titleOf(made("teaser", "960x540")), large = titleOf(made("teaser", "1920x1080"));
    EXPECT_EQ(*small.find("text"), *large.find("text")) << "in parts of the frame";
    EXPECT_EQ(2 * *small.find("position")->find("x")->doubleValue(),
        *large.find("position")->find("x")->doubleValue());
    const Json square = titleOf(made("teaser", "1080x1080")), higher = titleOf(made("teaser", "1080x1300"));
    const auto sizePx = [](const Json& layer, double heightPx) {
        return *layer.find("text")->find("sizeFraction")->doubleValue() * heightPx;
    };
    EXPECT_NEAR(sizePx(square, 1080), sizePx(higher, 1300), 0.5) << "no wider, so no larger";
}

TEST_F(Templates, RefuseWhatCannotBeMeant) {
    const struct {
        std::vector<std::string> words;
        const char* sentence;
    } cases[] = {
        {{"new", "a.tavixcomp", "--template", "teasr"}, "Did you mean teaser?"},
        {{"new", "a.tavixcomp", "--template", "teaser", "--size", "12x12"},
            "--size takes a width and a height from 320 to 4096, as in 1080x1920, not \"12x12\"."},
        {{"new", "a.tavixcomp", "--template", "teaser", "--size", "1080"}, "not \"1080\""},
        {{"new", "a.tavixcomp", "--template", "teaser", "--size", "1080x1920x3"}, "not \"1080x1920x3\""},
        {{"new", "a.tavixcomp", "--size", "1080x1920"}, "--size goes with --template."},
        {{"new"}, "new needs the name of the bundle to make, as in hello.tavixcomp."},
    };
    for (const auto& c : cases) {
        const Outcome outcome = tavix(c.words);
        EXPECT_EQ(outcome.status, 2) << c.sentence;
        EXPECT_THAT(outcome.err, HasSubstr(c.sentence));
    }
    EXPECT_FALSE(std::filesystem::exists(at("a.tavixcomp")));
}

}   // namespace

}   // namespace tavix::engine::testing
