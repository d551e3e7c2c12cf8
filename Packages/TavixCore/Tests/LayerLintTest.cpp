// Every rule about a layer: a document that breaks it, with the whole finding, and one at its limit that does
// not.
#include "TavixCore/Tests/LintCases.h"

namespace tavix::CompositionLint {
namespace {

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

}   // namespace
}   // namespace tavix::CompositionLint
