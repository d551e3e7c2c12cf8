#include "Engine/Tests/EngineTest.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TestSupport/SourceTree.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <set>

namespace tavix::engine::testing {

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

std::string firstPicture(const std::filesystem::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.path().extension() == ".png" || entry.path().extension() == ".jpg")
            names.insert(entry.path().filename().string());
    return *names.begin();
}

TEST_F(EngineTest, ResolvingTwiceIsResolvingOnce) {
    const Outcome once =
        tavix({"resolve", testsupport::inSourceTree("Examples/first-light.tavixcomp").string()});
    ASSERT_EQ(once.status, 0) << once.err;
    write("once.json", once.out);
    EXPECT_EQ(tavix({"resolve", "once.json"}).out, once.out);
}

// Wherever it is put, what is printed is the same film.
TEST_F(EngineTest, WhatIsResolvedIsReadAgainAndDrawnTheSame) {
    json({"new", "made/phone.tavixcomp", "--template", "phone-hero", "--json"});
    json({"new", "made/beat.tavixcomp", "--template", "on-the-beat", "--json"});
    json({"new", "made/hello.tavixcomp", "--json"});
    write("made/loose.json", R"({"assetRoot": "phone.tavixcomp", "output": {"widthPx": 480, "heightPx": 360},
        "scenes": [{"durationSec": 3, "layers": [{"kind": "device", "device": {"screen": {"path": "assets/)" +
                                 firstPicture(at("made/phone.tavixcomp/assets")) +
                                 R"("}, "choreographyPreset": {"preset": "splitFocus"}}}]}]})");
    for (const char* const name : {"phone.tavixcomp", "beat.tavixcomp", "hello.tavixcomp", "loose.json"}) {
        SCOPED_TRACE(name);
        const std::string given = std::string("made/") + name;
        const Outcome resolved = tavix({"resolve", given});
        ASSERT_EQ(resolved.status, 0) << resolved.err;
        write("elsewhere/again.json", resolved.out);
        const Outcome again = tavix({"lint", "elsewhere/again.json"});
        EXPECT_EQ(again.status, 0) << again.out << again.err;
        EXPECT_EQ(tavix({"resolve", "elsewhere/again.json"}).out, resolved.out);
        EXPECT_EQ(tavix({"still", given, "--at", "1.4", "-o", "one.png"}).status, 0);
        EXPECT_EQ(tavix({"still", "elsewhere/again.json", "--at", "1.4", "-o", "two.png"}).status, 0);
        EXPECT_EQ(readBytes(at("one.png")), readBytes(at("two.png")));
    }
}

// What a file manager calls: a name without a suffix, a file that stands there already, and no moment.
TEST_F(EngineTest, AThumbnailIsTheMiddleOfTheLongestSceneMadeSmall) {
    write("asked-RX42T1", "");
    const Json told = json({"still", "tiny.json", "--thumbnail", "48", "-o", "asked-RX42T1", "--json"});
    EXPECT_EQ(*told.find("atSec"), Json(0.5));
    EXPECT_EQ(*told.find("widthPx"), Json(32));
    EXPECT_EQ(*told.find("heightPx"), Json(48));
    json({"still", "tiny.json", "--at", "0.5", "-o", "whole.png", "--json"});
    const imaging::Bitmap small = media::loadStillImage(at("asked-RX42T1"));
    const imaging::Bitmap whole = media::loadStillImage(at("whole.png"));
    ASSERT_EQ(small.size(), (imaging::Size{32, 48}));
    for (const auto& [x, y] : {std::pair{16, 24}, {2, 2}, {29, 45}, {16, 4}})
        for (int channel = 0; channel < 3; ++channel)
            EXPECT_NEAR(small.view().row(y)[4 * x + channel], whole.view().row(2 * y)[8 * x + channel], 6)
                << x << ", " << y;
    EXPECT_EQ(tavix({"still", "tiny.json", "--thumbnail", "8", "-o", "no.png"}).status, 2);
}

