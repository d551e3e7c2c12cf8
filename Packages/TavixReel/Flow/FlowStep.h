// One step of a scripted flow: an interaction with a target, and what the reel makes of it.
#pragma once

#include "TavixCore/Document/TransitionStyle.h"
#include "TavixCore/Document/TransitionTimingSpec.h"
#include "TavixCore/Support/Json.h"
#include "TavixCore/Support/Tables.h"
#include "TavixReel/Flow/FlowTypography.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <type_traits>

namespace tavix {

enum class Interaction {
    tap,
    longPress,
    navPush,
    navPop,
    sheetPresent,
    sheetDismiss,
    toggle,
    textEntry,
    scroll,
    swipe,
    listSelection,
};
enum class SwipeDirection { left, right, up, down };

// What the app shows before it is driven. Its payload is the app's own business.
struct MockState {
    std::optional<std::string> viewModelType, description;
    std::optional<std::map<std::string, JSONValue>> payload;
    bool operator==(const MockState&) const = default;
};

struct Target {
    enum class Kind { accessibilityId, viewId, text };

    Kind kind = Kind::accessibilityId;
    std::string identifier;
    std::optional<std::string>
        label;   // what a mark of the recording is named by; distinct where one is used
    std::optional<std::string> textValue;
    bool operator==(const Target&) const = default;
};

struct Step {
    std::int64_t index = 0;   // repeated by the report and by the sidecar
    Interaction interaction = Interaction::tap;
    Target target;
    std::optional<MockState> state;
    std::int64_t dwellBeforeMs = 0, dwellAfterMs = 0;   // pauses around the action
    std::optional<SwipeDirection> direction;
    std::optional<std::string> caption;
    std::optional<bool> flip;   // older form of the transition "flip"
    std::optional<std::string> transition, transitionTiming;
    std::optional<StepTypography> typography;
    std::optional<double> durationSec;   // of a timed gesture; a timed scroll alone has an end in the sidecar
    std::optional<double> distance;      // of the gesture
    std::optional<bool> animated;

    // Nothing when the word names no style: a wrong word is no flip either.
    std::optional<TransitionStyle> resolvedTransitionStyle() const;
    // The spring of the preset that is named, if one is.
    std::optional<TransitionTimingSpec> resolvedTransitionTiming() const;
    bool operator==(const Step&) const = default;
};

const Names<Interaction>& namesOf(std::type_identity<Interaction>);
const Names<SwipeDirection>& namesOf(std::type_identity<SwipeDirection>);
const Names<Target::Kind>& namesOf(std::type_identity<Target::Kind>);
const Fields<MockState>& fieldsOf(std::type_identity<MockState>);
const Fields<Target>& fieldsOf(std::type_identity<Target>);
const Fields<Step>& fieldsOf(std::type_identity<Step>);

}   // namespace tavix
