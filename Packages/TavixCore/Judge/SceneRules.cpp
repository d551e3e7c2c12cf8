#include "TavixCore/Judge/LintRules.h"

#include <algorithm>

namespace tavix::CompositionLint {
namespace {

constexpr double longSceneSec = 30;

void transitionHasALength(const SceneScope& scope, const KeyPath& at, LintReport& report) {
    const SceneTransition& transition = *scope.scene().transition;
    if (transition.durationSec > 0 || transition.durationBeats) return;
    report.tell(Rule::transitionLength, KeyPath(at, "durationSec"),
        "Transition durationSec (or durationBeats on a music grid) is required and must be > 0 (the tempo decision is always explicit).");
}

void scenesOutliveTransition(const SceneScope& scope, const KeyPath& at, LintReport& report) {
    const double overlapSec = scope.scene().transition->durationSec;
    const double shorterSec =
        std::min(scope.scene().durationSec, scope.spec.scenes[scope.index + 1].durationSec);
    if (shorterSec < overlapSec)
        report.tell(Rule::transitionOverlap, KeyPath(at, "durationSec"),
            worded(
                "Transition ({}s) is longer than the shorter adjacent scene ({}s) — both scenes must outlive the overlap.",
                {overlapSec, shorterSec}));
}

void transitionIsCalm(const SceneScope& scope, const KeyPath& at, LintReport& report) {
    const SceneTransition& transition = *scope.scene().transition;
    if (transition.style == TransitionStyle::flip)
        report.tell(Rule::transitionFlip, at, "flip has no 2-D presentation — it renders as a wipe here.");
    if (const SpringCurve* spring = bouncySpring(transition.curve))
        report.tell(Rule::transitionBouncy, KeyPath(at, "curve"),
            worded("Bouncy transition timing (damping {}) — counts as the scene's one accent.",
                {spring->damping}));
}

}   // namespace

void checkSceneLength(const SceneScope& scope, LintReport& report) {
    const double durationSec = scope.scene().durationSec;
    const KeyPath at(scope.at, "durationSec");
    if (!(durationSec > 0))
        report.tell(Rule::sceneLength, at, worded("{}: durationSec must be > 0.", {scope.name()}));
    if (durationSec > longSceneSec)
        report.tell(Rule::sceneLong, at,
            worded("{} runs {}s — scenes over 30s usually want a cut (\"let time solve layout\").",
                {scope.name(), durationSec}));
}

void checkTransition(const SceneScope& scope, LintReport& report) {
    if (!scope.scene().transition) return;
    const KeyPath at(scope.at, "transition");
    if (scope.isLast()) {
        report.tell(Rule::transitionLast, at,
            worded("{} is the last scene — a transition needs a next scene to join.", {scope.name()}));
        return;
    }
    transitionHasALength(scope, at, report);
    scenesOutliveTransition(scope, at, report);
    transitionIsCalm(scope, at, report);
}

}   // namespace tavix::CompositionLint
