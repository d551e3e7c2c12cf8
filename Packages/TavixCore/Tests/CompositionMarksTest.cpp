#include "TavixCore/Time/CompositionMarks.h"

#include "TavixCore/Support/Document.h"
#include "TavixCore/Tests/SchemaDocument.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace tavix {
namespace {

namespace fs = std::filesystem;
using CompositionLint::Finding;
using CompositionLint::Level;

const Timeline recording{.video = {100, 200, 60},
    .events = {{.index = 0, .type = "tap", .tSec = 3, .label = "Open"},
        {.index = 1, .type = "tap", .tSec = 4, .label = "Save", .actionSec = 4.5},
        {.index = 2, .type = "scroll", .tSec = 6, .label = "List", .actionSec = 6.25, .endSec = 8},
        {.index = 3, .type = "tap", .tSec = 9, .label = "Twin"},
        {.index = 4, .type = "tap", .tSec = 10, .label = "Twin"}, {.index = 5, .type = "tap", .tSec = 11}}};

std::optional<Timeline> sidecars(const fs::path& file) {
    if (file == "/bundle/bare.timeline.json") return Timeline{};
    if (file == "/bundle/rec.timeline.json" || file == "/else/rec.timeline.json") return recording;
    return std::nullopt;
}

// One scene. The phone plays from second 1 of the recording, and starts at second 2 of the scene.
CompositionSpec sceneOf(const std::string& layers) {
    return decodeJson<CompositionSpec>(R"({"scenes": [{"durationSec": 20, "layers": [)" + layers + "]}]}");
}
std::string device(const std::string& layerKeys, const std::string& deviceKeys = "") {
    return R"({"kind": "device", "fromSec": 2)" + layerKeys +
           R"(, "device": {"screen": {"kind": "video", "path": "rec.mov", "trimStartSec": 1})" + deviceKeys +
           "}}";
}
const std::string phone = device(R"(, "id": "phone")");

CompositionResolution resolve(const CompositionSpec& spec) {
    return CompositionMarks::resolve(spec, "/bundle", sidecars);
}

TEST(CompositionMarks, LieNextToTheirClip) {
    EXPECT_EQ(CompositionMarks::sidecarFile("a/rec.mov"), "a/rec.timeline.json");
    EXPECT_EQ(CompositionMarks::sidecarFile("a.b/rec.cut.mp4"), "a.b/rec.cut.timeline.json");
    EXPECT_EQ(CompositionMarks::sidecarFile("rec"), "rec.timeline.json");
}

TEST(CompositionMarks, BecomeTheTimesAtWhichTheirFramesShow) {
    const struct {
        const char *layer, *field;
        double fromSec, endSec;
    } cases[] = {
        {"start", R"("fromMark": "Open", "durationSec": 1)", 4, 5},
        {"the action rather than the step", R"("fromMark": "Save", "durationSec": 1)", 5.5, 6.5},
        {"the end", R"("fromMark": "List", "toMark": "List#end")", 7.25, 9},
        {"shifted", R"("fromMark": {"mark": "Open", "offsetSec": -0.5}, "toMark": {"mark": "Open"})", 3.5, 4},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.layer);
        const auto made = resolve(sceneOf(phone + R"(, {"kind": "text", )" + c.field + "}"));
        EXPECT_EQ(made.findings, std::vector<Finding>{});
        const CompositionLayer& layer = made.spec.scenes[0].layers[1];
        EXPECT_EQ(layer.fromSec, c.fromSec);
        EXPECT_EQ(layer.fromSec + layer.durationSec.value(), c.endSec);
        EXPECT_FALSE(CompositionMarks::containsMarkRefs(made.spec));
    }
}

TEST(CompositionMarks, TrimFirstAndThenCountFromTheClipsStart) {
    const std::string keyframe = R"({"t": 0, "value": 1, "atMark": "Save"})";
    const auto spec = sceneOf(
        R"({"kind": "device", "id": "phone", "fromSec": 2, "tracks": [{"property": "scale", "keyframes": [)" +
        keyframe +
        R"(]}], "device": {"screen": {"kind": "video", "path": "/else/rec.mov", "trimStartSec": 99,
              "trimStartMark": {"mark": "Open", "offsetSec": -1}}, "screenOpacity": [)" +
        keyframe + R"(], "placement": {"track": [{"tSec": 0, "atMark": "List#end"}]}}},
        {"kind": "text", "fromSec": 1, "tracks": [{"property": "scale", "keyframes": [)" +
        keyframe + "]}]}");
    const auto made = resolve(spec);
    EXPECT_EQ(made.findings, std::vector<Finding>{});
    EXPECT_FALSE(CompositionMarks::containsMarkRefs(made.spec));
    const auto& layers = made.spec.scenes[0].layers;
    const auto& shown = std::get<DeviceContent>(layers[0].content);
    EXPECT_EQ(std::get<VideoClip>(shown.screen).trimStartSec, 2);
    EXPECT_EQ(shown.placement->track[0].tSec, 6);
    EXPECT_EQ(shown.screenOpacity[0].t, 2.5);
    EXPECT_EQ(layers[0].tracks[0].keyframes[0].t, 2.5);
    EXPECT_EQ(layers[1].tracks[0].keyframes[0].t, 3.5);   // scene time 4.5, less the layer's start
}

TEST(CompositionMarks, SayWhatIsWrong) {
    const std::string path = "scenes[0].layers[1].fromMark";
    const std::string twoPhones = device(R"(, "id": "left")") + ", " + device(R"(, "id": "right")") + ", ";
    const auto text = [](const std::string& keys) { return R"({"kind": "text", )" + keys + "}"; };
    const struct {
        std::string layers;
        Finding finding;
    } cases[] = {
        {phone + "," + text(R"("fromMark": "Svae")"),
            {Level::error, path,
                "Mark \"Svae\" not found in the sidecar for \"rec.mov\". Available marks: List, Open, Save, "
                "Twin.",
                "Did you mean \"Save\"?"}},
        {phone + "," + text(R"("fromMark": "Twin")"), {Level::error, path,
                                                          "Mark \"Twin\" is ambiguous — 2 steps carry it. "
                                                          "Give each step a distinct target.label in the "
                                                          "FlowSpec.",
                                                          {}}},
        {phone + "," + text(R"("fromMark": "Save#end")"),
            {Level::error, path,
                "Mark \"Save\" has no end time — only scripted steps (a `durationSec` scroll) land \"#end\" "
                "marks.",
                {}}},
        {phone + "," + text(R"("fromMark": {"mark": "Open", "offsetSec": -4.125})"),
            {Level::error, path, "Mark \"Open\" resolves to scene time -0.12s — before the scene starts.",
                {}}},
        {phone + "," + text(R"("fromSec": 4, "toMark": "Open")"),
            {Level::error, "scenes[0].layers[1].toMark",
                "Mark \"Open\" resolves to scene time 4.00s — at or before the layer's start (4.00s).", {}}},
        {phone + "," + text(R"("fromMark": {"mark": "Open", "clip": "tablet"})"),
            {Level::error, path,
                "Mark \"Open\" references clip \"tablet\", but scenes[0] has no device layer with that id "
                "(device ids: phone).",
                {}}},
        {device("") + "," + text(R"("fromMark": {"mark": "Open", "clip": "tablet"})"),
            {Level::error, path,
                "Mark \"Open\" references clip \"tablet\", but scenes[0] has no device layer with that id.",
                {}}},
        {twoPhones + text(R"("fromMark": "Open")"), {Level::error, "scenes[0].layers[2].fromMark",
                                                        "scenes[0] has 2 device layers — set \"clip\" on the "
                                                        "mark reference to pick one (device ids: left, "
                                                        "right).",
                                                        {}}},
        {R"({"kind": "device", "device": {"screen": {"kind": "still", "path": "a.png"}}, "fromMark": "Open"})",
            {Level::error, "scenes[0].layers[0].fromMark",
                "Mark references need a VIDEO device screen — the device layer plays a still, which has no "
                "timeline "
                "sidecar.",
                {}}},
        {R"({"kind": "device", "device": {"screen": {"kind": "video", "path": "bare.mov"}}, "fromMark": "Open"})",
            {Level::error, "scenes[0].layers[0].fromMark",
                "Mark \"Open\" not found in the sidecar for \"bare.mov\". Available marks: none (older "
                "recording "
                "without labels — re-record).",
                {}}},
        {R"({"kind": "device", "device": {"screen": {"kind": "video", "path": "a/gone.mov"}}, "fromMark": "Open",
             "toMark": "Save"})",   // told once, however many references there are
            {Level::error, "scenes[0].layers[0].fromMark",
                "No timeline sidecar for \"a/gone.mov\" — expected gone.timeline.json next to the clip "
                "(tavix run "
                "writes it; the .tavixcomp bundler copies it).",
                "Re-copy the recording together with its .timeline.json, or drop the mark references."}},
        {device(R"(, "id": "phone")",
             R"(, "placement": {"track": [{"tSec": 0, "atMark": {"mark": "Open", "offsetSec": -2.5}}]})"),
            {Level::error, "scenes[0].layers[0].device.placement.track[0]",
                "Mark \"Open\" resolves to -0.50s — before the clip's trimStartSec (1.00s).", {}}},
        {phone +
                R"(, {"kind": "device", "id": "other", "device": {"screen": {"kind": "video", "path": "rec.mov",
             "trimStartMark": {"mark": "Open", "clip": "phone"}}}})",
            {Level::error, "scenes[0].layers[1].device.screen.trimStartMark",
                "trimStartMark must reference the SAME device layer's clip.", {}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.finding.message);
        EXPECT_EQ(resolve(sceneOf(c.layers)).findings, std::vector<Finding>{c.finding});
    }
}

