// What the tests of lint share: a document without a fault, what breaks it, and what is then said.
#pragma once

#include "TavixCore/Judge/CompositionLint.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tavix::CompositionLint {

using Spec = CompositionSpec;

// A document without a fault: "intro" with a text, a shape and a picture, then "demo" with a phone and a
// film.
inline Spec faultless() {
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

inline CompositionLayer& layer(Spec& s, std::size_t scene, std::size_t index) {
    return s.scenes[scene].layers[index];
}
inline TextContent& text(Spec& s) { return std::get<TextContent>(layer(s, 0, 0).content); }
inline ShapeContent& shape(Spec& s) { return std::get<ShapeContent>(layer(s, 0, 1).content); }
inline ImageContent& image(Spec& s) { return std::get<ImageContent>(layer(s, 0, 2).content); }
inline DeviceContent& phone(Spec& s) { return std::get<DeviceContent>(layer(s, 1, 0).content); }
inline VideoContent& film(Spec& s) { return std::get<VideoContent>(layer(s, 1, 1).content); }
inline SceneTransition& cut(Spec& s) { return *s.scenes[0].transition; }
inline MusicBed& music(Spec& s) { return *s.audio->music; }

inline void animate(CompositionLayer& of, AnimProperty property, std::vector<CompositionKeyframe> keyframes) {
    of.tracks.push_back({property, std::move(keyframes)});
}
inline MarkRef mark(const char* name, std::optional<std::string> clip = {}) {
    return {name, std::move(clip)};
}
inline SpringCurve spring(double damping) { return {.damping = damping}; }
inline KineticPhase phase(double damping) { return {.durationSec = 0.4, .curve = spring(damping)}; }
inline void addText(Spec& s, double fromSec, std::optional<double> durationSec) {
    s.scenes[0].layers.push_back(
        {.fromSec = fromSec, .durationSec = durationSec, .content = TextContent{.text = "Now"}});
}
inline void addPhone(Spec& s, std::optional<std::string> id, double fromSec) {
    s.scenes[1].layers.push_back({.id = std::move(id), .fromSec = fromSec, .content = phone(s)});
    layer(s, 1, 0).durationSec = 3;
}
inline void addScene(Spec& s, double durationSec, TransitionStyle before) {
    s.scenes.back().transition = SceneTransition{.style = before, .durationSec = 1};
    s.scenes.push_back({.durationSec = durationSec});
}

inline std::vector<std::string> said(const Spec& spec) {
    std::vector<std::string> lines;
    for (const Finding& finding : lint(spec)) {
        lines.push_back((finding.level == Level::error ? "error " : "warning ") + finding.path + ": " +
                        finding.message + (finding.suggestion ? " | " + *finding.suggestion : ""));
    }
    return lines;
}

inline const std::string needsGrid =
    " needs a beat grid — the composition declares no audio.music.bpm. | Set audio.music.bpm (+ firstBeatSec) — run `tavix beats <audio>` to measure them.";

struct Case {
    void (*breaks)(Spec&);
    void (*keeps)(Spec&);
    std::vector<std::string> findings;
};

inline void expectEach(const std::vector<Case>& cases) {
    ASSERT_THAT(said(faultless()), testing::IsEmpty());
    for (const Case& c : cases) {
        SCOPED_TRACE(c.findings.at(0));
        Spec broken = faultless(), kept = faultless();
        c.breaks(broken);
        c.keeps(kept);
        EXPECT_THAT(said(broken), testing::ElementsAreArray(c.findings));
        EXPECT_THAT(said(kept), testing::IsEmpty());
    }
}

}   // namespace tavix::CompositionLint
