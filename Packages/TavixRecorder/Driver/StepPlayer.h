// Plays the steps of a flow on a page, as a hand would.
#pragma once

#include "TavixBase/Failure.h"
#include "TavixRecorder/Driver/Take.h"
#include "TavixReel/Flow/FlowStep.h"
#include "TavixReel/Recording/DoneReport.h"

#include <optional>
#include <string>
#include <vector>

namespace tavix::recorder {

struct PlayOptions {
    double patienceSec = 10;   // of the page's time, for what must be there
    bool areMarked = false;    // each action and each end of motion marks the picture
    std::string paceSeed;      // of typing, which is a little uneven
};

class StepPlayer {
public:
    // So long nothing may move until a motion counts as over.
    static constexpr double calmSec = 0.15;

    StepPlayer(Take& take, PlayOptions options) : take_(take), options_(std::move(options)) {}

    // Times count from the first frame, rectangles are points of the window. Throws a `Failure` that says
    // what was looked for and what was found instead.
    DoneReport::StepMark play(const Step& step);

    // What people should know about the steps played so far.
    const std::vector<std::string>& notes() const { return notes_; }

private:
    struct Landing {
        PagePoint at;
        LogicalRect part;   // of the target, that can be seen
    };
    void awaitTarget(const Step& step);
    void reveal();
    Landing landing(const Step& step, bool mayBeCovered);
    void act(const Step& step, DoneReport::StepMark& mark);
    void begin(const Landing& landing, DoneReport::StepMark& mark);
    void tap(const Step& step, double holdSec, DoneReport::StepMark& mark);
    void enterText(const Step& step, DoneReport::StepMark& mark);
    void scroll(const Step& step, DoneReport::StepMark& mark);
    void swipe(const Step& step, DoneReport::StepMark& mark);
    void goBack(DoneReport::StepMark& mark);
    // When the motion that was under way came to its end; nothing where none was.
    std::optional<double> untilRest(const Step& step, bool wasRestless, double sinceSec);

    Take& take_;
    PlayOptions options_;
    std::vector<std::string> notes_;
};

}   // namespace tavix::recorder