TEST(CompositionMarks, OfADeviceMeanItsOwnClip) {
    const std::string track = R"(, "placement": {"track": [{"tSec": 0, "atMark": "Open"}]})";
    const auto made =
        resolve(sceneOf(device(R"(, "id": "left")", track) + ", " + device(R"(, "id": "right")", track)));
    EXPECT_TRUE(made.findings.empty());
    EXPECT_FALSE(CompositionMarks::containsMarkRefs(made.spec));
}

TEST(CompositionMarks, StayWhereNoDeviceIsOrNothingIsFound) {
    const CompositionSpec alone = sceneOf(R"({"kind": "text", "fromMark": "Open"})");
    EXPECT_TRUE(CompositionMarks::containsMarkRefs(alone));
    EXPECT_EQ(resolve(alone), (CompositionResolution{alone, {}}));
    const CompositionSpec wrong = sceneOf(phone + R"(, {"kind": "text", "fromMark": "Nowhere"})");
    EXPECT_EQ(resolve(wrong).spec, wrong);
}

TEST(CompositionMarks, ResolvingTwiceChangesNothing) {
    const SchemaDocument schema(schemaOf<CompositionSpec>("T"));
    SeededRandom dice("marks");
    for (int i = 0; i < 150; ++i) {
        auto spec = decodeValue<CompositionSpec>(schema.random(dice, SchemaDocument::Manner::tame));
        const auto any = [](const fs::path&) { return std::optional(recording); };
        for (CompositionScene& scene : spec.scenes)
            for (CompositionLayer& layer : scene.layers)
                if (layer.fromMark) layer.fromMark->mark = dice.nextBool() ? "Open" : "List#end";
        const auto once = CompositionMarks::resolve(spec, "/", any);
        if (!CompositionMarks::containsMarkRefs(spec)) {
            EXPECT_EQ(once, (CompositionResolution{spec, {}}));
        }
        EXPECT_EQ(CompositionMarks::resolve(once.spec, "/", any).spec, once.spec);
    }
}

