// Every rule of lint: a document that breaks it, with the whole finding, and one at its limit that does not.
#include "TavixCore/Judge/CompositionLint.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tavix::CompositionLint {
namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;
using Spec = CompositionSpec;

// A document without a fault: "intro" with a text, a shape and a picture, then "demo" with a phone and a
// film.
Spec sound() {
    Spec spec;
    CompositionScene intro{.id = "intro", .durationSec = 5}, demo{.id = "demo", .durationSec = 6};
    intro.layers = {{.durationSec = 2, .content = TextContent{.text = "Ship it"}},
        {.content = ShapeContent{}}, {.content = ImageContent{.path = "logo.png"}}};
    demo.layers = {{.id = "phone", .content = DeviceContent{.screen = VideoClip{.path = "demo.mov"}}},
        {.content = VideoContent{.clip = {.path = "film.mov"}, .rect = NormalizedRect{}}}};
    intro.transition = SceneTransition{.durationSec = 1};
    spec.scenes = {intro, demo};
    spec.audio = CompositionAudio{.music = MusicBed{.path = "song.mp3"}};
    return spec;
}

CompositionLayer& layer(Spec& s, std::size_t scene, std::size_t index) {
    return s.scenes[scene].layers[index];
}
TextContent& text(Spec& s) { return std::get<TextContent>(layer(s, 0, 0).content); }
ShapeContent& shape(Spec& s) { return std::get<ShapeContent>(layer(s, 0, 1).content); }
ImageContent& image(Spec& s) { return std::get<ImageContent>(layer(s, 0, 2).content); }
DeviceContent& phone(Spec& s) { return std::get<DeviceContent>(layer(s, 1, 0).content); }
VideoContent& film(Spec& s) { return std::get<VideoContent>(layer(s, 1, 1).content); }
SceneTransition& cut(Spec& s) { return *s.scenes[0].transition; }
MusicBed& music(Spec& s) { return *s.audio->music; }

void animate(CompositionLayer& of, AnimProperty property, std::vector<CompositionKeyframe> keyframes) {
    of.tracks.push_back({property, std::move(keyframes)});
}
MarkRef mark(const char* name, std::optional<std::string> clip = {}) { return {name, std::move(clip)}; }
SpringCurve spring(double damping) { return {.damping = damping}; }
KineticPhase phase(double damping) { return {.durationSec = 0.4, .curve = spring(damping)}; }
void addText(Spec& s, double fromSec, std::optional<double> durationSec) {
    s.scenes[0].layers.push_back(
        {.fromSec = fromSec, .durationSec = durationSec, .content = TextContent{.text = "Now"}});
}
void addPhone(Spec& s, std::optional<std::string> id, double fromSec) {
    s.scenes[1].layers.push_back({.id = std::move(id), .fromSec = fromSec, .content = phone(s)});
    layer(s, 1, 0).durationSec = 3;
}
void addScene(Spec& s, double durationSec, TransitionStyle before) {
    s.scenes.back().transition = SceneTransition{.style = before, .durationSec = 1};
    s.scenes.push_back({.durationSec = durationSec});
}

std::vector<std::string> said(const Spec& spec) {
    std::vector<std::string> lines;
    for (const Finding& finding : lint(spec)) {
        lines.push_back((finding.level == Level::error ? "error " : "warning ") + finding.path + ": " +
                        finding.message + (finding.suggestion ? " | " + *finding.suggestion : ""));
    }
    return lines;
}

const std::string needsGrid =
    " needs a beat grid — the composition declares no audio.music.bpm. | Set audio.music.bpm (+ firstBeatSec) — run `tavix beats <audio>` to measure them.";

struct Case {
    void (*breaks)(Spec&);
    void (*keeps)(Spec&);
    std::vector<std::string> findings;
};

void expectEach(const std::vector<Case>& cases) {
    ASSERT_THAT(said(sound()), IsEmpty());
    for (const Case& c : cases) {
        SCOPED_TRACE(c.findings.at(0));
        Spec broken = sound(), kept = sound();
        c.breaks(broken);
        c.keeps(kept);
        EXPECT_THAT(said(broken), ElementsAreArray(c.findings));
        EXPECT_THAT(said(kept), IsEmpty());
    }
}

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

