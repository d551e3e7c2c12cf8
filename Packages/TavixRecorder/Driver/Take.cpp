#include "TavixRecorder/Driver/Take.h"

#include "TavixRecorder/Driver/Easing.h"

#include <algorithm>
#include <cmath>

namespace tavix::recorder {

namespace {

// A mouse is as quick as a calm hand: longer ways take longer, by less than their length.
constexpr double shortestGlideSec = 0.25, glideSecAtThousandPoints = 0.75;

}   // namespace

Overlay Take::overlay() const {
    Overlay over;
    over.isFlash = isFlash_;
    over.isMarked = markNext_ == film_.frameCount();
    const double scale = stage_.pixelsPerPoint(), x = hand_.x * scale, y = hand_.y * scale;
    if (!isFinger()) {
        if (isMouseShown_) over.pointer = Pointer{x, y, downSec_ && !upSec_};
    } else if (downSec_ && (!upSec_ || nowSec() - *upSec_ < TouchRing::fadeSec)) {
        over.ring = TouchRing{x, y, nowSec() - *downSec_ + frameSec(),
            upSec_ ? std::optional(nowSec() - *upSec_) : std::nullopt};
    }
    return over;
}

void Take::frame() {
    const std::string& picture = stage_.nextFrame();
    film_.add(picture, overlay());
    observe();
}

void Take::observe() {
    const Json seen = stage_.ask("motion");
    const Json* running = seen.find("running");
    const Json* layout = seen.find("layout");
    const double now = layout ? layout->doubleValue().value_or(0) : 0;
    motion_ = {.hasPicture = stage_.hasChanged(),
        .hasLayout = now != layout_,
        .isAnimated = running && running->doubleValue().value_or(0) > 0,
        .isLoading = seen.isNull() || stage_.openRequests() > 0};
    layout_ = now;
    const double shownSec = nowSec() - frameSec();
    if (motion_.isAnimated || motion_.isLoading) movedSec_ = endingMovedSec_ = shownSec;
    if (motion_.hasPicture || motion_.hasLayout) movedSec_ = shownSec;
    const bool isEndless =
        (motion_.hasPicture || motion_.hasLayout) && !motion_.isAnimated && !motion_.isLoading;
    restlessFrames_ = isEndless ? restlessFrames_ + 1 : 0;
}

void Take::hold(double sec) {
    for (auto left = times_.framesIn(sec); left > 0; --left) frame();
}

void Take::during(double sec, const std::function<void(double)>& step) {
    const auto count = std::max<std::int64_t>(times_.framesIn(sec), 1);
    for (std::int64_t i = 1; i <= count; ++i) {
        step(double(i) / double(count));
        frame();
    }
}

void Take::reach(PagePoint to) {
    if (isFinger()) return;
    if (!isMouseShown_) {   // it comes in from below the middle
        hand_ = {stage_.settings().widthPt * 0.5, stage_.settings().heightPt * 0.9};
        isMouseShown_ = true;
    }
    const PagePoint from = hand_;
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    if (length < 1) return;
    const double sec = std::max(shortestGlideSec, glideSecAtThousandPoints * std::sqrt(length / 1000));
    during(sec, [&](double progress) {
        const double way = Easing::inOut(progress);
        hand_ = {from.x + (to.x - from.x) * way, from.y + (to.y - from.y) * way};
        stage_.hover(hand_.x, hand_.y);
    });
}

void Take::lay(PagePoint at) {
    hand_ = at;
    downSec_ = nowSec();
    upSec_.reset();
}

void Take::press(PagePoint at) {
    lay(at);
    if (isFinger())
        stage_.touch(Stage::Phase::down, at.x, at.y);
    else
        stage_.mouse(Stage::Phase::down, at.x, at.y);
}

void Take::drag(PagePoint to) {
    hand_ = to;
    if (isFinger())
        stage_.touch(Stage::Phase::move, to.x, to.y);
    else
        stage_.mouse(Stage::Phase::move, to.x, to.y);
}

void Take::release() {
    upSec_ = nowSec();
    if (isFinger())
        stage_.touch(Stage::Phase::up, hand_.x, hand_.y);
    else
        stage_.mouse(Stage::Phase::up, hand_.x, hand_.y);
}

void Take::tap(PagePoint at, double sec) {
    lay(at);
    stage_.mouse(Stage::Phase::down, at.x, at.y);
    hold(sec);
    stage_.mouse(Stage::Phase::up, at.x, at.y);
    upSec_ = nowSec();
    frame();
}

void Take::longPress(PagePoint at, double sec) {
    lay(at);
    stage_.mouse(Stage::Phase::down, at.x, at.y);
    hold(sec);
    stage_.ask("longPressed", {at.x, at.y});
    frame();
    stage_.mouse(Stage::Phase::up, at.x, at.y);
    upSec_ = nowSec();
    frame();
}

void Take::markAt(double sec) {
    const std::int64_t frame = times_.framesIn(sec);
    if (frame < film_.frameCount())
        film_.mark(frame);
    else
        markNext_ = frame;
}

}   // namespace tavix::recorder