TEST(CompositionMarks, ReadTheSidecarBesideTheClip) {
    const testsupport::TemporaryFolder folder;
    const CompositionSpec spec = sceneOf(phone + R"(, {"kind": "text", "fromMark": "Open"})");
    const fs::path sidecar = folder.path() / "rec.timeline.json";
    writeFile(recording, sidecar);
    const auto made = CompositionMarks::resolve(spec, folder.path());
    EXPECT_EQ(made.findings, std::vector<Finding>{});
    EXPECT_EQ(made.spec.scenes[0].layers[1].fromSec, 4);
    // Whatever else stands there counts as no sidecar, and never blocks.
    for (const char* hostile : {"", "null", "{", "[]", R"({"video": 1, "events": []})",
             R"({"video": {"widthPx": 1, "heightPx": 1, "fps": 1}, "events": [{"index": 1e99}]})",
             "\xff\xfe\0x"}) {
        SCOPED_TRACE(hostile);
        writeBytesAtomically(hostile, sidecar);
        EXPECT_FALSE(CompositionMarks::loadTimeline(sidecar));
        EXPECT_EQ(CompositionMarks::resolve(spec, folder.path()).findings.size(), 1u);
    }
    fs::remove(sidecar);
    ASSERT_EQ(::mkfifo(sidecar.c_str(), 0600), 0);
    EXPECT_FALSE(CompositionMarks::loadTimeline(sidecar));
    fs::remove(sidecar);
    fs::create_directory(sidecar);
    EXPECT_FALSE(CompositionMarks::loadTimeline(sidecar));
    EXPECT_FALSE(CompositionMarks::loadTimeline(sidecar / std::string(5000, 'x')));
}

}   // namespace
}   // namespace tavix