TEST(CompositionLint, JudgesWindowsTracksAndEffects) {
    expectEach({
        {[](Spec& s) { layer(s, 0, 1).fromSec = -0.1; }, [](Spec& s) { layer(s, 0, 1).fromSec = -0.0; },
            {"error scenes[0].layers[1].fromSec: fromSec must be ≥ 0 (scene-local clock)."}},
        {[](Spec& s) { layer(s, 0, 1).fromSec = 5; }, [](Spec& s) { layer(s, 0, 1).fromSec = 4.999; },
            {"error scenes[0].layers[1].fromSec: Layer starts at 5s but the scene ends at 5s."}},
        {[](Spec& s) { layer(s, 0, 1).durationSec = 0; }, [](Spec& s) { layer(s, 0, 1).durationSec = 0.01; },
            {"error scenes[0].layers[1].durationSec: durationSec must be > 0 (omit it to run to the scene end)."}},
        {[](Spec& s) {
             layer(s, 0, 1).durationSec = 5.009;
         },   // of 60 frames a second half a one is 0.0083 s
            [](Spec& s) { layer(s, 0, 1).durationSec = 5.008; },
            {"error scenes[0].layers[1].durationSec: Layer window ends at 5.01s, past the scene end (5s)."}},
        {[](Spec& s) { s.output.fps = 24, layer(s, 0, 1).durationSec = 5.021; },
            [](Spec& s) { s.output.fps = 24, layer(s, 0, 1).durationSec = 5.0208; },
            {"error scenes[0].layers[1].durationSec: Layer window ends at 5.02s, past the scene end (5s)."}},
        {[](Spec& s) {
             animate(layer(s, 0, 1), AnimProperty::y, {{.t = -1}, {.t = 1}, {.t = 1}});
         },
            [](Spec& s) {
                animate(layer(s, 0, 1), AnimProperty::y, {{.t = 0}, {.t = 1}, {.t = 1.001}});
            },
            {"error scenes[0].layers[1].tracks[0].keyframes[0].t: Keyframe t must be ≥ 0 (layer-local clock).",
                "error scenes[0].layers[1].tracks[0].keyframes[2].t: Keyframe times must be strictly ascending (1 after 1)."}},
        {[](Spec& s) { animate(layer(s, 0, 1), AnimProperty::opacity, {{.value = 1.25}}); },
            [](Spec& s) {
                animate(layer(s, 0, 1), AnimProperty::opacity, {{.value = 1}, {.t = 1}});
            },
            {"warning scenes[0].layers[1].tracks[0].keyframes[0].value: Opacity 1.25 is outside 0…1 — it renders clamped."}},
        {[](Spec& s) { animate(layer(s, 0, 1), AnimProperty::scaleY, {{.value = 0}}); },
            [](Spec& s) { animate(layer(s, 0, 1), AnimProperty::scaleY, {{.value = 0.01}}); },
            {"error scenes[0].layers[1].tracks[0].keyframes[0].value: Scale must be > 0 (scale interpolates in log space)."}},
        {[](Spec& s) {
             animate(layer(s, 0, 1), AnimProperty::opacity, {});
             layer(s, 0, 1).exit = KineticPhase{.opacity = 0.99};
         },
            [](Spec& s) {
                animate(layer(s, 0, 1), AnimProperty::opacity, {});
                layer(s, 0, 1).exit = KineticPhase{.opacity = 1};
            },
            {"warning scenes[0].layers[1]: Both an opacity track and a fading enter/exit phase — the two multiply into a double-fade."}},
        {[](Spec& s) {
             layer(s, 0, 1).effects = {BlurEffect{}, UnknownEffect{"Vinete"}};
         },
            [](Spec& s) {
                layer(s, 0, 1).effects = {BlurEffect{}, VignetteEffect{}, DuotoneEffect{}};
            },
            {"error scenes[0].layers[1].effects[1].kind: Unknown effect \"Vinete\" — must be one of blur, colorControls, tint, duotone, vignette, glow, noise, pixelate, chromaticAberration. | Did you mean \"vignette\"?"}},
        {[](Spec& s) {
             layer(s, 0, 1).effects = {ColorControlsEffect{0.6, 0.2, 3.5}, PixelateEffect{0.0001}};
         },
            [](Spec& s) {
                layer(s, 0, 1).effects = {ColorControlsEffect{-0.5, 0.25, 3}, PixelateEffect{0.001}};
            },
            {"error scenes[0].layers[1].effects[0].brightness: brightness 0.6 out of range (-0.5…0.5).",
                "error scenes[0].layers[1].effects[0].contrast: contrast 0.2 out of range (0.25…4).",
                "error scenes[0].layers[1].effects[0].saturation: saturation 3.5 out of range (0…3).",
                "error scenes[0].layers[1].effects[1].scaleFraction: scaleFraction 0.0001 out of range (0.001…0.1)."}},
    });
}

