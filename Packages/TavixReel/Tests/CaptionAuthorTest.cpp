#include "TavixReel/Captions/CaptionAuthor.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Theme/BrandKit.h"
#include "TavixCore/Values/SeededRandom.h"
#include "TavixReel/Camera/EffectsAuthor.h"
#include "TavixReel/Captions/NamedCaptionPalette.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

using CaptionAuthor::Options;

TEST(CaptionAuthor, CleansLines) {
    const struct {
        const char* text;
        std::int64_t maxWords;
        const char* clean;
    } cases[] = {{"  Save it \n", 9, "Save it"}, {"\"Save it\"", 9, "Save it"},
        {"\u201C Save it \u201D", 9, "Save it"}, {"'Save it'", 9, "Save it"},
        {"\"'Save it'\"", 9, "'Save it'"}, {"\"Save it'", 9, "\"Save it'"},
        {"\u201DSave it\u201C", 9, "\u201DSave it\u201C"}, {"\"\"", 9, ""}, {"\"", 9, "\""},
        {"a  b\tc\u00A0d", 3, "a b c"}, {"one two", 0, "one"}, {"one two", -3, "one"}, {"", 9, ""}};
    for (const auto& c : cases) EXPECT_EQ(CaptionAuthor::sanitize(c.text, c.maxWords), c.clean) << c.text;
}

TEST(HumanizedCopySource, MakesWordsOfNames) {
    const struct {
        const char *identifier, *words;
    } cases[] = {{"loginButton_primary", "login button primary"}, {"URLField", "urlfield"},
        {"step2Next", "step2 next"}, {"__--..", ""}, {"a.b-c_d", "a b c d"}, {"größeÄndern", "größe ändern"},
        {"X", "x"}};
    for (const auto& c : cases) EXPECT_EQ(humanize(c.identifier), c.words);
}

TEST(HumanizedCopySource, SaysWhatAStepDoes) {
    const struct {
        CaptionBeatContext beat;
        const char* line;
    } cases[] = {{{.identifier = "x", .label = " new item "}, "New item"},
        {{.identifier = "x", .label = "ärmel"}, "Ärmel"},
        {{.identifier = "saveButton", .label = "  "}, "Save button"},
        {{.interaction = Interaction::longPress}, "Press and hold"},
        {{.interaction = Interaction::navPop}, "Go back"},
        {{.interaction = Interaction::textEntry, .identifier = "nameField", .textValue = "Ada"}, "Enter Ada"},
        {{.interaction = Interaction::textEntry, .identifier = "nameField", .textValue = ""},
            "Type name field"},
        {{.interaction = Interaction::textEntry}, "Type"}};
    for (const auto& c : cases) EXPECT_EQ(HumanizedCopySource::line(c.beat), c.line);
    const CaptionBeatContext provided{.stepIndex = 4, .identifier = "x", .providedText = "  Told. "};
    const CaptionBeatContext blank{.stepIndex = 5, .identifier = "x", .providedText = "  "};
    const auto lines = ProvidedCopySource().captionLines(std::vector{provided, blank}, CaptionTone::terse, 1);
    EXPECT_EQ(lines.at(4), "Told.");
    EXPECT_EQ(lines.at(5), "X");
}

std::optional<Narration> assembled(
    const std::vector<HeroBeat>& beats, const std::map<std::int64_t, std::string>& lines) {
    return CaptionAuthor::assemble(beats, lines, MotionSpec::smoothGlide, Options{});
}

TEST(CaptionAuthor, LaysLinesOutInTime) {
    const auto narration = assembled({{1, 2, 1.2}, {2, 3, 1.2}, {3, 4, 1.2}, {4, 5, 1.2}, {9, 60, 1.2}},
        {{1, "one two three four five six"}, {2, "Again"}, {3, "AGAIN"}, {4, "\"\""}, {9, "End"}});
    ASSERT_TRUE(narration);
    ASSERT_EQ(narration->captions.size(), 3u);
    // Six words at 0.35 seconds; then 1.4 seconds after that; a repetition does not push the one after it.
    EXPECT_NEAR(narration->captions[0].window.startSec, 2.4, 1e-12);
    EXPECT_NEAR(narration->captions[0].window.endSec, 4.5, 1e-12);
    EXPECT_NEAR(narration->captions[1].window.startSec, 5.9, 1e-12);
    EXPECT_NEAR(narration->captions[1].window.endSec, 7.5, 1e-12);
    EXPECT_NEAR(narration->captions[2].window.startSec, 60.4, 1e-12);
    EXPECT_EQ(narration->captions[2].stepIndex, 9);
    EXPECT_FALSE(assembled({{1, 2, 1.2}}, {{2, "other"}}));
}

