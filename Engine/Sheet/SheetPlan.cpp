#include "Engine/Sheet/SheetPlan.h"

#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixRender/Export/CompositionRenderer.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace tavix::engine {

namespace {

using Kind = SheetMoment::Kind;
using KindByFrame = std::map<std::int64_t, Kind>;

constexpr double secondsPerMoment = 0.8;
constexpr int fewestMoments = 12, mostMomentsUnasked = 32;

// The cuts of the film, its first and its last frame.
KindByFrame fixedMoments(const CompositionSpec& spec) {
    const CompositionTimeline timeline(spec);
    const std::int64_t last = CompositionRenderer::frameCount(spec) - 1;
    KindByFrame moments{{last, Kind::step}};
    const auto put = [&](double atSec, Kind kind) {
        moments[std::clamp<std::int64_t>(std::llround(atSec * double(spec.output.fps)), 0, last)] = kind;
    };
    double overlapSec = 0;
    for (std::size_t i = 0; i < timeline.startSec.size(); ++i) {
        if (overlapSec > 0) put(timeline.startSec[i] + overlapSec / 2, Kind::transition);
        put(timeline.startSec[i] + overlapSec, Kind::sceneStart);
        overlapSec = timeline.transitionDurations[i];
    }
    return moments;
}

std::vector<SheetMoment> listOf(const KindByFrame& moments, int most) {
    std::vector<SheetMoment> all;
    for (const auto& [frame, kind] : moments) all.push_back({frame, kind});
    const auto count = std::min(all.size(), static_cast<std::size_t>(most));
    for (std::size_t i = 0; i < count; ++i) all[i] = all[i * all.size() / count];
    all.resize(count);
    return all;
}

// A stretch between two fixed moments and how many steps stand inside it.
struct Stretch {
    std::int64_t from, to, steps = 0;
    double stepFrames() const { return double(to - from) / double(steps + 1); }
    bool hasRoom() const { return steps < to - from - 1; }
};

// Each step goes where the steps are widest.
void fill(std::vector<Stretch>& stretches, int steps) {
    for (; steps > 0; --steps) {
        const auto widest =
            std::max_element(stretches.begin(), stretches.end(), [](const Stretch& a, const Stretch& b) {
                return (a.hasRoom() ? a.stepFrames() : 0) < (b.hasRoom() ? b.stepFrames() : 0);
            });
        if (widest == stretches.end() || !widest->hasRoom()) return;
        ++widest->steps;
    }
}

}   // namespace

int sheetMomentCount(const CompositionSpec& spec) {
    const double wanted = CompositionTimeline(spec).totalSec / secondsPerMoment;
    return static_cast<int>(std::clamp<double>(std::round(wanted), fewestMoments, mostMomentsUnasked));
}

std::vector<SheetMoment> sheetMoments(const CompositionSpec& spec, int count) {
    KindByFrame moments = fixedMoments(spec);
    std::vector<Stretch> stretches;
    for (auto next = std::next(moments.begin()); next != moments.end(); ++next)
        stretches.push_back({std::prev(next)->first, next->first});
    fill(stretches, count - static_cast<int>(moments.size()));
    for (const Stretch& stretch : stretches)
        for (std::int64_t i = 1; i <= stretch.steps; ++i)
            moments.emplace(stretch.from + std::llround(double(i) * stretch.stepFrames()), Kind::step);
    return listOf(moments, count);
}

}   // namespace tavix::engine