// The reference says how much is too much.
TEST_F(EngineTest, TheReferenceTellsTheLimitsThatAreHeld) {
    const std::string page = tavix({"schema", "--markdown"}).out;
    const auto effects = [](int count, const std::string& kind) {
        std::string list;
        for (int i = 0; i < count; ++i) list += (i ? ", {\"kind\": \"" : "{\"kind\": \"") + kind + "\"}";
        return R"({"kind": "shape", "effects": [)" + list + "]}";
    };
    const auto text = [](int letters) {
        return R"({"kind": "text", "text": {"text": ")" + std::string(std::size_t(letters), 'x') + "\"}}";
    };
    const struct {
        std::string allowed, refused;
        const char* told;
    } limits[] = {{effects(32, "tint"), effects(33, "tint"), "At most 32,"},
        {effects(4, "chromaticAberration"), effects(5, "chromaticAberration"),
            "at most 4 chromaticAberration"},
        {text(20'000), text(20'001), "At most 20,000 characters"}};
    for (const auto& limit : limits) {
        EXPECT_THAT(page, HasSubstr(limit.told));
        for (const std::string* layer : {&limit.allowed, &limit.refused}) {
            write("film.json", R"({"scenes": [{"durationSec": 1, "layers": [)" + *layer + "]}]}");
            EXPECT_EQ(tavix({"resolve", "film.json"}).status, layer == &limit.refused) << limit.told;
        }
    }
}

TEST_F(EngineTest, NewDocumentsRender) {
    const Json made = json({"new", "deep/hello.tavixcomp", "--json"});
    EXPECT_EQ(*made.find("document"), Json("deep/hello.tavixcomp/composition.json"));
    const Json still = json({"still", "deep/hello.tavixcomp", "--at", "2", "--json"});
    EXPECT_EQ(*still.find("output"), Json("hello.png"));
    EXPECT_EQ(*still.find("warnings"), Json(JsonArray{})) << "its backgrounds are found";
    const imaging::Bitmap picture = media::loadStillImage(at("hello.png"));
    EXPECT_EQ(picture.size(), (imaging::Size{1920, 1080}));
}

TEST_F(EngineTest, TheExampleOfTheReadMeRenders) {
    const std::string page = readBytes(testsupport::inSourceTree("README.md"));
    const std::size_t begin = page.find("```json\n") + 8;
    write("sunrise.json", page.substr(begin, page.find("```", begin) - begin));
    const Json sheet = json({"sheet", "sunrise.json", "--json"});
    EXPECT_EQ(*sheet.find("warnings"), Json(JsonArray{}));
    EXPECT_EQ(*sheet.find("cells")->array()->back().find("scene"), Json("end"));
}

TEST_F(EngineTest, TheExampleOfMovingTextIsSoundAndShowsEveryPreset) {
    const std::string example = testsupport::inSourceTree("Examples/kinetic-type.tavixcomp").string();
    EXPECT_EQ(tavix({"lint", example}).status, 0);
    const std::string document = readBytes(example + "/composition.json");
    const Json presets = json({"presets", "kinetic", "--json"});
    for (const Json& preset : *presets.array())
        EXPECT_THAT(document, HasSubstr("\"" + *preset.find("id")->text() + "\""));
    json({"sheet", example, "-o", "sheet.png", "--width", "600", "--json"});
    EXPECT_GT(media::loadStillImage(at("sheet.png")).size().height, 200);
}

TEST_F(EngineTest, EverySchemaIsJsonAndNamesItsType) {
    EXPECT_EQ(*json({"schema"}).find("title"), Json("composition"));
    for (const std::string type : {"composition", "scene", "layer", "effect", "track", "transition"})
        EXPECT_EQ(*json({"schema", type}).find("title"), Json(type));
}

TEST_F(EngineTest, TheCommittedReferenceIsCurrent) {
    const std::string page = readBytes(testsupport::inSourceTree("docs/document-reference.md"));
    EXPECT_EQ(tavix({"schema", "--markdown"}).out, page)
        << "make it anew: tavix schema --markdown > docs/document-reference.md";
}