TEST(CaptionAuthor, CaptionsNeverCrowdNorComeBeforeTheirStep) {
    SeededRandom dice("crowd");
    for (int i = 0; i < 500; ++i) {
        std::vector<HeroBeat> beats;
        std::map<std::int64_t, std::string> lines;
        double t = 0;
        for (std::int64_t k = 0; k < 8; ++k) {
            beats.push_back({k, t += dice.next(0, 3), 1.2});
            std::string line = std::to_string(k);
            for (auto n = dice.next() % 12; n > 0; --n) line += " w";
            lines[k] = line;
        }
        const auto narration = assembled(beats, lines);
        ASSERT_EQ(narration->captions.size(), 8u);
        for (std::size_t k = 0; k < 8; ++k) {
            const TimeRangeSec& window = narration->captions[k].window;
            ASSERT_GE(window.startSec, beats[k].tSec + 0.4 - 1e-12);
            ASSERT_GE(window.endSec - window.startSec, 1.6 - 1e-9);
            if (k > 0) {
                ASSERT_GE(window.startSec, narration->captions[k - 1].window.endSec + 1.4 - 1e-9);
            }
        }
    }
}

Timeline recording() {
    Timeline timeline{{1000, 2000, 60}, {}};
    for (std::int64_t i = 0; i < 4; ++i)
        timeline.events.push_back({.index = i,
            .type = i == 2 ? "shake" : "toggle",
            .tSec = 3.0 * double(i + 1),
            .regionPx = PixelRect{100, i % 2 ? 1700.0 : 100.0, 100, 100}});
    timeline.events[1].label = "dark mode";
    return timeline;
}

TEST(CaptionAuthor, AsksForTheStepsThatItKnows) {
    const Timeline timeline = recording();
    const auto beats = CaptionAuthor::beats(timeline, {}, {.maxCaptions = 3});
    ASSERT_EQ(beats.size(), 3u);
    const auto ofSidecar = CaptionAuthor::contexts(nullptr, timeline, beats);
    EXPECT_EQ(ofSidecar[0], (CaptionBeatContext{.interaction = Interaction::toggle, .identifier = "toggle"}));
    EXPECT_EQ(ofSidecar[1].identifier, "dark mode");
    EXPECT_EQ(ofSidecar[2].interaction, Interaction::tap);   // an unknown one

    FlowSpec flow;
    flow.entry.rootViewType = "Home";
    Step& step = flow.steps.emplace_back();
    step.index = 1;
    step.interaction = Interaction::swipe;
    step.target.identifier = "row";
    step.caption = "Told";
    step.state = MockState{.description = "full"};
    const auto ofFlow = CaptionAuthor::contexts(&flow, timeline, beats);
    ASSERT_EQ(ofFlow.size(), 1u);
    EXPECT_EQ(ofFlow[0], (CaptionBeatContext{.stepIndex = 1,
                             .interaction = Interaction::swipe,
                             .identifier = "row",
                             .label = "dark mode",
                             .stateDescription = "full",
                             .screen = "Home",
                             .providedText = "Told"}));
}

TEST(CaptionAuthor, LeavesAFailureOfTheSourceToItsCaller) {
    class Broken : public CaptionCopySource {
        std::map<std::int64_t, std::string> captionLines(
            std::span<const CaptionBeatContext>, CaptionTone, std::int64_t) const override {
            throw Failure("No words today.");
        }
    };
    EXPECT_THROW(CaptionAuthor::author(nullptr, recording(), {}, {}, Broken()), Failure);
    EXPECT_FALSE(CaptionAuthor::author(nullptr, recording(), {}, {.maxCaptions = 0}, Broken()));
    EXPECT_FALSE(CaptionAuthor::author(nullptr, recording(), MotionSpec::flat, {}, Broken()));
    EXPECT_EQ(CaptionAuthor::author(nullptr, recording(), {}, {}, HumanizedCopySource())->captions.at(1).text,
        "Dark mode");
}

TEST(NamedCaptionPalette, KnowsItsNamesAndTheBrands) {
    const BrandKit brand{.accent = {0.1, 0.2, 0.3, 1}, .secondary = RGBAColor{0.4, 0.5, 0.6, 1}};
    const BrandKit plain{.accent = {0.1, 0.2, 0.3, 1}};
    EXPECT_EQ(NamedCaptionPalette::resolve(" TEAL\n", nullptr), (RGBAColor{0.19, 0.69, 0.78, 1}));
    EXPECT_EQ(NamedCaptionPalette::resolve("brandprimary", &brand), brand.accent);
    EXPECT_EQ(NamedCaptionPalette::resolve("BRANDACCENT", &brand), brand.secondary);
    EXPECT_EQ(NamedCaptionPalette::resolve("brandAccent", &plain), plain.accent);
    EXPECT_FALSE(NamedCaptionPalette::resolve("brandPrimary", nullptr));
    EXPECT_FALSE(NamedCaptionPalette::resolve("mauve", &brand));
}

}   // namespace
}   // namespace tavix