TEST(CompositionLint, JudgesDevices) {
    expectEach({
        {[](Spec& s) { phone(s).screen = VideoClip{}; },
            [](Spec& s) { phone(s).screen = StillScreen{"a.png"}; },
            {"error scenes[1].layers[0].device.screen: Device screen needs a still or video path."}},
        {[](Spec& s) {
             phone(s).placement = DevicePlacementSpec{.track = {{}}};
             animate(layer(s, 1, 0), AnimProperty::scale, {});
         },
            [](Spec& s) {
                phone(s).placement = DevicePlacementSpec{};
                animate(layer(s, 1, 0), AnimProperty::scale, {});
            },
            {"error scenes[1].layers[0].device.placement: Device has both a placement track and x/y/scale keyframes — pick one motion system (placement = baked springs, tracks = generic keyframes)."}},
        {[](Spec& s) {
             phone(s).placement = DevicePlacementSpec{.track = {{.tSec = 1}, {.tSec = 1}}};
         },
            [](Spec& s) {   // an open time is passed over
                phone(s).placement =
                    DevicePlacementSpec{.track = {{.tSec = 1}, {.atMark = mark("a")}, {.tSec = 1.01}}};
            },
            {"error scenes[1].layers[0].device.placement.track[1].tSec: Placement times must be strictly ascending."}},
        {[](Spec& s) {
             phone(s).screenOpacity = {{.t = 1, .value = 1}, {.t = 0.5, .value = -0.5}};
         },
            [](Spec& s) {
                phone(s).screenOpacity = {
                    {.t = 1, .value = 1}, {.atMark = mark("a")}, {.t = 1.5, .value = 0}};
            },
            {"warning scenes[1].layers[0].device.screenOpacity[1].value: screenOpacity -0.5 is outside 0…1 — clamped at render.",
                "error scenes[1].layers[0].device.screenOpacity[1].t: screenOpacity times must be strictly ascending."}},
        {[](Spec& s) {
             phone(s).scene3D = DeviceScene3D{};
             animate(layer(s, 1, 0), AnimProperty::rotationDeg, {});
         },
            [](Spec& s) { animate(layer(s, 1, 0), AnimProperty::rotationDeg, {}); },
            {"error scenes[1].layers[0].device.scene3D: A 3D device layer owns the phone's rotation (tilt/poseTrack) — a flat rotationDeg keyframe track would spin the finished 3D render. Drop the track or scene3D."}},
        {[](Spec& s) {
             phone(s).scene3D = DeviceScene3D{.poseTrack = {{.tSec = 2}, {.tSec = 1}}};
             phone(s).scene3D->depthTrack = {{.tSec = 1}, {.tSec = 1}};
         },
            [](Spec& s) {
                phone(s).scene3D = DeviceScene3D{.poseTrack = {{.tSec = 1}, {.tSec = 2}}};
                phone(s).scene3D->depthTrack = {{.tSec = -1}, {.tSec = 1}};
            },
            {"error scenes[1].layers[0].device.scene3D.poseTrack[1].tSec: Pose times must be strictly ascending.",
                "error scenes[1].layers[0].device.scene3D.depthTrack[1].tSec: Depth times must be strictly ascending."}},
        {[](Spec& s) {
             phone(s).scene3D = DeviceScene3D{.poseTrack = {{.tSec = 4.5}}};
             layer(s, 1, 0).fromSec = 2;
         },
            [](Spec& s) {
                phone(s).scene3D = DeviceScene3D{.poseTrack = {{.tSec = 4.001}}};
                layer(s, 1, 0).fromSec = 2;
            },
            {"warning scenes[1].layers[0].device.scene3D.poseTrack: Last pose keyframe at 4.5s is past the layer's 4s window — scene3D pose times are LAYER-LOCAL (0 = the layer's start), not the reel clock."}},
    });
}

TEST(CompositionLint, JudgesShapesFilmsAndPictures) {
    expectEach({
        {[](Spec& s) { shape(s).widthFraction = 0; }, [](Spec& s) { shape(s).widthFraction = 0.001; },
            {"error scenes[0].layers[1].shape: Shape width/heightFraction must be > 0."}},
        {[](Spec& s) { film(s).clip.path = ""; }, [](Spec& s) { film(s).clip.path = "a"; },
            {"error scenes[1].layers[1].video.path: Video layer has an empty path."}},
        {[](Spec& s) { film(s).clip.trimStartSec = 2, film(s).clip.trimEndSec = 2; },
            [](Spec& s) { film(s).clip.trimStartSec = 2, film(s).clip.trimEndSec = 2.1; },
            {"error scenes[1].layers[1].video.trimEndSec: trimEndSec (2) must be after trimStartSec (2)."}},
        {[](Spec& s) { image(s).path = ""; }, [](Spec& s) { image(s).path = "a"; },
            {"error scenes[0].layers[2].image.path: Image layer has an empty path."}},
    });
}

