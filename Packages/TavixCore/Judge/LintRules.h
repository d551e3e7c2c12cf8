// The rules of lint by family, in the order in which they speak. A family is a function that goes through its
// part of the document; inside it each rule is a function or a condition with its message.
//
// Conditions say when a number is good and are negated, so that a number that is none is reported too.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Document/LayerWindow.h"
#include "TavixCore/Findings/LintReport.h"
#include "TavixCore/Time/CompositionTimeline.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <variant>

namespace tavix::CompositionLint {

struct SceneScope {
    const CompositionSpec& spec;
    std::size_t index;
    const KeyPath& at;

    const CompositionScene& scene() const { return spec.scenes[index]; }
    std::string name() const { return scene().displayName(index); }
    bool isLast() const { return index + 1 == spec.scenes.size(); }
};

struct LayerScope {
    const SceneScope& in;
    const CompositionLayer& layer;
    const KeyPath& at;
};

// How far a time may be beyond the one that it is meant to meet: no frame shows it.
inline double windowSlackSec(const CompositionSpec& spec) {
    return 0.5 / std::max(static_cast<double>(spec.output.fps), 1.0);
}

// Below it a spring swings so far that the eye follows it: an accent.
inline constexpr double bouncyDamping = 0.7;

inline const SpringCurve* bouncySpring(const TimingCurve& curve) {
    const auto* spring = std::get_if<SpringCurve>(&curve);
    return spring && spring->damping < bouncyDamping ? spring : nullptr;
}

void checkOutput(const CompositionSpec& spec, LintReport& report);

void checkSceneLength(const SceneScope& scope, LintReport& report);
void checkTransition(const SceneScope& scope, LintReport& report);
void checkMarks(const SceneScope& scope, LintReport& report);
void checkBeats(const SceneScope& scope, LintReport& report);

void checkWindow(const LayerScope& scope, LintReport& report);
void checkTracks(const LayerScope& scope, LintReport& report);
void checkEffects(const LayerScope& scope, LintReport& report);
void checkContent(const LayerScope& scope, const TextContent& text, LintReport& report);
void checkContent(const LayerScope& scope, const DeviceContent& device, LintReport& report);
void checkContent(const LayerScope& scope, const ImageContent& image, LintReport& report);
void checkContent(const LayerScope& scope, const VideoContent& video, LintReport& report);
void checkContent(const LayerScope& scope, const ShapeContent& shape, LintReport& report);

void checkSceneTotals(const SceneScope& scope, LintReport& report);

void checkAccents(const CompositionSpec& spec, LintReport& report);
void checkTotalLength(const CompositionTimeline& timeline, LintReport& report);
void checkCutsOnBeat(const CompositionSpec& spec, const CompositionTimeline& timeline, LintReport& report);
void checkAudio(const CompositionSpec& spec, const CompositionTimeline& timeline, LintReport& report);

}   // namespace tavix::CompositionLint
