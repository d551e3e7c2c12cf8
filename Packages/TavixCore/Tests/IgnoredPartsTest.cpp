#include "TavixCore/Findings/IgnoredParts.h"
#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Tests/SchemaDocument.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

using Reason = IgnoredPart::Reason;

std::string inWords(const IgnoredPart& part) {
    switch (part.reason) {
    case Reason::unknownKey: return "key " + part.path + " near '" + std::string(part.nearest) + "'";
    case Reason::unknownWord:
        return "word " + part.path + " '" + part.found + "' read as '" + std::string(part.taken) +
               "' near '" + std::string(part.nearest) + "'";
    case Reason::clamped:
        return "clamped " + part.path + " " + writeJson(part.value) + " to " +
               writeJson(JsonArray{part.limits.clamp(part.value)});
    case Reason::unreadable: return "unreadable " + part.path + ": " + part.message;
    }
    return {};
}

// A scene of one layer, with the text around it that a test wants.
std::string layered(const std::string& layer) { return R"({"scenes": [{"layers": [)" + layer + "]}]}"; }

TEST(IgnoredParts, AreNamedWithTheirPathAndWhatWasMeant) {
    const struct {
        std::string json;
        const char* said;   // nothing: all of it counts
    } cases[] = {
        {R"({"schemaVersion": 1, "scenes": []})", ""},
        {R"({"sceens": []})", "key sceens near 'scenes'"},
        {R"({"comment": "mine"})", "key comment near ''"},
        {R"({"audio": {"music": {"path": "a.wav", "fadeinSec": 1}}})",
            "key audio.music.fadeinSec near 'fadeInSec'"},
        {R"({"audio": {"music": {"path": "a.wav", "gain": -2}}})",
            "clamped audio.music.gain -2 to [\n  0\n]"},
        // The keys of a layer are its own and those of its kind.
        {layered(R"({"kind": "text", "text": {"text": "a"}, "opacity": 0.5})"), ""},
        {layered(R"({"kind": "text", "text": {}, "device": {}})"), "key scenes[0].layers[0].device near ''"},
        {layered(R"({"kind": "text", "text": {"colour": {}}})"),
            "key scenes[0].layers[0].text.colour near 'color'"},
        // An effect of an unknown kind is kept, and lint speaks of it.
        {layered(R"({"kind": "shape", "effects": [{"kind": "glitter", "amount": 3}]})"), ""},
        {layered(R"({"kind": "shape", "effects": [{"kind": "blur", "radius": 3}]})"),
            "key scenes[0].layers[0].effects[0].radius near ''"},
        // A limit that reading leaves alone is the linter's.
        {layered(R"({"kind": "shape", "effects": [{"kind": "blur", "radiusFraction": 3}]})"), ""},
        {layered(R"({"kind": "text", "text": {"fontWeight": "bolt"}})"),
            "word scenes[0].layers[0].text.fontWeight 'bolt' read as 'regular' near 'bold'"},
        {layered(R"({"kind": "text", "text": {"kinetic": {"preset": "rise", "speed": "fast"}}})"),
            "word scenes[0].layers[0].text.kinetic.speed 'fast' read as 'smooth' near ''"},
        {R"({"scenes": [{"transition": {"style": "fad"}}]})",
            "word scenes[0].transition.style 'fad' read as 'fade' near 'fade'"},
        {layered(R"({"kind": "device", "device": {"screen": {"kind": "film", "path": "a.mov"}}})"),
            "word scenes[0].layers[0].device.screen.kind 'film' read as 'still' near ''"},
        {layered(R"({"kind": "device", "device": {"motionPreset": {"preset": "no-such"}}})"),
            "unreadable scenes[0].layers[0].device.motionPreset: Unknown device motion preset \"no-such\"."},
        {layered(R"({"kind": "device", "device": {"choreographyPreset":
             {"preset": "fanDeck", "params": {"count": 90}}}})"),
            "clamped scenes[0].layers[0].device.choreographyPreset.params.count 90 to [\n  8\n]"},
        // A mark by its name alone, and a mark in full.
        {layered(R"({"kind": "shape", "fromMark": "tap"})"), ""},
        {layered(R"({"kind": "shape", "fromMark": {"mark": "tap", "offset": 1}})"),
            "key scenes[0].layers[0].fromMark.offset near ''"},
        {R"({"fonts": {"any name": "is a key of the author's"}})", ""},
        // What reading refuses, it speaks of itself.
        {R"({"scenes": 3, "audio": []})", ""},
        {layered(R"({"kind": 7, "other": 1})"), ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.json);
        std::string said;
        for (const IgnoredPart& part : ignoredParts<CompositionSpec>(parseJson(c.json)))
            said.append(said.empty() ? "" : "; ").append(inWords(part));
        EXPECT_EQ(said, c.said);
    }
}

TEST(IgnoredParts, ComeWithAllThatIsLegal) {
    const auto ofKey = ignoredParts<SceneTransition>(parseJson(R"({"duration": 1})"));
    ASSERT_EQ(ofKey.size(), 1u);
    EXPECT_EQ(ofKey[0].legal,
        (std::vector<std::string_view>{"style", "durationSec", "durationBeats", "curve", "params"}));
    const auto ofWord = ignoredParts<TimingCurve>(parseJson(R"({"kind": "ease"})"));
    ASSERT_EQ(ofWord.size(), 1u);
    EXPECT_EQ(ofWord[0].legal, (std::vector<std::string_view>{"linear", "bezier", "spring"}));
}

// Whatever our own writer says counts; and without the ignored keys a document reads as it did with them.
TEST(IgnoredParts, AreNoneInWhatIsWritten) {
    const SchemaDocument schema(schemaOf<CompositionSpec>("T"));
    SeededRandom dice("ignored");
    for (int i = 0; i < 150; ++i) {
        const Json made = schema.random(dice, SchemaDocument::Manner::tame);
        const Json written = Codec<CompositionSpec>::write(decodeValue<CompositionSpec>(made));
        for (const IgnoredPart& part : ignoredParts<CompositionSpec>(written))
            ADD_FAILURE() << inWords(part) << " in " << writeJson(written);
    }
}

}   // namespace
}   // namespace tavix
