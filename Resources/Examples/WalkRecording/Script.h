// What is driven through the imaginary app while its screen is recorded.
#pragma once

#include "TavixCore/Values/LogicalRect.h"
#include "TavixReel/Flow/FlowSpec.h"
#include "TavixReel/Recording/DoneReport.h"

#include <span>
#include <string>

namespace tavix::walkrecording {

// Seconds after the go, of the app's own clock.
struct ScriptedStep {
    Interaction interaction;
    const char *identifier, *label, *caption;
    double startSec, actionSec, endSec;
    LogicalRect target;   // in points of the screen
};

enum StepIndex { scrollJournal, openWalk, showPulse, readChart, addNote, writeNote, saveNote, goBack };
std::span<const ScriptedStep> script();
inline constexpr double flowLengthSec = 22.6;
inline constexpr const char* typedNote = "Windy at the top, worth it";

// The app's clock runs on its own: it started long ago, and against the recorder's it is a little fast.
inline constexpr double appClockAtGoSec = 48213.4;
inline constexpr double recorderRate = 0.9985;   // picture seconds per second of the app

FlowSpec flow();
DoneReport report(double displayScale);

}   // namespace tavix::walkrecording
