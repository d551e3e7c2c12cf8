// The clock of the timeline on the screen: which time lies at which point, and where its ticks stand.
// Distances are in points of the view, from the left end of the content; times are seconds of the film.
#pragma once

#include "TavixCore/Document/BeatGrid.h"

#include <string>
#include <vector>

namespace tavix::timeline {

inline constexpr double leastZoom = 1, mostZoom = 8;

struct Scale {
    static constexpr double insetPoints = 10;   // free at both ends

    double totalSec = 0.001;
    double widthPoints = 0;    // of the view
    double zoom = leastZoom;   // 1 shows the film exactly

    // A film without length counts as one of a thousandth of a second.
    static Scale of(double outputDurationSec, double widthPoints, double zoom);

    double pps() const;   // points a second
    double xOf(double sec) const { return insetPoints + sec * pps(); }
    double secOf(double x) const { return (x - insetPoints) / pps(); }
    double contentWidth() const { return 2 * insetPoints + totalSec * pps(); }
    double clampedScroll(double scrollX) const;
    bool operator==(const Scale&) const = default;
};

// A view of the content: how much it is enlarged, and what of it lies at the left edge.
struct View {
    double zoom = leastZoom, scrollX = 0;
    bool operator==(const View&) const = default;
};
// Enlarged by a factor, with the time under the pointer kept where it is. The pointer counts from the left
// edge of the view.
View zoomedAt(const Scale& scale, double scrollX, double pointerX, double factor);
// Scrolled no further than needed for a time to be seen, with that much free beside it.
double scrolledToShow(const Scale& scale, double scrollX, double sec, double marginPoints);

struct RulerTick {
    double sec = 0;
    std::string label;
    bool operator==(const RulerTick&) const = default;
};
// By the film's length alone, not by the zoom.
double rulerStepSec(double totalSec);
std::vector<RulerTick> rulerTicks(double totalSec);

struct BeatTick {
    double x = 0;
    bool isStrong = false;   // every fourth one
    bool operator==(const BeatTick&) const = default;
};
inline constexpr double strongBeatOpacity = 0.45, weakBeatOpacity = 0.2;
// Those between two points of the content. Weak ones only where a beat has room for itself, and none where
// four together have none.
std::vector<BeatTick> beatTicks(const BeatGrid& grid, const Scale& scale, double fromX, double toX);

// As in "01:09.40".
std::string timecode(double sec);

}   // namespace tavix::timeline
