#include "TavixReel/Captions/CaptionSnap.h"

#include "TavixCore/Support/Names.h"

#include <cmath>
#include <optional>
#include <span>

namespace tavix::CaptionSnap {
namespace {

struct Candidate {
    double deltaPx;
    Guide guide;
};

std::optional<Candidate> nearest(std::span<const Candidate> candidates, double thresholdPx) {
    std::optional<Candidate> best;
    for (const Candidate& candidate : candidates)
        if (std::abs(candidate.deltaPx) <= thresholdPx &&
            (!best || std::abs(candidate.deltaPx) < std::abs(best->deltaPx)))
            best = candidate;
    return best;
}

struct Axis {
    GuideKind center, near, far;
};

// Along one axis: the middle, then the edge at 0, then the other.
std::optional<Candidate> snapped(
    const Axis& axis, double start, double length, double canvas, double inset, double thresholdPx) {
    const Candidate candidates[] = {{canvas / 2 - (start + length / 2), {axis.center, canvas / 2}},
        {inset - start, {axis.near, inset}},
        {(canvas - inset) - (start + length), {axis.far, canvas - inset}}};
    return nearest(candidates, thresholdPx);
}

}   // namespace

Result resolve(const PixelRect& proposed, const CanvasGeometry::CanvasSize& canvas, double safeInsetPx,
    double thresholdPx) {
    constexpr Axis across{GuideKind::centerX, GuideKind::leftEdge, GuideKind::rightEdge};
    constexpr Axis down{GuideKind::centerY, GuideKind::topEdge, GuideKind::bottomEdge};
    Result result{proposed, {}};
    const auto settle = [&](double& start, const std::optional<Candidate>& to) {
        if (!to) return;
        start += to->deltaPx;
        result.guides.push_back(to->guide);
    };
    settle(
        result.rect.x, snapped(across, proposed.x, proposed.width, canvas.widthPx, safeInsetPx, thresholdPx));
    settle(
        result.rect.y, snapped(down, proposed.y, proposed.height, canvas.heightPx, safeInsetPx, thresholdPx));
    return result;
}

const Names<GuideKind>& namesOf(std::type_identity<GuideKind>) {
    using enum GuideKind;
    static const Names<GuideKind> table{
        "caption guide", {{leftEdge, "leftEdge"}, {rightEdge, "rightEdge"}, {topEdge, "topEdge"},
                             {bottomEdge, "bottomEdge"}, {centerX, "centerX"}, {centerY, "centerY"}}};
    return table;
}

}   // namespace tavix::CaptionSnap
