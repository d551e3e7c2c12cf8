// The codes of rules, muting by them, what is written in vain, and the formations that style spares.
#include "TavixCore/Findings/LintRule.h"
#include "TavixCore/Judge/CompositionLint.h"
#include "TavixCore/Judge/FormationMembers.h"
#include "TavixCore/Judge/IgnoredBesideMotion.h"
#include "TavixCore/Judge/Muting.h"
#include "TavixCore/Judge/PassedOver.h"
#include "TavixCore/Judge/WithoutEffect.h"
#include "TavixCore/Support/Document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace tavix::CompositionLint {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> codesOf(const std::vector<Finding>& findings) {
    std::vector<std::string> codes;
    for (const Finding& finding : findings) codes.emplace_back(finding.code);
    return codes;
}
std::vector<std::string> pathsOf(const std::vector<Finding>& findings) {
    std::vector<std::string> paths;
    for (const Finding& finding : findings) paths.push_back(finding.path);
    return paths;
}

// A document of one scene with these layers.
std::string documentOf(const std::string& layers) {
    return R"({"output": {"widthPx": 1920, "heightPx": 1080, "fps": 30},
        "scenes": [{"durationSec": 4, "layers": [)" +
           layers + "]}]}";
}

std::string device(const std::string& more, const std::string& beside = "") {
    return R"({"kind": "device", "id": "hero", )" + beside +
           R"( "device": {"screen": {"kind": "still", "path": "a.png"})" + (more.empty() ? "" : ", " + more) +
           "}}";
}

TEST(LintRules, HaveCodesOfTheirOwnAndFinishedSentences) {
    std::set<std::string_view> codes;
    for (const RuleEntry& entry : rules()) {
        SCOPED_TRACE(entry.code);
        EXPECT_TRUE(codes.insert(entry.code).second);
        EXPECT_EQ(entry.code.find_first_not_of("abcdefghijklmnopqrstuvwxyz-"), std::string_view::npos);
        EXPECT_EQ(ruleOf(entry.code), entry.rule);
        for (const std::string_view sentence : {entry.tells, entry.repair}) {
            EXPECT_TRUE(sentence.ends_with('.'));
            EXPECT_TRUE(sentence.front() >= 'A' && sentence.front() <= 'Z');
        }
    }
    EXPECT_EQ(ruleOf("no-such-rule"), std::nullopt);
}

TEST(LintRules, AreMutedByCodeAndTheRestIsTold) {
    const std::vector<Finding> all{findingOf(Rule::textSmall, "a", "Small."),
        findingOf(Rule::sceneLong, "b", "Long."), findingOf(Rule::textSmall, "c", "Small."),
        findingOf(Rule::unreadable, "", "Broken.")};
    const std::vector<MutedCode> mute{
        {"text-small", "lint.mute[0]"}, {"scene-logn", "lint.mute[1]"}, {"unreadable", {}}};
    const Told result = told(all, mute);
    EXPECT_THAT(codesOf(result.findings), ElementsAre("scene-long", "unreadable", "mute-unknown"));
    EXPECT_EQ(result.findings.back().path, "lint.mute[1]");
    EXPECT_EQ(result.findings.back().suggestion, "Did you mean \"scene-long\"?");
    EXPECT_EQ(result.mutedNote(), "2 findings are muted: text-small.");
    EXPECT_EQ(told(all, {}).mutedNote(), "");
}

TEST(LintRules, OfADocumentAreKeptByTheWriter) {
    const char* const json = R"({"scenes": [], "lint": {"mute": ["text-small", "from a later version"]}})";
    const auto spec = decodeJson<CompositionSpec>(json);
    ASSERT_TRUE(spec.lint);
    EXPECT_THAT(spec.lint->mute, ElementsAre("text-small", "from a later version"));
    EXPECT_EQ(decodeJson<CompositionSpec>(encodedJson(spec)), spec);
    EXPECT_THAT(encodedJson(CompositionSpec{}), testing::Not(HasSubstr("lint")));
}

TEST(WithoutEffect, IsToldOfParametersAndOfWords) {
    const auto told = [](const std::string& scene) {
        std::vector<std::string> found;
        for (const Finding& finding : withoutEffect(parseJson("{\"scenes\": [" + scene + "]}")))
            found.push_back(finding.path + ": " + finding.message);
        return found;
    };
    const std::string params = R"("params": {"amplitude": 20, "scale": 1.3, "rotatoin": 2}})";
    EXPECT_THAT(told(R"({"transition": {"style": "push", )" + params + "}"),
        ElementsAre(
            "scenes[0].transition.params.amplitude: amplitude has no effect on a push, which has no parameters.",
            "scenes[0].transition.params.scale: scale has no effect on a push, which has no parameters."));
    EXPECT_THAT(told(R"({"transition": {"style": "dreamyZoom", )" + params + "}"),
        ElementsAre(
            "scenes[0].transition.params.amplitude: amplitude has no effect on a dreamyZoom, which has "
            "rotation, scale."));
    EXPECT_THAT(told(R"({"layers": [{"kind": "text", "text": {"text": "Two words",
                     "emphasis": [{"wordIndices": [0, 1, 7, -1]}]}}]})"),
        ElementsAre("scenes[0].layers[0].text.emphasis[0].wordIndices[2]: There is no word 7: the text has 2 "
                    "words, counted from 0.",
            "scenes[0].layers[0].text.emphasis[0].wordIndices[3]: There is no word -1: the text has 2 words, "
            "counted from 0."));
    EXPECT_THAT(told(R"({"transition": {"params": 3}, "layers": {"text": 4}}, 5)"), ElementsAre());
}

