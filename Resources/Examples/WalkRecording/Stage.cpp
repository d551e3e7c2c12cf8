#include "Stage.h"

#include "Parts.h"
#include "Screens.h"
#include "Script.h"
#include "TavixReel/Recording/SyncFlash.h"
#include "TavixRender/Recording/SyncFrameDetector.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace tavix::walkrecording {

namespace {

using namespace phonetour;

constexpr double sheetTopPt = 570, markHoldSec = 0.1;

// How far a time has come on its way, 0 to 1, slow at the end.
double glided(double sec, double fromSec, double toSec) {
    const double share = std::clamp((sec - fromSec) / (toSec - fromSec), 0.0, 1.0);
    return 1 - std::pow(1 - share, 3);
}
double motionOf(StepIndex step, double sec) {
    return glided(sec, script()[step].actionSec, script()[step].endSec);
}
// A finger on the target around its action.
double pressed(const ScriptedStep& step, double sec) {
    return std::clamp((sec - step.actionSec + 0.22) / 0.1, 0.0, 1.0) *
           std::clamp((step.actionSec + 0.16 - sec) / 0.12, 0.0, 1.0);
}

// Where along the chart a finger reads it, 0 to 1.
double readingAt(double sec) {
    const ScriptedStep& read = script()[readChart];
    const double share = std::clamp((sec - read.actionSec) / (read.endSec - read.actionSec), 0.0, 1.0);
    return 0.14 + 0.68 * share * share * (3 - 2 * share);
}

void button(Canvas& canvas, const LogicalRect& rect, const char* words, double press) {
    const Frame frame = Frame{rect.x, rect.y, rect.width, rect.height}.inset(press * 2);
    canvas.fill(frame, 16, mixed(forest, ink, 0.25 * press));
    canvas.text(words, rect.x + rect.width / 2, rect.y + rect.height / 2 + 6,
        {17, 0.3, hex(0xFFFFFF), Align::middle});
}

void noteSheet(Canvas& canvas, double sec) {
    const ScriptedStep &write = script()[writeNote], &save = script()[saveNote];
    canvas.fill({0, sheetTopPt, screen.widthPt + 1, screen.heightPt}, 26, card);
    canvas.fill({screen.widthPt / 2 - 22, sheetTopPt + 10, 44, 5}, 2.5, hairline);
    canvas.text("Note", 36, sheetTopPt + 48, {22, 0.4, ink});
    const LogicalRect& field = write.target;
    canvas.fill({field.x, field.y, field.width, field.height}, 14, paper);
    const std::string words = typedNote;
    const double typed = std::clamp((sec - write.actionSec) / (write.endSec - write.actionSec), 0.0, 1.0);
    const std::string shown = words.substr(0, std::size_t(std::lround(typed * double(words.size()))));
    if (shown.empty())
        canvas.text("How was it?", field.x + 16, field.y + 36, {17, 0, paleInk});
    else
        canvas.text(shown, field.x + 16, field.y + 36, {17, 0, ink});
    button(canvas, save.target, "Save", pressed(save, sec));
}

void walkScreen(Canvas& canvas, double sec) {
    WalkState state;
    state.drawn = glided(sec, script()[openWalk].endSec - 0.3, script()[openWalk].endSec + 1.2);
    state.toPulse = motionOf(showPulse, sec);
    state.scrubbed = readingAt(sec);
    state.scrubStrength = std::clamp((sec - script()[readChart].actionSec) / 0.15, 0.0, 1.0) *
                          std::clamp((script()[readChart].endSec - sec) / 0.15, 0.0, 1.0);
    walk(canvas, state);
    const bool isSaved = sec >= script()[saveNote].actionSec + 0.3;
    canvas.fill({0, 770, screen.widthPt + 1, 104}, 0, paper);
    if (isSaved) {
        canvas.fill({20, 784, 362, 62}, 16, card);
        canvas.text("Note", 38, 808, {13, 0.23, softInk});
        canvas.text(typedNote, 38, 832, {17, 0, ink});
    } else {
        button(canvas, script()[addNote].target, "Add note", pressed(script()[addNote], sec));
    }
    const double raised = motionOf(addNote, sec) * (1 - motionOf(saveNote, sec));
    if (raised <= 0) return;
    canvas.fill({0, 0, screen.widthPt + 1, screen.heightPt + 1}, 0, hex(0x000000, 0.3 * raised));
    canvas.group(0, (1 - raised) * (screen.heightPt - sheetTopPt), 1,
        {0, 0, screen.widthPt + 1, screen.heightPt + 1}, [&](Canvas& sheet) { noteSheet(sheet, sec); });
}

// Taps where the targets are, and two strokes: up the list, and along the chart.
void fingers(Canvas& canvas, double sec) {
    for (std::size_t i = 0; i < script().size(); ++i) {
        const ScriptedStep& step = script()[i];
        double x = step.target.x + step.target.width / 2, y = step.target.y + step.target.height / 2;
        double strength = pressed(step, sec);
        if (i == scrollJournal) {
            y = 700 - 160 * glided(sec, step.actionSec, step.actionSec + 0.4);
        } else if (i == readChart) {
            x = chartLeft + chartWidth * readingAt(sec);
            y = chartY + 44;
            strength = std::clamp((sec - step.actionSec + 0.1) / 0.1, 0.0, 1.0) *
                       std::clamp((step.endSec + 0.05 - sec) / 0.1, 0.0, 1.0);
        } else if (i == goBack) {
            x = 44;
            y = 80;
        }
        if (i != writeNote && strength > 0) touch(canvas, x, y, strength);
    }
}

void app(Canvas& canvas, double sec) {
    const Frame all{0, 0, screen.widthPt + 1, screen.heightPt + 1};
    const double opened = motionOf(openWalk, sec) * (1 - motionOf(goBack, sec));
    const JournalState list{journalScrollPt * motionOf(scrollJournal, sec), pressed(script()[openWalk], sec)};
    if (opened < 1)
        canvas.group(-0.3 * screen.widthPt * opened, 0, 1, all, [&](Canvas& below) { journal(below, list); });
    if (opened > 0)
        canvas.group(
            screen.widthPt * (1 - opened), 0, 1, all, [&](Canvas& above) { walkScreen(above, sec); });
    fingers(canvas, sec);
}

bool isMarked(double sec) {
    return std::ranges::any_of(script(), [sec](const ScriptedStep& step) {
        return std::ranges::any_of(std::initializer_list<double>{step.actionSec, step.endSec},
            [sec](double mark) { return mark <= sec && sec < mark + markHoldSec; });
    });
}

bool isFlash(double sec) {
    constexpr double holdSec = SyncFlash::holdMs / 1000.0;
    return (sec >= 0 && sec < holdSec) || (sec >= flowLengthSec && sec < flowLengthSec + holdSec);
}

}   // namespace

imaging::Image frameAt(double sec) {
    const Color magenta{SyncFlash::red, SyncFlash::green, SyncFlash::blue, 1};
    Canvas canvas(screen);
    if (isFlash(sec)) {
        canvas.fill({0, 0, screen.widthPt + 1, screen.heightPt + 1}, 0, magenta);
        return canvas.image();
    }
    app(canvas, sec);
    const double sidePt = SyncFrameDetector::markSidePx(screen.widthPx()) / screen.pxPerPt;
    if (isMarked(sec)) canvas.fill({0, screen.heightPt - sidePt, sidePt, sidePt + 1}, 0, magenta);
    return canvas.image();
}

}   // namespace tavix::walkrecording
