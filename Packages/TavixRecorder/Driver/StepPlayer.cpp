#include "TavixRecorder/Driver/StepPlayer.h"

#include "TavixCore/Support/Document.h"
#include "TavixCore/Support/Names.h"
#include "TavixRecorder/Browser/WholeNumber.h"
#include "TavixRecorder/Driver/Easing.h"
#include "TavixRecorder/Driver/Typist.h"

#include <algorithm>
#include <cmath>

namespace tavix::recorder {

namespace {

constexpr double tapSec = 0.1, longPressSec = 0.7, scrollSec = 0.9, swipeSec = 0.35;
constexpr double afterReachSec = 0.1;                          // between a mouse's arrival and its press
constexpr double mostMotionSec = 6;                            // then it is taken for one that does not end
constexpr double scrollFraction = 0.6, swipeFraction = 0.55;   // of the window, without a distance
constexpr double edgePt = 8;                                   // a finger stays on the glass
constexpr double revealSecPerWindow = 0.9, shortestRevealSec = 0.35, longestRevealSec = 1.6;

double numberAt(const Json& json, std::string_view key) {
    const Json* value = json.find(key);
    return value ? value->doubleValue().value_or(0) : 0;
}

bool isTrue(const Json& json, std::string_view key) {
    const Json* value = json.find(key);
    return value && value->boolean() && *value->boolean();
}

LogicalRect rectAt(const Json& json, std::string_view key) {
    const Json* rect = json.find(key);
    if (!rect) return {};
    return {numberAt(*rect, "x"), numberAt(*rect, "y"), numberAt(*rect, "width"), numberAt(*rect, "height")};
}

std::string inQuotes(std::string_view text) { return std::string("\"").append(text).append("\""); }

std::string shown(const Target& target) {
    return std::string(nameOf(target.kind)) + " " + inQuotes(target.identifier);
}

// "the page shows "a", "b" and "c"".
std::string nearOnes(const Json& found) {
    const Json* near = found.find("near");
    const JsonArray* names = near ? near->array() : nullptr;
    if (!names || names->empty()) return "the page shows nothing of that kind";
    std::string text = "the page shows ";
    for (std::size_t i = 0; i < names->size(); ++i)
        text += (i == 0                      ? ""
                    : i + 1 == names->size() ? " and "
                                             : ", ") +
                inQuotes((*names)[i].stringValue().value_or(""));
    return text;
}

double seconds(std::int64_t milliseconds) { return std::max<double>(0, double(milliseconds)) / 1000; }

bool isVertical(SwipeDirection direction) {
    return direction == SwipeDirection::up || direction == SwipeDirection::down;
}

}   // namespace

DoneReport::StepMark StepPlayer::play(const Step& step) {
    if (step.state) take_.stage().tell("tavix:state", writeValue(typeOf<MockState>(), &*step.state));
    const bool goesBack = step.interaction == Interaction::navPop && step.target.identifier.empty();
    if (!goesBack) {
        awaitTarget(step);
        reveal();
    }
    DoneReport::StepMark mark;
    mark.index = step.index;
    mark.startedAt = take_.nowSec();
    mark.type = std::string(nameOf(step.interaction));
    mark.label = step.target.label;
    take_.hold(seconds(step.dwellBeforeMs));
    const bool wasRestless = take_.isRestless();
    if (goesBack)
        goBack(mark);
    else
        act(step, mark);
    const double actionSec = mark.actionAt.value_or(mark.startedAt);
    const double actedSec = take_.nowSec();
    mark.motionEndAt = untilRest(step, wasRestless, actionSec);
    if (options_.areMarked && mark.motionEndAt) take_.markAt(*mark.motionEndAt);
    const double restSec = std::max(mark.motionEndAt.value_or(0), actedSec);
    take_.hold(restSec + seconds(step.dwellAfterMs) - take_.nowSec());
    mark.endedAt = take_.nowSec();
    return mark;
}

void StepPlayer::awaitTarget(const Step& step) {
    const Target& target = step.target;
    const double untilSec = take_.nowSec() + options_.patienceSec;
    LogicalRect before;
    for (Json found;; take_.frame()) {
        found = take_.stage().ask("find", {nameOf(target.kind), target.identifier});
        const LogicalRect rect = rectAt(found, "rect");
        const bool isSteady = rect == before && rect.width > 0;
        before = rect;
        if (isTrue(found, "isShown") && isTrue(found, "isEnabled") && isSteady) {
            const double count = numberAt(found, "count");
            if (count > 1)
                notes_.push_back("Step " + std::to_string(step.index) + ": " + shown(target) + " fits " +
                                 whole(count) + " elements; the first was taken.");
            return;
        }
        if (take_.nowSec() < untilSec) continue;
        const Json* what = found.find("what");
        const std::string element = what ? what->stringValue().value_or("") : "";
        const std::string within = " within " + whole(options_.patienceSec) + " seconds";
        if (!isTrue(found, "isFound"))
            throw Failure("There was no " + shown(target) + within + "; " + nearOnes(found) + ".");
        if (!isTrue(found, "isShown"))
            throw Failure(shown(target) + " is " + element + ", which was not to be seen" + within + ".");
        if (!isTrue(found, "isEnabled"))
            throw Failure(shown(target) + " is " + element + ", which was disabled for " +
                          whole(options_.patienceSec) + " seconds.");
        return;   // it moves all the time, as in a ticker, and is taken where it is
    }
}

// Scrolls what is around the target, from the outside in, until it is well in sight.
void StepPlayer::reveal() {
    for (int i = 0; i < 3; ++i) {
        const Json answer = take_.stage().ask("revealing");
        const double distance = std::abs(answer.doubleValue().value_or(0));
        if (distance < 1) return;
        const double sec =
            std::clamp(revealSecPerWindow * std::sqrt(distance / take_.stage().settings().heightPt),
                shortestRevealSec, longestRevealSec);
        take_.during(sec, [&](double t) { take_.stage().ask("scrollTo", {Easing::inOut(t)}); });
    }
}

// What lies over the target, or keeps it out of the window, may still be leaving.
StepPlayer::Landing StepPlayer::landing(const Step& step, bool mayBeCovered) {
    const double untilSec = take_.nowSec() + options_.patienceSec;
    for (;; take_.frame()) {
        const Json found = take_.stage().ask("landing");
        const Landing landing{{numberAt(found, "x"), numberAt(found, "y")}, rectAt(found, "part")};
        const bool isSeen = landing.part.width > 0 && landing.part.height > 0;
        const Json* cover = found.find("cover");
        const bool isFree = mayBeCovered || !cover || !cover->text();
        if (isSeen && isFree) return landing;
        if (take_.nowSec() < untilSec) continue;
        if (!isSeen) throw Failure(shown(step.target) + " cannot be brought into sight.");
        throw Failure(shown(step.target) + " is covered by " + *cover->text() + ".");
    }
}

// From here on the sidecar speaks of what happens.
void StepPlayer::begin(const Landing& landing, DoneReport::StepMark& mark) {
    mark.actionAt = take_.nowSec();
    mark.rect = landing.part;
    if (options_.areMarked) take_.markAt(*mark.actionAt);
}

void StepPlayer::act(const Step& step, DoneReport::StepMark& mark) {
    switch (step.interaction) {
    case Interaction::longPress: return tap(step, step.durationSec.value_or(longPressSec), mark);
    case Interaction::textEntry: return enterText(step, mark);
    case Interaction::scroll: return scroll(step, mark);
    case Interaction::swipe: return swipe(step, mark);
    case Interaction::sheetDismiss:
        if (step.direction) return swipe(step, mark);
        break;
    default: break;
    }
    tap(step, tapSec, mark);
}

void StepPlayer::tap(const Step& step, double holdSec, DoneReport::StepMark& mark) {
    Landing where = landing(step, false);
    if (!take_.isFinger()) {
        take_.reach(where.at);
        take_.hold(afterReachSec);
        where = landing(step, false);
    }
    begin(where, mark);
    if (step.interaction == Interaction::longPress)
        take_.longPress(where.at, holdSec);
    else
        take_.tap(where.at, holdSec);
}

void StepPlayer::enterText(const Step& step, DoneReport::StepMark& mark) {
    tap(step, tapSec, mark);
    take_.hold(0.25);
    const Json takesText = take_.stage().ask("focusedIsText");
    if (!takesText.boolean() || !*takesText.boolean())
        throw Failure(shown(step.target) +
                      " takes no text: after a tap on it nothing that can be typed into has the focus.");
    const std::string text = step.target.textValue.value_or("");
    if (text.empty())
        notes_.push_back(
            "Step " + std::to_string(step.index) + " types nothing; target.textValue says what.");
    const bool isTyped = step.animated.value_or(true);
    Typist typist(options_.paceSeed + std::to_string(step.index));
    for (const Typist::Stroke& stroke : typist.strokes(text, isTyped ? step.durationSec : 0)) {
        take_.stage().type(stroke.character);
        if (isTyped) take_.hold(std::max(stroke.thenSec, take_.frameSec()));
    }
}

void StepPlayer::scroll(const Step& step, DoneReport::StepMark& mark) {
    const Landing where = landing(step, true);
    const SwipeDirection direction = step.direction.value_or(SwipeDirection::down);
    const bool goesOn = direction == SwipeDirection::down || direction == SwipeDirection::right;
    const Json distance = step.distance ? Json(std::abs(*step.distance)) : Json();
    const Json planned = take_.stage().ask(
        "scrolling", {isVertical(direction), distance, goesOn ? scrollFraction : -scrollFraction});
    if (std::abs(planned.doubleValue().value_or(0)) < 1)
        throw Failure(shown(step.target) + " does not scroll " + std::string(nameOf(direction)) +
                      ": nothing there can, or it is at its end.");
    take_.reach(where.at);
    begin(where, mark);
    const double sec = step.animated.value_or(true) ? step.durationSec.value_or(scrollSec) : take_.frameSec();
    take_.during(sec, [&](double t) { take_.stage().ask("scrollTo", {Easing::inOut(t)}); });
}

void StepPlayer::swipe(const Step& step, DoneReport::StepMark& mark) {
    const Landing where = landing(step, false);
    const StageSettings& window = take_.stage().settings();
    const SwipeDirection direction = step.direction.value_or(SwipeDirection::left);
    const bool vertical = isVertical(direction);
    const double side = vertical ? window.heightPt : window.widthPt;
    const double sign = direction == SwipeDirection::right || direction == SwipeDirection::down ? 1 : -1;
    const double length = std::min(std::abs(step.distance.value_or(side * swipeFraction)), side - 2 * edgePt);
    // It begins on the target, as far back as it needs to end on the glass.
    const double low = std::max(vertical ? where.part.y : where.part.x, edgePt);
    const double high = std::min(
        vertical ? where.part.y + where.part.height : where.part.x + where.part.width, side - edgePt);
    const double wanted = vertical ? where.at.y : where.at.x;
    const double most = sign > 0 ? side - edgePt - length : side - edgePt,
                 least = sign > 0 ? edgePt : edgePt + length;
    const double start =
        std::clamp(std::clamp(wanted, least, std::max(least, most)), low, std::max(low, high));
    const auto at = [&](double way) {
        const double moved = std::clamp(start + sign * length * way, edgePt, side - edgePt);
        return vertical ? PagePoint{where.at.x, moved} : PagePoint{moved, where.at.y};
    };
    take_.reach(at(0));
    begin(where, mark);
    take_.press(at(0));   // the first frame has a movement in it too, so that this is no long press
    take_.during(step.durationSec.value_or(swipeSec), [&](double t) { take_.drag(at(Easing::out(t))); });
    take_.release();
    take_.frame();
}

void StepPlayer::goBack(DoneReport::StepMark& mark) {
    mark.actionAt = take_.nowSec();
    if (options_.areMarked) take_.markAt(*mark.actionAt);
    take_.stage().goBack();
    take_.frame();
}

// A page that moves by itself all the time is at rest when nothing else moves.
std::optional<double> StepPlayer::untilRest(const Step& step, bool wasRestless, double sinceSec) {
    const double untilSec = take_.nowSec() + mostMotionSec;
    const auto lastSec = [&] {
        return std::max(
            sinceSec, take_.lastMovedSec(wasRestless ? Take::Moved::endingOnly : Take::Moved::any));
    };
    while (take_.nowSec() - lastSec() < calmSec + take_.frameSec()) {
        take_.frame();
        if (take_.nowSec() < untilSec) continue;
        notes_.push_back("Step " + std::to_string(step.index) + ": the page still moved " +
                         whole(mostMotionSec) + " seconds after it; the flow went on.");
        break;
    }
    const bool isLong = lastSec() > sinceSec + 1.5 * take_.frameSec();   // marks of both ends are apart
    return isLong ? std::optional(lastSec()) : std::nullopt;
}

}   // namespace tavix::recorder
