// What mends a finding: the finding is gone, nothing else came, and nothing else of the document changed.
#include "TavixCore/Judge/Repair.h"
#include "TavixCore/Judge/CompositionLint.h"
#include "TavixCore/Judge/CompositionRoad.h"
#include "TavixCore/Judge/Muting.h"
#include "TavixCore/Judge/PassedOver.h"
#include "TavixCore/Paths/Difference.h"
#include "TavixCore/Support/Document.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace tavix::CompositionLint {
namespace {

std::vector<Finding> judged(const Json& written) {
    auto arrival = CompositionRoad::judge(decodeValue<CompositionSpec>(written), std::nullopt);
    std::vector<Finding> all = passedOver(written);
    std::ranges::move(arrival.findings(), std::back_inserter(all));
    return all;
}

std::string withLayer(const std::string& layer) {
    return R"({"output": {"widthPx": 1920, "heightPx": 1080, "fps": 30}, "scenes": [{"durationSec": 4,
        "layers": [{"kind": "shape"}, )" +
           layer + "]}]}";
}

TEST(Repair, TakesTheFindingAwayAndNothingElse) {
    const struct {
        std::string document;
        const char *code, *patch;
    } cases[] = {
        {withLayer(R"({"kind": "shape", "opcity": 0.5})"), "key-unknown",
            R"([{"op": "move", "from": "/scenes/0/layers/1/opcity", "path": "/scenes/0/layers/1/opacity"}])"},
        {withLayer(R"({"kind": "shape", "effects": [{"kind": "glwo"}]})"), "effect-unknown",
            R"([{"op": "replace", "path": "/scenes/0/layers/1/effects/0/kind", "value": "glow"}])"},
        {withLayer(R"({"kind": "shape", "effects": [{"kind": "blur", "radiusFraction": 0.5}]})"),
            "effect-range", nullptr},
        {withLayer(R"({"kind": "shape", "tracks": [{"property": "opacity",
            "keyframes": [{"t": 0, "value": 1.5}]}]})"),
            "opacity-range",
            R"([{"op": "replace", "path": "/scenes/0/layers/1/tracks/0/keyframes/0/value", "value": 1}])"},
        {withLayer(R"({"kind": "text", "text": {"text": "Hi", "kinetic": {"preset": "fade-upp"}}})"),
            "animation-unknown",
            R"([{"op": "replace", "path": "/scenes/0/layers/1/text/kinetic/preset", "value": "fade-up"}])"},
        {withLayer(R"({"kind": "text", "text": {"text": "Hi", "alignment": "middle"}})"), "alignment-unknown",
            R"([{"op": "replace", "path": "/scenes/0/layers/1/text/alignment", "value": "center"}])"},
        {withLayer(R"({"kind": "device", "device": {"screen": {"kind": "still", "path": "a.png"},
            "motionPreset": {"preset": "reveall"}}})"),
            "value-dropped",
            R"([{"op": "replace", "path": "/scenes/0/layers/1/device/motionPreset/preset", "value": "reveal"}])"},
        {R"({"audio": {"music": {"path": "song.m4a", "gain": -1}}, "scenes": [{"durationSec": 2}]})",
            "value-limited", R"([{"op": "replace", "path": "/audio/music/gain", "value": 0}])"},
        {R"({"audio": {"cues": [{"atSec": 0, "sound": "wosh"}]}, "scenes": [{"durationSec": 2}]})",
            "sound-unknown", nullptr},
        {R"({"scenes": [{"durationSec": 2, "transition": {"style": "fde", "durationSec": 0.5}},
            {"durationSec": 2}]})",
            "word-unknown", R"([{"op": "replace", "path": "/scenes/0/transition/style", "value": "fade"}])"},
        // At 120 beats a minute a cut belongs on a half second.
        {R"({"audio": {"music": {"path": "song.m4a", "bpm": 120}}, "scenes": [{"durationSec": 2.2},
            {"durationSec": 2}]})",
            "cut-off-beat", R"([{"op": "replace", "path": "/scenes/0/durationSec", "value": 2}])"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.code);
        const Json written = parseJson(c.document);
        const std::vector<Finding> before = judged(written);
        const auto finding = std::ranges::find(before, c.code, &Finding::code);
        ASSERT_NE(finding, before.end());
        const JsonPatch repair = repairOf(*finding, written);
        ASSERT_EQ(repair.size(), 1u);
        if (c.patch) {
            EXPECT_EQ(writePatch(repair), parseJson(c.patch));
        }
        std::vector<Finding> left = before;
        left.erase(left.begin() + (finding - before.begin()));
        EXPECT_EQ(judged(applyPatch(repair, written)), left);
    }
}

TEST(Repair, IsKeptBackWhereItIsNotCertain) {
    const struct {
        std::string document;
        const char* code;
    } cases[] = {
        // Both would be one.
        {withLayer(R"({"kind": "shape", "opcity": 0.5, "opacity": 1})"), "key-unknown"},
        // No word is near.
        {withLayer(R"({"kind": "shape", "effects": [{"kind": "sparkles"}]})"), "effect-unknown"},
        {withLayer(R"({"kind": "shape", "zzz": 1})"), "key-unknown"},
        // A scene in beats is as long as its beats.
        {R"({"audio": {"music": {"path": "song.m4a", "bpm": 120}}, "scenes": [{"durationSec": 0.2},
            {"durationSec": 2}]})",
            "cut-off-beat"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.document);
        const Json written = parseJson(c.document);
        const std::vector<Finding> found = judged(written);
        const auto finding = std::ranges::find(found, c.code, &Finding::code);
        ASSERT_NE(finding, found.end());
        EXPECT_TRUE(repairOf(*finding, written).empty());
    }
}

TEST(Repair, FindsKeysThatHoldWhatPathsAreMadeOf) {
    const Json written = parseJson(R"({"fonts": {"a.b": 1, "a": {"b": 2}, "c[0]": [3]}, "x": [{"y": 1}]})");
    EXPECT_EQ(pointerOf("fonts.a.b", written).text(), "/fonts/a.b");
    EXPECT_EQ(pointerOf("fonts.c[0][0]", written).text(), "/fonts/c[0]/0");
    EXPECT_EQ(pointerOf("x[0].y", written).text(), "/x/0/y");
    EXPECT_EQ(pointerOf("x[0].new", written).text(), "/x/0/new");
    EXPECT_EQ(pointerOf("", written).text(), "");
}

// The layers of a formation are not where rules see them; what is written of them is.
TEST(Repair, StandsWhereItsAuthorWrote) {
    const Json written = parseJson(withLayer(R"({"kind": "device", "device": {
        "screen": {"kind": "still", "path": "a.png"}, "choreographyPreset": {"preset": "row-split"}}},
        {"kind": "text", "text": {"text": "Hi", "kinetic": {"preset": "fade-upp"}}})"));
    for (const Finding& finding : judged(written)) {
        const JsonPatch repair = repairOf(finding, written);
        if (repair.empty()) continue;
        EXPECT_EQ(repair[0].path.text(), "/scenes/0/layers/2/text/kinetic/preset");
        EXPECT_NO_THROW(applyPatch(repair, written));
    }
}

}   // namespace
}   // namespace tavix::CompositionLint
