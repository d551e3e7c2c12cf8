#include "Clip.h"

#include "Parts.h"
#include "Screens.h"

#include <algorithm>
#include <cmath>

namespace tavix::phonetour {

namespace {

// How far a step from one time to another has come, 0 to 1.
double step(double atSec, double fromSec, double toSec) {
    return std::clamp((atSec - fromSec) / (toSec - fromSec), 0.0, 1.0);
}
double eased(double t) { return t * t * (3 - 2 * t); }
double glided(double t) { return 1 - std::pow(1 - t, 3.6); }   // as a list that was flung
// Held from one time to another, and a tenth of a second to come and go.
double held(double atSec, double fromSec, double toSec) {
    return eased(step(atSec, fromSec, fromSec + 0.1)) * (1 - eased(step(atSec, toSec, toSec + 0.14)));
}

struct Finger {
    double x, y, strength;
};

constexpr double scrollSec = 0.8, tapRowSec = 3.0, openSec = 3.25, tapPulseSec = 5.7, scrubSec = 6.7,
                 scrubEndSec = 8.5, tapBackSec = 9.0, closeSec = 9.2;

Finger fingerAt(double t) {
    if (t < 2) {
        const double way = eased(step(t, scrollSec - 0.05, scrollSec + 0.35));
        return {286, 660 - 210 * way, held(t, scrollSec - 0.12, scrollSec + 0.26)};
    }
    if (t < 4) return {236, openedRowY, held(t, tapRowSec - 0.08, tapRowSec + 0.1)};
    if (t < 6.3) return {pulseSegmentX, segmentY, held(t, tapPulseSec - 0.08, tapPulseSec + 0.08)};
    const double along = 0.14 + 0.68 * eased(step(t, scrubSec + 0.2, scrubEndSec - 0.15));
    if (t < 8.9) return {chartLeft + chartWidth * along, chartY + 44, held(t, scrubSec, scrubEndSec)};
    return {44, 80, held(t, tapBackSec - 0.06, tapBackSec + 0.08)};
}

WalkState walkAt(double t) {
    WalkState state;
    state.drawn = eased(step(t, openSec + 0.25, openSec + 1.75));
    state.toPulse = eased(step(t, tapPulseSec + 0.06, tapPulseSec + 0.5));
    state.scrubbed = 0.14 + 0.68 * eased(step(t, scrubSec + 0.2, scrubEndSec - 0.15));
    state.scrubStrength = held(t, scrubSec + 0.02, scrubEndSec);
    return state;
}

}   // namespace

Image clipFrame(double t) {
    const double width = clipScreen.widthPt, height = clipScreen.heightPt;
    const Frame all{0, 0, width + 1, height + 1};
    const double opened =
        glided(step(t, openSec, openSec + 0.5)) * (1 - glided(step(t, closeSec, closeSec + 0.5)));
    const JournalState list{journalScrollPt * glided(step(t, scrollSec, scrollSec + 1.5)),
        held(t, tapRowSec - 0.05, tapRowSec + 0.2)};
    Canvas canvas(clipScreen);
    if (opened < 1)
        canvas.group(-0.3 * width * opened, 0, 1, all, [&](Canvas& below) { journal(below, list); });
    if (opened > 0) {
        canvas.fill(all, 0, hex(0x000000, 0.16 * opened));
        canvas.shadow({width * (1 - opened), 0, width, height}, 0, 10, 0.18);
        canvas.group(width * (1 - opened), 0, 1, all, [&](Canvas& above) { walk(above, walkAt(t)); });
    }
    const Finger finger = fingerAt(t);
    touch(canvas, finger.x, finger.y, finger.strength);
    return canvas.image();
}

}   // namespace tavix::phonetour