TEST(CompositionLint, JudgesTexts) {
    expectEach({
        {[](Spec& s) { text(s).text = " \n\xC2\xA0"; }, [](Spec& s) { text(s).text = " ."; },
            {"error scenes[0].layers[0].text: Text layer has empty copy."}},
        {[](Spec& s) { text(s).kinetic = KineticPresetRef{.preset = "Slid-up"}; },
            [](Spec& s) { text(s).kinetic = KineticStyle{.presetID = "Slid-up"}; },
            {"error scenes[0].layers[0].text.kinetic.preset: Unknown kinetic preset \"Slid-up\" — must be one of word-pop, line-rise, blur-in, char-cascade, tracking-in, slam, fade-up, karaoke-fill, slide-up, slide-down, slide-left, slide-right, none. | Did you mean \"slide-up\"?"}},
        {[](Spec& s) { text(s).alignment = "justified"; }, [](Spec& s) { text(s).alignment = "center"; },
            {"error scenes[0].layers[0].text.alignment: alignment must be left|center|right."}},
        {[](Spec& s) { text(s).text = "Go", layer(s, 0, 0).durationSec = 0.3; },
            [](Spec& s) { text(s).text = "Go", layer(s, 0, 0).durationSec = 0.35; },
            {"warning scenes[0].layers[0].durationSec: \"Go\" shows for 0.3s — under the readability floor (0.35s for 1 word)."}},
        {[](Spec& s) { text(s).text = "Twenty-four letters here", layer(s, 0, 0).durationSec = 0.25; },
            [](Spec& s) { layer(s, 0, 0).durationSec.reset(); },
            {"warning scenes[0].layers[0].durationSec: \"Twenty-four letters here\" shows for 0.25s — under the readability floor (0.45s for 3 words)."}},
        {[](Spec& s) {
             text(s).text = "Twenty-f\xC3\xB6ur letters h\xC3\xA9re!", layer(s, 0, 0).durationSec = 0.25;
         },
            [](Spec& s) { text(s).text = "Twenty-f\xC3\xB6ur letters h\xC3\xA9re!"; },
            {"warning scenes[0].layers[0].durationSec: \"Twenty-f\xC3\xB6ur letters h\xC3\xA9re…\" shows for 0.25s — under the readability floor (0.45s for 3 words)."}},
        {[](Spec& s) { text(s).sizeFraction = 0.016; }, [](Spec& s) { text(s).sizeFraction = 0.017; },
            {"warning scenes[0].layers[0].text.sizeFraction: sizeFraction 0.016 is below the label minimum 0.017 (≈32px @1080w) — unreadable at video distance."}},
        {[](Spec& s) { text(s).text = "one two three four", text(s).sizeFraction = 0.02; },
            [](Spec& s) { text(s).text = "one two three", text(s).sizeFraction = 0.02; },
            {"warning scenes[0].layers[0].text.sizeFraction: sizeFraction 0.02 is below the supporting-copy minimum 0.023 (≈44px @1080w)."}},
        {[](Spec& s) {
             layer(s, 0, 0).position = {1767.4, 107.9};
         },
            [](Spec& s) {
                s.output.widthPx = 1000, layer(s, 0, 0).position = {920, 108};
            },
            {"warning scenes[0].layers[0].position: Text center (1767, 107)px is outside the safe area (within 806×432px of center (960, 540))."}},
        {[](Spec& s) { text(s).font = "fonts/Inter.woff"; },
            [](Spec& s) { text(s).font = "fonts/Inter.TTF"; },
            {"warning scenes[0].layers[0].text.font: \"fonts/Inter.woff\" looks like a path but not a font file (.ttf/.otf/.ttc)."}},
        {[](Spec& s) { text(s).font = "brand/main"; },
            [](Spec& s) { text(s).font = "brand/main", s.fonts["brand/main"] = "Inter"; },
            {"warning scenes[0].layers[0].text.font: \"brand/main\" looks like a path but not a font file (.ttf/.otf/.ttc)."}},
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
    Spec s = sound();
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