// The heads of a page's chapters, and the chapters that its links go to.
TEST_F(EngineTest, EveryLinkOfTheReferenceLeadsToAChapter) {
    const std::string page = tavix({"schema", "--markdown"}).out;
    std::string lower = page;
    for (char& letter : lower) letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    std::size_t links = 0;
    for (std::size_t at = page.find("](#"); at != std::string::npos; at = page.find("](#", at + 1), ++links) {
        const std::string anchor = page.substr(at + 3, page.find(')', at) - at - 3);
        EXPECT_THAT(lower, HasSubstr("\n## " + anchor + "\n"));
    }
    EXPECT_GT(links, 40u);
}

TEST_F(EngineTest, PresetsAreListedForPeopleAndMachines) {
    const struct {
        const char *family, *id;
        std::size_t count;
    } cases[] = {{"backgrounds", "aurora", 7}, {"effects", "chromaticAberration", 9},
        {"transitions", "dreamyZoom", 8}, {"curves", "spring", 3}, {"devices", "iphone-16-pro", 28},
        {"motions", "rise-up", 111}, {"formations", "fanDeck", 9}, {"kinetic", "karaoke-fill", 13},
        {"fonts", "palatino", 11}, {"sounds", "whip", 3}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.family);
        EXPECT_THAT(tavix({"presets", c.family}).out, HasSubstr(c.id));
        const Json presets = json({"presets", c.family, "--json"});
        ASSERT_TRUE(presets.array());
        EXPECT_EQ(presets.array()->size(), c.count);
        bool isListed = false;
        for (const Json& preset : *presets.array()) isListed = isListed || *preset.find("id") == Json(c.id);
        EXPECT_TRUE(isListed);
    }
}

TEST_F(EngineTest, ResolvesNamesOfDeviceAnimations) {
    const std::string wall = testsupport::inSourceTree("Examples/motion-wall.tavixcomp").string();
    const Outcome resolved = tavix({"resolve", wall});
    EXPECT_EQ(resolved.status, 0);
    EXPECT_THAT(resolved.out, Not(HasSubstr("Preset")));
    EXPECT_THAT(resolved.out, HasSubstr("phone-cascade-4"));
    write("resolved.json", resolved.out);
    EXPECT_EQ(tavix({"resolve", "resolved.json"}).out, resolved.out);
}

TEST_F(EngineTest, ShowsWhatADevicePresetBecomes) {
    const Json motion = json({"presets", "motions", "rise-up", "--duration", "99", "--intensity", "0.5"});
    EXPECT_EQ(*motion.find("sceneDurationSec"), Json(8));   // held within the range of documents
    EXPECT_EQ(*motion.find("uses3D"), Json(false));
    EXPECT_EQ(motion.find("tracks")->array()->size(), 2u);
    EXPECT_THAT(tavix({"presets", "motions", "reveal", "--direction", "reversed"}).out, HasSubstr("-105"));
    EXPECT_THAT(tavix({"presets", "motions", "reveal", "--start-at", "1", "--anchor-x", "0.25",
                          "--face-inward", "10"})
                    .out,
        HasSubstr("\"x\" : 0.25"));
    const Json device = json({"presets", "devices", "iphone-17-pro-silver"});
    EXPECT_EQ(*device.find("mockup")->find("screenCornerRadiusFraction"), Json(0.1592));
    const Json formation = json({"presets", "formations", "fanDeck", "--count", "6", "--json"});
    EXPECT_EQ(formation.find("layers")->array()->size(), 6u);
    EXPECT_EQ(*formation.find("durationSec"), Json(2.8));
}

