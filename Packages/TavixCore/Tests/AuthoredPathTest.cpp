#include "TavixCore/Findings/AuthoredPath.h"

#include "TavixCore/Judge/CompositionRoad.h"
#include "TavixCore/Support/Document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

namespace tavix {
namespace {

using ::testing::Contains;
using ::testing::Not;
using ::testing::StartsWith;

// A formation of five phones before a text whose size is no size, and a phone with a named motion.
constexpr const char* document = R"({"scenes": [{"durationSec": 5, "layers": [
    {"kind": "device", "effects": [{"kind": "blur", "radiusFraction": 7}],
     "device": {"screen": {"kind": "still", "path": ""}, "choreographyPreset": {"preset": "depthWave"}}},
    {"kind": "image", "image": {"path": ""}},
    {"kind": "device", "device": {"screen": {"kind": "still", "path": ""},
     "motionPreset": {"preset": "rise-up"}}}]}]})";

std::vector<std::string> pathsOf(const std::vector<CompositionLint::Finding>& findings) {
    std::vector<std::string> paths;
    std::ranges::transform(
        findings, std::back_inserter(paths), [](const CompositionLint::Finding& f) { return f.path; });
    return paths;
}

TEST(AuthoredPath, NamesTheLayersThatTheAuthorWroteAndEachProblemOnce) {
    const auto arrival = CompositionRoad::read(document, std::nullopt);
    ASSERT_GT(arrival.spec.scenes[0].layers.size(), 6u) << "the formation is not there";
    const std::vector<std::string> paths = pathsOf(arrival.findings());
    for (const char* wanted :
        {"scenes[0].layers[0].device.screen", "scenes[0].layers[0].effects[0].radiusFraction",
            "scenes[0].layers[1].image.path", "scenes[0].layers[2].device.screen"})
        EXPECT_EQ(std::ranges::count(paths, wanted), 1) << wanted;
    EXPECT_THAT(paths, Not(Contains(StartsWith("scenes[0].layers[3"))));
}

TEST(AuthoredPath, NamesThePresetWhereItSpeaksForTheAuthor) {
    const CompositionSpec spec = decodeJson<CompositionSpec>(document);
    const std::size_t last = spec.scenes[0].layers.size() - 1;
    const std::string motion = "scenes[0].layers[" + std::to_string(last) + "].";
    const struct {
        std::string read, written;
    } cases[] = {
        {"scenes[0].layers[4].device.placement.track[1].value",
            "scenes[0].layers[0].device.choreographyPreset"},
        {"scenes[0].layers[1].position", "scenes[0].layers[0].device.choreographyPreset"},
        {"scenes[0].layers[1]", "scenes[0].layers[0]"},
        {"scenes[0].layers[1].effects[0]", "scenes[0].layers[0].effects[0]"},
        {motion + "tracks[0].keyframes", "scenes[0].layers[2].device.motionPreset"},
        {motion + "tracksmith", "scenes[0].layers[2].tracksmith"},
        {motion + "position", "scenes[0].layers[2].position"},
        {"scenes[0].layers", "scenes[0].layers"},
        {"scenes[7].layers[0]", "scenes[7].layers[0]"},
        {"scenes[0].layers[99].id", "scenes[0].layers[99].id"},
        {"scenes[0].layers[x].id", "scenes[0].layers[x].id"},
        {"", ""},
    };
    for (const auto& c : cases) EXPECT_EQ(CompositionLint::authoredPath(c.read, spec), c.written);
}

TEST(AuthoredPath, LeavesDocumentsThatWereNeverReadAlone) {
    CompositionSpec made = decodeJson<CompositionSpec>(document);
    for (CompositionLayer& layer : made.scenes[0].layers) layer.origin = {};
    EXPECT_EQ(CompositionLint::authoredPath("scenes[0].layers[4].id", made), "scenes[0].layers[4].id");
}

}   // namespace
}   // namespace tavix