TEST(IgnoredBesideMotion, IsToldKeyByKey) {
    const std::string motion = R"("motionPreset": {"preset": "reveal"})",
                      flat = R"("motionPreset": {"preset": "spin-out"})";
    const std::string fan = R"("choreographyPreset": {"preset": "fanDeck"})";
    const std::string track = R"("tracks": [{"property": "x", "keyframes": [{"value": 0.1}]}],)";
    const std::string scene = R"("scene3D": {"finish": "deepBlue", "cameraDistance": 2, "driftDegrees": 1})";
    const std::string aside = R"("position": {"x": 300, "y": 400},)",
                      middle = R"("position": {"x": 960, "y": 540},)";
    const std::string at = "scenes[0].layers[0].";
    const struct {
        const char* name;
        std::string layer;
        std::vector<std::string> paths;   // below the layer
    } cases[] = {
        {"a plain device", device(scene, track), {}},
        {"a motion alone", device(motion), {}},
        {"a finish beside a motion", device(motion + R"(, "scene3D": {"finish": "deepBlue"})"), {}},
        {"tracks and a phase", device(motion, track + R"("enter": {"durationSec": 1},)"),
            {"enter", "tracks"}},
        {"empty tracks", device(motion, R"("tracks": [], "enter": null,)"), {}},
        {"an exit, which stays", device(motion, R"("exit": {"durationSec": 1},)"), {}},
        {"a placement", device(motion + R"(, "placement": {"track": [{"tSec": 0}]})"), {"device.placement"}},
        {"a scene", device(motion + ", " + scene),
            {"device.scene3D.cameraDistance", "device.scene3D.driftDegrees"}},
        {"a scene beside a flat motion", device(flat + ", " + scene), {"device.scene3D"}},
        {"a formation", device(fan + ", " + scene, track + R"("durationSec": 2,)"),
            {"durationSec", "tracks", "device.scene3D.cameraDistance", "device.scene3D.driftDegrees"}},
        {"a motion beside a formation", device(fan + ", " + motion), {"device.motionPreset"}},
        {"an unknown motion", device(R"("motionPreset": {"preset": "no-such"})", track), {}},
        {"a device aside", device("", aside), {"position"}},
        {"a device in space aside", device(scene, aside), {"position"}},
        {"in the middle", device("", middle), {}},
        {"turned about its position", device("", aside + R"("enter": {"durationSec": 1, "scale": 0.5},)"),
            {}},
        {"a video aside", R"({"kind": "video", )" + aside + R"( "video": {"path": "a.mp4"}})", {"position"}},
        {"a shape aside", R"({"kind": "shape", "position": {"x": 300, "y": 400}})", {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        std::vector<std::string> expected;
        for (const std::string& path : c.paths) expected.push_back(at + path);
        const std::vector<Finding> found = ignoredBesideMotion(parseJson(documentOf(c.layer)));
        EXPECT_THAT(pathsOf(found), ElementsAreArray(expected));
        for (const Finding& finding : found) EXPECT_EQ(finding.code, "key-ignored");
    }
}

TEST(PassedOver, IsToldWithWhatIsLegalAndWhatMayBeMeant) {
    const std::string at = "scenes[0].layers[0].";
    const struct {
        std::string layer;
        const char *code, *path, *says, *suggestion;   // below the layer
    } cases[] = {
        {R"({"kind": "shape", "opcity": 0.5})", "key-unknown", "opcity", "\"opcity\" is no key here",
            "Did you mean \"opacity\"?"},
        {R"({"kind": "text", "text": {"text": "a", "fontWeight": "blod"}})", "word-unknown",
            "text.fontWeight", "\"blod\" is not known here and is read as", "Did you mean \"bold\"?"},
        {device(R"("choreographyPreset": {"preset": "fanDeck", "params": {"count": 90}})"), "value-limited",
            "device.choreographyPreset.params.count", "90 is read as 8; it must be between 2 and 8.",
            nullptr},
        {device(R"("motionPreset": {"preset": "herorise"})"), "value-dropped", "device.motionPreset.preset",
            "There is no motion \"herorise\"", "Did you mean \"heroRise\"?"},
        {device(R"("choreographyPreset": {"preset": "fandek"})"), "value-dropped",
            "device.choreographyPreset.preset", "Use one of fanDeck, uiBurst", "Did you mean \"fanDeck\"?"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.layer);
        const std::vector<Finding> found = passedOver(parseJson(documentOf(c.layer)));
        ASSERT_EQ(found.size(), 1u);
        EXPECT_EQ(found[0].code, c.code);
        EXPECT_EQ(found[0].path, at + c.path);
        EXPECT_THAT(found[0].message, HasSubstr(c.says));
        EXPECT_EQ(
            found[0].suggestion, c.suggestion ? std::optional<std::string>(c.suggestion) : std::nullopt);
    }
    EXPECT_THAT(
        passedOver(parseJson(documentOf(device(R"("motionPreset": {"preset": "reveal"})")))), IsEmpty());
}

TEST(AuthoredFinish, SurvivesMotionsAndFormations) {
    for (const char* const name : {R"("motionPreset": {"preset": "reveal"})",
             R"("motionPreset": {"preset": "hover-float"})", R"("choreographyPreset": {"preset": "fanDeck"})",
             R"("choreographyPreset": {"preset": "uiBurst"})"}) {
        SCOPED_TRACE(name);
        const auto finishesWith = [&](const std::string& more) {
            std::vector<DeviceFinish> finishes;
            const auto spec = decodeJson<CompositionSpec>(documentOf(device(name + more)));
            for (const CompositionLayer& layer : spec.scenes[0].layers)
                if (const auto* content = std::get_if<DeviceContent>(&layer.content))
                    if (content->scene3D) finishes.push_back(content->scene3D->finish);
            return finishes;
        };
        EXPECT_THAT(finishesWith(R"(, "scene3D": {"finish": "cosmicOrange", "driftDegrees": 9})"),
            testing::AllOf(testing::Not(IsEmpty()), testing::Each(DeviceFinish::cosmicOrange)));
        EXPECT_THAT(finishesWith(""), testing::Each(DeviceFinish::silver));
    }
    const auto spec = decodeJson<CompositionSpec>(documentOf(device(
        R"("motionPreset": {"preset": "reveal"}, "scene3D": {"finish": "deepBlue", "driftDegrees": 9})")));
    EXPECT_EQ(std::get<DeviceContent>(spec.scenes[0].layers[0].content).scene3D->driftDegrees, 0)
        << "all but the finish is the motion's";
}

TEST(StyleRules, CountAFormationOnce) {
    const auto styleOf = [](const std::string& layers) {
        std::vector<std::string> codes;
        for (const Finding& finding : lint(decodeJson<CompositionSpec>(documentOf(layers))))
            if (finding.code == codeOf(Rule::spaceCost) || finding.code == codeOf(Rule::twoFocalPoints))
                codes.emplace_back(finding.code);
        return codes;
    };
    const std::string plain = device(R"("scene3D": {})");
    for (const char* const name : {"fanDeck", "uiBurst", "orbitCarousel", "colorwayDomino",
             "ecosystemHandoff", "infiniteTunnel", "screenCascade", "splitFocus", "depthWave"}) {
        SCOPED_TRACE(name);
        const std::string formation =
            device(R"("choreographyPreset": {"preset": ")" + std::string(name) + "\"}");
        EXPECT_THAT(styleOf(formation), IsEmpty());
        EXPECT_THAT(styleOf(formation + ", " + plain), testing::Contains("two-focal-points"));
        const auto written = encodedJson(decodeJson<CompositionSpec>(documentOf(formation)));
        for (const Finding& finding : lint(decodeJson<CompositionSpec>(written)))
            EXPECT_NE(finding.code, "two-focal-points") << "also once it is written back";
    }
    EXPECT_THAT(styleOf(plain + ", " + plain), ElementsAre("space-cost", "two-focal-points"));
}

TEST(FormationMembers, StandTogetherUnderIdsThatFormationsGive) {
    const auto membersOf = [](const std::vector<std::string>& ids) {
        CompositionScene scene;
        for (const std::string& id : ids) {
            scene.layers.emplace_back();
            if (!id.empty()) scene.layers.back().id = id;
        }
        return formationOfEachLayer(scene);
    };
    constexpr std::size_t no = noFormation;
    EXPECT_THAT(membersOf({"fan-0", "fan-1"}), ElementsAre(0, 0));
    EXPECT_THAT(membersOf({"", "hero-fan-0", "hero-fan-1", "x"}), ElementsAre(no, 1, 1, no));
    EXPECT_THAT(membersOf({"a-fan-0", "b-fan-1"}), ElementsAre(no, no));
    EXPECT_THAT(membersOf({"fan-0", "", "fan-1"}), ElementsAre(no, no, no));
    EXPECT_THAT(membersOf({"burst-phone", "burst-card-0", "burst-card-1"}), ElementsAre(0, 0, 0));
    EXPECT_THAT(membersOf({"elephant-fan", "fan-", "turbofan-0", "turbofan-1"}), ElementsAre(no, no, no, no));
    EXPECT_THAT(membersOf({"fan-0", "fan-1", "fan-0", "fan-1"}), ElementsAre(0, 0, 2, 2)) << "two of a kind";
    EXPECT_THAT(membersOf({"fan-3", "fan-1", "fan-9"}), ElementsAre(no, no, no)) << "not as formations count";
}

// Whatever the ids say: the layers of the document know what they were made of.
TEST(FormationMembers, KnowTheFormationThatTheyWereMadeOf) {
    const auto membersOf = [](const std::string& layers) {
        const auto spec = decodeJson<CompositionSpec>(documentOf(layers));
        return formationOfEachLayer(spec.scenes[0]);
    };
    const std::string split =
        device(R"("choreographyPreset": {"preset": "splitFocus", "params": {"count": 2}})");
    const auto handMade = [](const std::string& id) { return R"({"id": ")" + id + R"(", "kind": "shape"})"; };
    constexpr std::size_t no = noFormation;
    EXPECT_THAT(membersOf(split + ", " + split), ElementsAre(0, 0, 2, 2)) << "two formations, side by side";
    EXPECT_THAT(
        membersOf(split + ", " + handMade("split-2") + ", " + handMade("x")), ElementsAre(0, 0, no, no));
}

}   // namespace
}   // namespace tavix::CompositionLint
