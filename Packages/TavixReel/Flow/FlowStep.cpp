#include "TavixReel/Flow/FlowStep.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

std::optional<TransitionStyle> Step::resolvedTransitionStyle() const {
    if (transition) return named<TransitionStyle>(*transition);
    return flip.value_or(false) ? std::optional(TransitionStyle::flip) : std::nullopt;
}

std::optional<TransitionTimingSpec> Step::resolvedTransitionTiming() const {
    const auto preset =
        transitionTiming ? named<TransitionTimingSpec::Preset>(*transitionTiming) : std::nullopt;
    return preset ? std::optional(TransitionTimingSpec::of(*preset)) : std::nullopt;
}

const Names<Interaction>& namesOf(std::type_identity<Interaction>) {
    using enum Interaction;
    static const Names<Interaction> table{
        "interaction", {{tap, "tap"}, {longPress, "longPress"}, {navPush, "navPush"}, {navPop, "navPop"},
                           {sheetPresent, "sheetPresent"}, {sheetDismiss, "sheetDismiss"}, {toggle, "toggle"},
                           {textEntry, "textEntry"}, {scroll, "scroll"}, {swipe, "swipe"},
                           {listSelection, "listSelection"}}};
    return table;
}

const Names<SwipeDirection>& namesOf(std::type_identity<SwipeDirection>) {
    using enum SwipeDirection;
    static const Names<SwipeDirection> table{
        "swipe direction", {{left, "left"}, {right, "right"}, {up, "up"}, {down, "down"}}};
    return table;
}

const Names<Target::Kind>& namesOf(std::type_identity<Target::Kind>) {
    using enum Target::Kind;
    static const Names<Target::Kind> table{
        "target kind", {{accessibilityId, "accessibilityId"}, {viewId, "viewId"}, {text, "text"}}};
    return table;
}

const Fields<MockState>& fieldsOf(std::type_identity<MockState>) {
    using M = MockState;
    static const Fields<M> table{
        "MockState", {field<&M::viewModelType>("viewModelType", "The type that holds the state."),
                         field<&M::description>("description", "What the state is, in words."),
                         field<&M::payload>("payload", "The state itself.")}};
    return table;
}

const Fields<Target>& fieldsOf(std::type_identity<Target>) {
    static const Fields<Target> table{
        "Target", {field<&Target::kind>("kind", "How it is found.").required(),
                      field<&Target::identifier>("identifier", "What it is found by.").required(),
                      field<&Target::label>("label", "The name that marks refer to; give each step its own."),
                      field<&Target::textValue>("textValue", "The text that is entered.")}};
    return table;
}

const Fields<Step>& fieldsOf(std::type_identity<Step>) {
    static const Fields<Step> table{"Step",
        {field<&Step::index>("index", "The number of the step.").required(),
            field<&Step::interaction>("interaction", "What is done.").required(),
            field<&Step::target>("target", "What it is done to.").required(),
            field<&Step::state>("state", "What the app shows before it."),
            field<&Step::dwellBeforeMs>("dwellBeforeMs", "Pause before it, in milliseconds.")
                .measuredIn(Unit::milliseconds)
                .required(),
            field<&Step::dwellAfterMs>("dwellAfterMs", "Pause after it, in milliseconds.")
                .measuredIn(Unit::milliseconds)
                .required(),
            field<&Step::direction>("direction", "Where a swipe or scroll goes."),
            field<&Step::caption>("caption", "The text shown with it."),
            field<&Step::flip>("flip", "Older form of the transition flip."),
            field<&Step::transition>("transition", "The style of the change of screen."),
            field<&Step::transitionTiming>("transitionTiming", "Its tempo: gentle, snappy or bouncy."),
            field<&Step::typography>("typography", "How its text moves."),
            field<&Step::durationSec>("durationSec", "How long a timed gesture takes.")
                .measuredIn(Unit::seconds),
            field<&Step::distance>("distance", "How far the gesture goes."),
            field<&Step::animated>("animated", "Whether the app animates it.")}};
    return table;
}

}   // namespace tavix
