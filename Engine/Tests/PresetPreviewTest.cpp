#include "Engine/Tests/EngineTest.h"
#include "TavixPlatform/Media/StillImages.h"

#include <gmock/gmock.h>

#include <cmath>

namespace tavix::engine::testing {

namespace {

using ::testing::HasSubstr;

// How many columns of a picture hold anything but the neutral ground of a strip, in runs: its pictures.
int picturesIn(const imaging::Bitmap& strip) {
    const std::uint8_t* middle = strip.view().row(strip.size().height * 2 / 5);
    int runs = 0;
    bool wasInside = false;
    for (int x = 0; x < strip.size().width; ++x) {
        const bool isInside = std::abs(middle[4 * x] - 24) > 2 || std::abs(middle[4 * x + 2] - 22) > 2;
        runs += isInside && !wasInside;
        wasInside = isInside;
    }
    return runs;
}

TEST_F(EngineTest, PresetsAreShownAsStrips) {
    const struct {
        const char *family, *name;
    } cases[] = {{"transitions", "wipe"}, {"motions", "rise-up"}, {"formations", "splitFocus"},
        {"kinetic", "slide-up"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const Json shown = json({"presets", c.family, c.name, "--preview", "strip.png", "--json"});
        EXPECT_EQ(*shown.find("warnings"), Json(JsonArray{}));
        const imaging::Bitmap strip = media::loadStillImage(at("strip.png"));
        EXPECT_GT(strip.size().width, 4 * strip.size().height);
        EXPECT_GE(picturesIn(strip), 8);
    }
}

TEST_F(EngineTest, PresetsThatDoNotMoveAreShownOnce) {
    json({"presets", "backgrounds", "aurora", "--preview", "a.png", "--json"});
    EXPECT_EQ(media::loadStillImage(at("a.png")).size(), (imaging::Size{1920, 1080}));
    json({"presets", "devices", "iphone-16-pink", "--preview", "b.png", "--json"});
    EXPECT_EQ(media::loadStillImage(at("b.png")).size(), (imaging::Size{1080, 1080}));
}

TEST_F(EngineTest, PresetsAreShownAsFilmsForAsLongAsTheyLast) {
    json({"presets", "motions", "zoom-in", "--duration", "0.5", "--preview", "zoom.gif", "--json"});
    const Json film = json({"probe", "zoom.gif", "--json"});
    EXPECT_NEAR(*film.find("durationSec")->doubleValue(), 0.9, 0.1);
    json({"presets", "transitions", "fade", "--preview", "fade.mp4", "--json"});
    EXPECT_NEAR(*json({"probe", "fade.mp4", "--json"}).find("durationSec")->doubleValue(), 2, 0.05);
}

TEST_F(EngineTest, PreviewsRefuseWhatCannotBeShown) {
    const struct {
        std::vector<std::string> words;
        const char* sentence;
    } cases[] = {
        {{"effects", "glow"}, "presets effects cannot be shown; --preview goes with motions"},
        {{"transitions", "wype"},
            "There is no transition \"wype\"; list them by tavix presets transitions. Did you mean wipe?"},
        {{"backgrounds", "auror"}, "Did you mean aurora?"},
        {{"motions", "rise"}, "There is no device motion \"rise\""},
        {{"transitions", "wipe", "--count", "3"}, "presets transitions take no options but --preview"},
        {{"motions"}, "--preview shows one preset; name it"},
    };
    for (const auto& c : cases) {
        std::vector<std::string> words{"presets"};
        words.insert(words.end(), c.words.begin(), c.words.end());
        words.insert(words.end(), {"--preview", "no.png"});
        const Outcome outcome = tavix(words);
        EXPECT_EQ(outcome.status, 2) << c.sentence;
        EXPECT_THAT(outcome.err, HasSubstr(c.sentence));
    }
    EXPECT_FALSE(std::filesystem::exists(at("no.png")));
}

// Against what the file itself says.
TEST_F(EngineTest, SoundsTellTheirLengthAndPeak) {
    const Json sounds = json({"presets", "sounds", "--json"});
    ASSERT_EQ(sounds.array()->size(), 3u);
    const std::filesystem::path share =
        std::filesystem::path(TAVIX_PROGRAM).parent_path().parent_path() / "share/tavix/sounds";
    for (const Json& sound : *sounds.array()) {
        const std::string name = *sound.find("id")->text();
        SCOPED_TRACE(name);
        const Json probed = json({"probe", (share / (name + ".wav")).string(), "--json"});
        EXPECT_NEAR(
            *sound.find("lengthSec")->doubleValue(), *probed.find("durationSec")->doubleValue(), 0.002);
        EXPECT_LT(*sound.find("peakDb")->doubleValue(), 0);
        EXPECT_GT(*sound.find("peakDb")->doubleValue(), -30);
        EXPECT_THAT(tavix({"presets", "sounds"}).out, HasSubstr(name));
    }
}

}   // namespace

}   // namespace tavix::engine::testing
