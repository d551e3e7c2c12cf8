// Every rule about a composition and its scenes: a document that breaks it, with the whole finding, and one
// at its limit that does not.
#include "TavixCore/Tests/LintCases.h"

namespace tavix::CompositionLint {
namespace {

TEST(CompositionLint, JudgesTheOutput) {
    expectEach({
        {[](Spec& s) { s.output.fps = 121; }, [](Spec& s) { s.output.fps = 120; },
            {"error output.fps: fps 121 out of range (24…120)."}},
        {[](Spec& s) { s.output.fps = 23; }, [](Spec& s) { s.output.fps = 24; },
            {"error output.fps: fps 23 out of range (24…120)."}},
        {[](Spec& s) { s.output.fps = FrameRate::of(23.9); },
            [](Spec& s) { s.output.fps = FrameRate::of(23.976); },
            {"error output.fps: fps 23.9 out of range (24…120)."}},
        {[](Spec& s) {
             s.output.widthPx = 4097;
             s.output.heightPx = 319;
             layer(s, 0, 0).position = {2048, 160};
         },
            [](Spec& s) {
                s.output.widthPx = 4096;
                s.output.heightPx = 320;
                layer(s, 0, 0).position = {2048, 160};
            },
            {"error output.widthPx: widthPx 4097 out of range (320…4096).",
                "error output.heightPx: heightPx 319 out of range (320…4096)."}},
    });
    EXPECT_THAT(said(Spec{.output = {.fps = 0}, .audio = CompositionAudio{.music = MusicBed{}}}),
        testing::ElementsAre("error output.fps: fps 0 out of range (24…120).",
            "error scenes: A composition needs at least one scene."))
        << "nothing else is looked at without scenes";
}

TEST(CompositionLint, JudgesScenesAndTransitions) {
    expectEach({
        {[](Spec& s) { s.scenes = {{.durationSec = 0}}; },
            [](Spec& s) { s.scenes = {{.durationSec = 0.001}}; },
            {"error scenes[0].durationSec: scene-0: durationSec must be > 0."}},
        {[](Spec& s) { s.scenes[1].durationSec = 30.5; }, [](Spec& s) { s.scenes[1].durationSec = 30; },
            {"warning scenes[1].durationSec: demo runs 30.5s — scenes over 30s usually want a cut (\"let time solve layout\")."}},
        {[](Spec& s) { s.scenes[1].transition = SceneTransition{}; }, [](Spec&) {},
            {"error scenes[1].transition: demo is the last scene — a transition needs a next scene to join."}},
        {[](Spec& s) { cut(s).durationSec = 0; },
            [](Spec& s) {
                cut(s) = {.durationSec = 0, .durationBeats = 1};
                music(s).bpm = 60;
            },
            {"error scenes[0].transition.durationSec: Transition durationSec (or durationBeats on a music grid) is required and must be > 0 (the tempo decision is always explicit)."}},
        {[](Spec& s) {
             s.scenes[1] = {.durationSec = 1};
             cut(s).durationSec = 1.01;
         },
            [](Spec& s) { s.scenes[1] = {.durationSec = 1}; },
            {"error scenes[0].transition.durationSec: Transition (1.01s) is longer than the shorter adjacent scene (1s) — both scenes must outlive the overlap."}},
        {[](Spec& s) { cut(s).style = TransitionStyle::flip; },
            [](Spec& s) { cut(s).style = TransitionStyle::wipe; },
            {"warning scenes[0].transition: flip has no 2-D presentation — it renders as a wipe here."}},
        {[](Spec& s) { cut(s).curve = spring(0.69); }, [](Spec& s) { cut(s).curve = spring(0.7); },
            {"warning scenes[0].transition.curve: Bouncy transition timing (damping 0.69) — counts as the scene's one accent."}},
    });
}

TEST(CompositionLint, JudgesMarks) {
    expectEach({
        {[](Spec& s) { layer(s, 1, 1).fromMark = mark(""); },
            [](Spec& s) { layer(s, 1, 1).fromMark = mark("a"); },
            {"error scenes[1].layers[1].fromMark: Mark reference has an empty mark name."}},
        {[](Spec& s) { layer(s, 1, 1).toMark = mark("", "Phon"); },
            [](Spec& s) { layer(s, 1, 1).toMark = mark("a", "phone"); },
            {"error scenes[1].layers[1].toMark: Mark reference has an empty mark name.",
                "error scenes[1].layers[1].toMark: clip \"Phon\" doesn't match any device layer id in this scene (device ids: phone). | Did you mean \"phone\"?"}},
        {[](Spec& s) {
             layer(s, 1, 0).id.reset();
             animate(layer(s, 1, 1), AnimProperty::x, {{.atMark = mark("a", "phone")}});
         },
            [](Spec& s) {
                layer(s, 1, 0).id.reset();
                animate(layer(s, 1, 1), AnimProperty::x, {{.atMark = mark("a")}});
            },
            {"error scenes[1].layers[1].tracks[0].keyframes[0].atMark: clip \"phone\" doesn't match any device layer id in this scene."}},
        {[](Spec& s) { layer(s, 0, 0).fromMark = mark("a"); },
            [](Spec& s) { layer(s, 1, 0).fromMark = mark("a"); },
            {"error scenes[0].layers[0].fromMark: Mark references need a device layer (with a video screen) in the same scene — this scene has none."}},
        {[](Spec& s) {
             addPhone(s, "tablet", 3);
             layer(s, 1, 0).fromMark = mark("a");
         },
            [](Spec& s) {
                addPhone(s, "tablet", 3);
                layer(s, 1, 0).fromMark = mark("a", "tablet");
            },
            {"error scenes[1].layers[0].fromMark: This scene has 2 device layers — set \"clip\" on the mark reference to pick one (device ids: phone, tablet)."}},
        // On the device itself a mark belongs to the device, if it has a name.
        {[](Spec& s) {
             addPhone(s, {}, 3);
             auto& second = std::get<DeviceContent>(layer(s, 1, 2).content);
             std::get<VideoClip>(second.screen).trimStartMark = mark("a");
             second.screenOpacity = {{.value = 1, .atMark = mark("b")}};
             second.placement = DevicePlacementSpec{.track = {{.atMark = mark("c")}}};
         },
            [](Spec& s) {
                addPhone(s, {}, 3);
                std::get<VideoClip>(phone(s).screen).trimStartMark = mark("a");
                phone(s).screenOpacity = {{.value = 1, .atMark = mark("b")}};
                phone(s).placement = DevicePlacementSpec{.track = {{.atMark = mark("c")}}};
            },
            {"error scenes[1].layers[2].device.screen.trimStartMark: This scene has 2 device layers — set \"clip\" on the mark reference to pick one (device ids: phone).",
                "error scenes[1].layers[2].device.screenOpacity[0].atMark: This scene has 2 device layers — set \"clip\" on the mark reference to pick one (device ids: phone).",
                "error scenes[1].layers[2].device.placement.track[0].atMark: This scene has 2 device layers — set \"clip\" on the mark reference to pick one (device ids: phone)."}},
    });
}

TEST(CompositionLint, JudgesBeats) {
    expectEach({
        {[](Spec& s) { s.audio->music = MusicBed{.path = "song.mp3", .bpm = 221, .firstBeatSec = 4}; },
            [](Spec& s) { s.audio->music = MusicBed{.path = "song.mp3", .bpm = 220, .firstBeatSec = 4}; },
            {"error audio.music.bpm: bpm 221 out of range (40…220).",   // once for each scene
                "error audio.music.bpm: bpm 221 out of range (40…220)."}},
        {[](Spec& s) { s.scenes[0].durationBeats = 4; }, [](Spec&) {},
            {"error scenes[0].durationBeats: durationBeats" + needsGrid,
                "error scenes[0].durationBeats: durationSec and durationBeats both set — pick one duration authority."}},
        {[](Spec& s) {
             s.scenes = {{.durationSec = 4, .layers = {{.fromBeat = 1, .content = ShapeContent{}}}}};
             music(s).bpm = 0;
         },
            [](Spec&) {},
            {"error audio.music.bpm: bpm 0 out of range (40…220).",
                "error scenes[0].layers[0].fromBeat: fromBeat" + needsGrid}},
        {[](Spec& s) { cut(s).durationBeats = 1; },
            [](Spec& s) {
                music(s).bpm = 40;
                cut(s) = {.durationBeats = 1};
                s.scenes[0].durationSec = 6;
            },
            {"error scenes[0].transition.durationBeats: durationBeats" + needsGrid,
                "error scenes[0].transition.durationBeats: durationSec and durationBeats both set — pick one duration authority."}},
        {[](Spec& s) {
             layer(s, 1, 1).fromBeat = layer(s, 1, 1).toBeat = 1;
             layer(s, 1, 1).fromMark = layer(s, 1, 1).toMark = mark("a");
         },
            [](Spec& s) {
                music(s).bpm = 60;
                layer(s, 1, 1).fromBeat = layer(s, 1, 1).toBeat = 1;
            },
            {"error scenes[1].layers[1].fromBeat: fromBeat" + needsGrid,
                "error scenes[1].layers[1].fromBeat: fromBeat and fromMark on the same layer — pick one clock for the start.",
                "error scenes[1].layers[1].toBeat: toBeat" + needsGrid,
                "error scenes[1].layers[1].toBeat: toBeat and toMark on the same layer — pick one clock for the end."}},
        {[](Spec& s) {
             animate(layer(s, 1, 0), AnimProperty::blur, {{}, {.t = 1, .atMark = mark("a"), .atBeat = 1}});
             phone(s).screenOpacity = {{.value = 1, .atMark = mark("a"), .atBeat = 1}};
         },
            [](Spec& s) {
                music(s).bpm = 60;
                animate(layer(s, 1, 0), AnimProperty::blur, {{}, {.t = 1, .atBeat = 1}});
                phone(s).screenOpacity = {{.value = 1, .atBeat = 1}};
            },
            {"error scenes[1].layers[0].tracks[0].keyframes[1].atBeat: atBeat" + needsGrid,
                "error scenes[1].layers[0].tracks[0].keyframes[1].atBeat: atBeat and atMark on the same keyframe — pick one clock.",
                "error scenes[1].layers[0].device.screenOpacity[0].atBeat: atBeat" + needsGrid,
                "error scenes[1].layers[0].device.screenOpacity[0].atBeat: atBeat and atMark on the same keyframe — pick one clock."}},
    });
}

TEST(CompositionLint, AddsUpAScene) {
    expectEach({
        {[](Spec& s) {
             addPhone(s, {}, 3), phone(s).scene3D = DeviceScene3D{},
                                 std::get<DeviceContent>(layer(s, 1, 2).content).scene3D = DeviceScene3D{};
         },
            [](Spec& s) { addPhone(s, {}, 3), phone(s).scene3D = DeviceScene3D{}; },
            {"warning scenes[1].layers: demo has 2 3D device layers — each one is a full 3D render per frame; expect roughly 2× frame cost."}},
        {[](Spec& s) { addText(s, 1.9, 2), addText(s, 0, {}); },   // windows that touch do not overlap
            [](Spec& s) { addText(s, 2, 2), addText(s, 0, {}); },
            {"warning scenes[0].layers: intro shows >2 text layers at once — give each message its own moment."}},
        {[](Spec& s) { addPhone(s, {}, 2.9); }, [](Spec& s) { addPhone(s, {}, 3); },
            {"warning scenes[1].layers: demo has two focal layers (device/full-bleed video) at once — one focal point per frame."}},
        {[](Spec& s) { film(s).rect.reset(); },
            [](Spec& s) { film(s).rect.reset(), layer(s, 1, 1).fromSec = 3, layer(s, 1, 0).durationSec = 3; },
            {"warning scenes[1].layers: demo has two focal layers (device/full-bleed video) at once — one focal point per frame."}},
        {[](Spec& s) {
             layer(s, 0, 1).exit = phase(0.6);
             animate(layer(s, 0, 2), AnimProperty::x, {{.ease = spring(0.69)}});
         },
            [](Spec& s) {
                layer(s, 0, 1).enter = phase(0.6);
                layer(s, 0, 1).exit = phase(0.7);
                animate(layer(s, 0, 2), AnimProperty::x, {{.ease = spring(0.7)}});
            },
            {"warning scenes[0]: intro has 2 bouncy springs (damping < 0.7) — one accent per scene, damping ≥ 0.8 elsewhere."}},
    });
}

TEST(CompositionLint, AddsUpAComposition) {
    expectEach({
        {[](Spec& s) { cut(s).style = TransitionStyle::ripple, addScene(s, 5, TransitionStyle::dreamyZoom); },
            [](Spec& s) {
                cut(s).style = TransitionStyle::ripple, addScene(s, 5, TransitionStyle::crossZoom);
            },
            {"warning scenes: 2 accent transitions (dreamyZoom/crosswarp/ripple) — one accent per composition."}},
        {[](Spec& s) {
             for (int i = 0; i < 3; ++i) addScene(s, 28, TransitionStyle::fade);
         },
            [](Spec& s) {
                for (int i = 0; i < 2; ++i) addScene(s, 30, TransitionStyle::fade);
                addScene(s, 23, TransitionStyle::fade);
            },
            {"warning scenes: Total runs 91s — teasers read best under 60–90s."}},
        {[](Spec& s) { music(s).bpm = 60, s.scenes[0].durationSec = 5.09; },
            [](Spec& s) { music(s).bpm = 60, s.scenes[0].durationSec = 5.08; },
            {"warning scenes[1]: demo starts at 4.09s — 0.09s off the beat grid (nearest beat 4s at 60 BPM). | Set scenes[0].durationSec to 5 (or use durationBeats) to land the cut on the beat."}},
        {[](Spec& s) { music(s).bpm = 60, music(s).startAtSec = 0.25; },
            [](Spec& s) { music(s).bpm = 60, music(s).firstBeatSec = music(s).startAtSec = 0.25; },
            {"warning scenes[1]: demo starts at 4s — 0.25s off the beat grid (nearest beat 3.75s at 60 BPM). | Set scenes[0].durationSec to 4.75 (or use durationBeats) to land the cut on the beat."}},
        {[](Spec& s) {
             s.audio->cues = {{.atSec = 0}, {.atSec = 10.25, .sound = "Wosh"}};
         },
            [](Spec& s) {
                s.audio->cues = {{.atSec = 10, .sound = "a.wav"}, {.sound = "ding"}};
            },
            {"error audio.cues[1]: Cue at 10.2s is past the composition end (10s).",
                "warning audio.cues[1]: Sound \"Wosh\" is neither a catalog name (whoosh, whip, ding) nor an audio-file path — it will be skipped. | Did you mean \"whoosh\"?"}},
        {[](Spec& s) { music(s).path = ""; }, [](Spec& s) { s.audio.reset(); },
            {"error audio.music.path: Music bed has an empty path."}},
    });
}

TEST(CompositionLint, SpeaksInTheOrderOfTheDocument) {
    Spec s = faultless();
    s.output.fps = 1;
    layer(s, 0, 0).effects = {BlurEffect{1}};
    layer(s, 0, 0).fromSec = -1;
    layer(s, 0, 0).toMark = mark("a");
    layer(s, 0, 0).toBeat = 1;
    layer(s, 0, 1).fromMark = mark("a");
    text(s).text = "";
    animate(layer(s, 0, 0), AnimProperty::blur, {{.t = -1}});
    cut(s).durationSec = 0;
    s.scenes[1].durationSec = 0;
    s.audio->cues = {{.atSec = 99}};
    std::vector<std::string> paths;
    for (const Finding& finding : lint(s)) paths.push_back(finding.path);
    EXPECT_THAT(paths,
        testing::ElementsAre("output.fps", "scenes[0].transition.durationSec", "scenes[0].layers[0].toMark",
            "scenes[0].layers[1].fromMark", "scenes[0].layers[0].toBeat", "scenes[0].layers[0].toBeat",
            "scenes[0].layers[0].fromSec", "scenes[0].layers[0].tracks[0].keyframes[0].t",
            "scenes[0].layers[0].effects[0].radiusFraction", "scenes[0].layers[0].text",
            "scenes[1].durationSec", "audio.cues[0]"));
}

}   // namespace
}   // namespace tavix::CompositionLint
