// The rules that findings come from, each with a code that stays as it is: by it a rule is muted, and by it
// an agent knows what to mend.
#pragma once

#include "TavixBase/Finding.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace tavix::CompositionLint {

using Level = Finding::Level;   // of a rule: an error stops rendering; a warning passes

// In the order in which they speak.
enum class Rule : std::uint8_t {
    unreadable,
    // The times of beats and marks.
    beatEarly,
    beatEmpty,
    beatOnMark,
    twoClocks,
    motionCut,
    markEarly,
    markEmpty,
    markTrim,
    markEnd,
    markDevice,
    markRecording,
    markUnknown,
    markTwice,
    // The numbers and the structure.
    outputFps,
    outputSize,
    noScenes,
    sceneLength,
    sceneLong,
    transitionLast,
    transitionLength,
    transitionOverlap,
    transitionFlip,
    transitionBouncy,
    markUnnamed,
    bpmRange,
    beatGrid,
    layerStart,
    layerLate,
    layerLength,
    layerEnd,
    keyframeStart,
    keyframeOrder,
    opacityRange,
    scaleRange,
    doubleFade,
    effectUnknown,
    effectRange,
    screenPath,
    screensAlone,
    twoMotions,
    screenOpacityRange,
    flatTurn,
    poseLate,
    shapeSize,
    textEmpty,
    animationUnknown,
    alignmentUnknown,
    textBrief,
    textSmall,
    textPosition,
    fontKind,
    videoPath,
    videoTrim,
    imagePath,
    spaceCost,
    textsAtOnce,
    twoFocalPoints,
    bouncySprings,
    accentTransitions,
    filmLong,
    cutOffBeat,
    cueLate,
    soundUnknown,
    musicPath,
    // What the film is made of.
    keyUnknown,
    wordUnknown,
    valueLimited,
    valueDropped,
    keyIgnored,
    pictureMissing,
    clipMissing,
    fontMissing,
    soundMissing,
    // What the eye would see.
    neverVisible,
    wordBroken,
    textOverflow,
    textMoved,
    lowContrast,
    formationCut,
    opensEmpty,
    footageShort,
    // What the frames show.
    framesBlack,
    framesFrozen,
    flashGeneral,
    flashRed,
    // What is muted.
    muteUnknown,
};

struct RuleEntry {
    Rule rule;
    std::string_view code;
    Level level;
    std::string_view tells;      // a sentence: when it speaks
    std::string_view fragment;   // JSON that makes it speak: a document, a scene or a layer; empty where it
                                 // takes a recording or a file
    std::string_view repair;     // a sentence
};

// All of them, in the order of the enumeration.
std::span<const RuleEntry> rules();
const RuleEntry& entryOf(Rule rule);
inline std::string_view codeOf(Rule rule) { return entryOf(rule).code; }
// The rule that bears this code, or nothing.
std::optional<Rule> ruleOf(std::string_view code);

}   // namespace tavix::CompositionLint
