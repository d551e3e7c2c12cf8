#include "TavixCore/Judge/CompositionRoad.h"

#include "TavixCore/Support/Document.h"
#include "TavixCore/Time/CompositionBeats.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

std::optional<Timeline> noSidecar(const std::filesystem::path&) { return std::nullopt; }
std::optional<Timeline> oneTap(const std::filesystem::path&) {
    return Timeline{.events = {{.type = "tap", .tSec = 3, .label = "Open"}}};
}

// A text that starts on a beat and ends at a mark, over a phone.
std::string documentWith(const std::string& sceneKeys) {
    return R"({"audio": {"music": {"path": "a.mp3", "bpm": 120}}, "scenes": [{)" + sceneKeys +
           R"("layers": [{"kind": "device", "device": {"screen": {"kind": "video", "path": "rec.mov"}}},
                         {"kind": "text", "fromBeat": 4, "toMark": "Open"}]}]})";
}

TEST(CompositionRoad, ResolvesBeatsBeforeMarks) {
    const auto arrival = CompositionRoad::read(documentWith(R"("durationBeats": 12, )"), "/bundle", oneTap);
    EXPECT_TRUE(arrival.isResolved());
    EXPECT_EQ(arrival.spec.scenes[0].durationSec, 6);
    EXPECT_EQ(arrival.spec.scenes[0].layers[1].fromSec, 2);
    EXPECT_EQ(arrival.spec.scenes[0].layers[1].durationSec, 1);
}

TEST(CompositionRoad, DropsAllOnOneError) {
    const std::string document = documentWith(R"("durationBeats": 12, )");
    const auto asRead = decodeJson<CompositionSpec>(document);
    const auto arrival = CompositionRoad::read(document, "/bundle", noSidecar);
    EXPECT_FALSE(arrival.isResolved());
    EXPECT_FALSE(arrival.mayRender());
    EXPECT_EQ(arrival.spec, asRead);
    ASSERT_FALSE(arrival.findings().empty());
    EXPECT_EQ(arrival.findings().front(), arrival.resolving.front());
    EXPECT_EQ(arrival.findings().size(), arrival.resolving.size() + arrival.linting.size());
}

// Six scenes in beats, with a text in each that begins on the scene's second beat, and one fault of clocks.
std::string sixScenes(const std::string& faultOfTheSecond) {
    std::string scenes;
    for (int i = 0; i < 6; ++i)
        scenes += std::string(i ? "," : "") + R"({"durationBeats": 4, )" + (i == 1 ? faultOfTheSecond : "") +
                  R"("layers": [{"kind": "text", "text": {"text": "Hello"}, "fromBeat": )" +
                  std::to_string(4 * i + 1) + "}]}";
    return R"({"audio": {"music": {"path": "a.mp3", "bpm": 120}}, "scenes": [)" + scenes + "]}";
}

TEST(CompositionRoad, TellsAFaultOfClocksAndNothingThatFollowsFromIt) {
    EXPECT_TRUE(CompositionRoad::read(sixScenes(""), std::nullopt).findings().empty());
    // A length that was meant to go: every later text would lie outside its scene.
    const auto arrival = CompositionRoad::read(sixScenes(R"("durationSec": 9, )"), std::nullopt);
    ASSERT_EQ(arrival.findings().size(), 1u);
    EXPECT_EQ(arrival.findings().front().path, "scenes[1].durationBeats");
    EXPECT_EQ(arrival.findings().front().code, "two-clocks");
    // What has nothing to do with it is told beside it: a colour, and an earlier moment.
    const auto others = CompositionRoad::read(
        sixScenes(R"("durationSec": 9, "transition": {"style": "fade", "durationSec": -1}, )"), std::nullopt);
    EXPECT_EQ(others.findings().size(), 2u);
}

TEST(CompositionRoad, GoesOnWithWarnings) {
    const auto arrival = CompositionRoad::read(R"({"audio": {"music": {"bpm": 120}}, "scenes": [
        {"durationBeats": 4, "layers": [{"kind": "device", "device": {
            "placement": {"track": [{"tSec": 5}]}}}]}]})",
        std::nullopt);
    EXPECT_EQ(arrival.resolving.size(), 1u);
    EXPECT_TRUE(arrival.isResolved());
    EXPECT_EQ(arrival.spec.scenes[0].durationSec, 2);
}

// A document without a folder has no recordings beside it.
TEST(CompositionRoad, KeepsMarksWithoutAFolder) {
    const auto made = CompositionRoad::resolve(
        decodeJson<CompositionSpec>(documentWith(R"("durationSec": 6, )")), std::nullopt, oneTap);
    EXPECT_TRUE(made.findings.empty());
    EXPECT_FALSE(CompositionBeats::containsBeatRefs(made.spec));
    EXPECT_TRUE(made.spec.scenes[0].layers[1].toMark);
}

TEST(CompositionRoad, JudgesWhatItKept) {
    const auto arrival = CompositionRoad::judge({}, std::nullopt);
    EXPECT_TRUE(arrival.isResolved());
    EXPECT_FALSE(arrival.mayRender());   // no scenes
    EXPECT_THROW(CompositionRoad::read("{", std::nullopt), DecodingError);
}

}   // namespace
}   // namespace tavix
