#include "Script.h"

#include "TavixCore/Support/Names.h"

#include <array>

namespace tavix::walkrecording {

std::span<const ScriptedStep> script() {
    using enum Interaction;
    static constexpr LogicalRect page{0, 0, 402, 874};
    static constexpr std::array<ScriptedStep, 8> steps{{
        {scroll, "journalList", "Journal", "Every walk in one list", 1.0, 1.2, 2.6, page},
        {navPush, "walkRow_4", "Ridge loop", "Open the one you liked", 3.4, 3.6, 4.3, {20, 442, 362, 66}},
        {toggle, "pulseSegment", "Pulse", "See how hard it was", 5.9, 6.1, 6.65, {241, 455, 141, 38}},
        {scroll, "pulseChart", "Chart", "Read it beat by beat", 8.4, 8.6, 12.2, page},
        {sheetPresent, "addNoteButton", "Add note", "Keep a note with it", 13.2, 13.4, 14.0,
            {20, 792, 362, 50}},
        {textEntry, "noteField", "Note", "In your own words", 15.6, 15.8, 17.7, {36, 640, 330, 96}},
        {sheetDismiss, "saveButton", "Save", "Saved with the walk", 18.1, 18.3, 18.9, {36, 760, 330, 50}},
        {navPop, "backButton", "Back", "On to the next one", 20.6, 20.8, 21.4, page},
    }};
    return steps;
}

FlowSpec flow() {
    FlowSpec flow;
    flow.name = "walk-note";
    flow.output = {OutputConfig::Aspect::vertical, 1080, 1920, 30, {}, OutputConfig::Container::mp4,
        OutputConfig::Codec::h264};
    flow.entry.rootViewType = "JournalView";
    for (std::size_t i = 0; i < script().size(); ++i) {
        const ScriptedStep& scripted = script()[i];
        Step& step = flow.steps.emplace_back();
        step.index = std::int64_t(i);
        step.interaction = scripted.interaction;
        step.target.identifier = scripted.identifier;
        step.target.label = scripted.label;
        if (scripted.interaction == Interaction::textEntry) step.target.textValue = typedNote;
        step.dwellBeforeMs = 200;
        step.dwellAfterMs = 600;
        step.caption = scripted.caption;
    }
    flow.typography.emplace();
    flow.typography->style = "line-rise";
    CardSpec& opening = flow.typography->cards.emplace_back();
    opening.headline = "Kestrel";
    opening.subline = "Every walk, remembered";
    CardSpec& closing = flow.typography->cards.emplace_back();
    closing.at = "end";
    closing.headline = "Walk on";
    return flow;
}

DoneReport report(double displayScale) {
    DoneReport report;
    report.flowStart = appClockAtGoSec;
    report.flowEnd = appClockAtGoSec + flowLengthSec;
    report.displayScale = displayScale;
    const auto onAppClock = [](double sec) { return appClockAtGoSec + sec; };
    for (std::size_t i = 0; i < script().size(); ++i) {
        const ScriptedStep& step = script()[i];
        DoneReport::StepMark& mark = report.steps.emplace_back();
        mark.index = std::int64_t(i);
        mark.startedAt = onAppClock(step.startSec);
        mark.endedAt = onAppClock(step.endSec);
        mark.rect = step.target;
        mark.type = nameOf(step.interaction);
        mark.label = step.label;
        mark.actionAt = onAppClock(step.actionSec);
        mark.motionEndAt = onAppClock(step.endSec);
    }
    return report;
}

}   // namespace tavix::walkrecording