TEST_F(EngineTest, TellsWhichFaceDrawsEachFontOfTheCatalog) {
    const Json fonts = json({"presets", "fonts", "--json"});
    for (const Json& font : *fonts.array()) {
        const bool isPalatino = *font.find("id") == Json("palatino");
        const bool isSystem = *font.find("id") == Json("system");
        if (isPalatino) {
            EXPECT_EQ(*font.find("face"), Json("P052-Roman"));
        }
        if (isSystem) {
            EXPECT_EQ(*font.find("family"), Json("Inter"));
        }
        EXPECT_EQ(*font.find("isStandIn"), Json(!isSystem));
    }
    EXPECT_THAT(tavix({"presets", "fonts"}).out, HasSubstr("Palatino: P052 (P052-Roman) stands in"));
}

TEST_F(EngineTest, ShowsWhatAKineticPresetBecomes) {
    const Json slam = json({"presets", "kinetic", "slam", "--speed", "SNAP", "--intensity", "high",
        "--weight", "elegant", "--seed", "-4"});
    EXPECT_EQ(*slam.find("notes"), Json(JsonArray{}));
    const Json& style = *slam.find("style");
    EXPECT_EQ(*style.find("inPhase")->find("durationSec"), Json(0.3 * 0.65));
    EXPECT_EQ(*style.find("weight"), Json("elegant"));
    EXPECT_EQ(*style.find("idle")->find("seed"), Json(-4));
    const Json cascade =
        json({"presets", "kinetic", "char-cascade", "--text", "a text of six words or more", "--json"});
    EXPECT_EQ(*cascade.find("style")->find("scope"), Json("line"));
    EXPECT_EQ(cascade.find("notes")->array()->size(), 2u);
}

TEST_F(EngineTest, SheetsAreBoundedWhateverTheFilm) {
    const struct {
        const char* name;
        int width, height;
        double sec;
        int scenes;
    } films[] = {{"one frame", 64, 96, 0.1, 1}, {"many scenes", 64, 36, 30, 90}, {"a ribbon", 8192, 2, 2, 3},
        {"a tower", 2, 2000, 2, 3}};
    for (const auto& film : films) {
        SCOPED_TRACE(film.name);
        std::string scenes;
        for (int i = 0; i < film.scenes; ++i)
            scenes += std::string(i ? "," : "") + R"({"durationSec": )" +
                      std::to_string(film.sec / film.scenes) + "}";
        write("film.json", R"({"output": {"widthPx": )" + std::to_string(film.width) + R"(, "heightPx": )" +
                               std::to_string(film.height) + R"(, "fps": 10}, "scenes": [)" + scenes + "]}");
        for (const std::string columns : {"", "1", "48"}) {
            std::vector<std::string> words{"sheet", "film.json", "--json"};
            if (!columns.empty()) words.insert(words.end(), {"--columns", columns});
            const Json sheet = json(words);
            const imaging::Size size = media::loadStillImage(at("film-sheet.png")).size();
            EXPECT_EQ(*sheet.find("widthPx"), Json(size.width));
            EXPECT_EQ(*sheet.find("heightPx"), Json(size.height));
            EXPECT_LE(std::max(size.width, size.height), 4096);
            EXPECT_LE(sheet.find("cells")->array()->size(), 48u);
            EXPECT_GE(sheet.find("cells")->array()->size(), 1u);
        }
    }
}

TEST_F(EngineTest, SheetsShowEverySceneAndTransitionInOrder) {
    write("film.json", R"({"output": {"widthPx": 64, "heightPx": 36, "fps": 10}, "scenes": [
        {"durationSec": 2, "transition": {"style": "fade", "durationSec": 1}}, {"durationSec": 3}]})");
    const Json sheet = json({"sheet", "film.json", "--json"});
    std::vector<double> times;
    for (const Json& cell : *sheet.find("cells")->array())
        times.push_back(*cell.find("atSec")->doubleValue());
    EXPECT_TRUE(std::is_sorted(times.begin(), times.end()));
    EXPECT_THAT(times, ::testing::IsSupersetOf({0.0, 1.5, 2.0, 3.9})) << "start, transition, next scene, end";
}

}   // namespace

}   // namespace tavix::engine::testing
