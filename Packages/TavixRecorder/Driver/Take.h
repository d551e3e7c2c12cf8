// One take: the page, the film of it, and the hand that works the page, all on one clock, the film's.
#pragma once

#include "TavixRecorder/Film/Film.h"
#include "TavixRecorder/Page/Stage.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace tavix::recorder {

struct PagePoint {
    double x = 0, y = 0;   // points of the window
};

// Every member that lets time pass adds frames to the film. Throws as `Stage` and `Film` do.
class Take {
public:
    Take(Stage& stage, Film& film) : stage_(stage), film_(film), times_(stage.settings().fps) {}

    // When the next frame shows, in seconds of the film.
    double nowSec() const { return times_.secAt(film_.frameCount()); }
    double frameSec() const { return times_.secAt(1); }
    Stage& stage() { return stage_; }

    void frame();
    void hold(double sec);
    // A frame for each step of a movement, with its progress, above 0 and up to 1.
    void during(double sec, const std::function<void(double progress)>& step);

    // The hand. A mouse glides to where it presses; a finger comes down there, and drags by touches.
    void reach(PagePoint to);
    void press(PagePoint at);
    void drag(PagePoint to);
    void release();
    // A browser makes clicks and menus of touches by a clock of its own, which a slow machine would show. So
    // a page feels a mouse here, whatever hand is drawn.
    void tap(PagePoint at, double sec);
    void longPress(PagePoint at, double sec);
    bool isFinger() const { return stage_.settings().hand == Hand::finger; }

    void setFlash(bool isOn) { isFlash_ = isOn; }
    // Marks the frame that shows at that time, of the film so far or the next one.
    void markAt(double sec);

    // What moved in the last frame, compared with the one before it.
    struct Motion {
        bool hasPicture = false;   // the picture differs
        bool hasLayout = false;    // something stands elsewhere
        bool isAnimated = false;   // an animation that will end is running
        bool isLoading = false;
    };
    const Motion& motion() const { return motion_; }
    // When the last frame was shown in which something moved, or something that will end; below 0 when
    // nothing has.
    enum class Moved { any, endingOnly };
    double lastMovedSec(Moved what) const { return what == Moved::any ? movedSec_ : endingMovedSec_; }
    // Whether pictures or places have been changing for a while without anything that will end: a spinner, a
    // film.
    bool isRestless() const { return restlessFrames_ >= times_.framesIn(restlessSec); }

private:
    static constexpr double restlessSec = 0.2;
    Overlay overlay() const;
    void observe();
    void lay(PagePoint at);

    Stage& stage_;
    Film& film_;
    FrameTimes times_;
    PagePoint hand_{-1, -1};
    std::optional<double> downSec_, upSec_;
    bool isMouseShown_ = false, isFlash_ = false;
    std::optional<std::int64_t> markNext_;
    Motion motion_;
    std::int64_t restlessFrames_ = 0;
    double layout_ = 0, movedSec_ = -1, endingMovedSec_ = -1;
};

}   // namespace tavix::recorder
