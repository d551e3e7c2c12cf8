#include "Engine/Sheet/SheetPlan.h"

#include "Engine/Errors.h"
#include "Engine/SceneNames.h"
#include "TavixCore/Support/JsonWriter.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixRender/Export/CompositionRenderer.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>

namespace tavix::engine {

namespace {

using Kind = SheetMoment::Kind;
using KindByFrame = std::map<std::int64_t, Kind>;

constexpr double secondsPerMoment = 0.8;
constexpr int fewestMoments = 12, mostMomentsUnasked = 32, mostPerTransition = 3;

std::int64_t lastFrame(const CompositionSpec& spec) { return CompositionRenderer::frameCount(spec) - 1; }

// The cuts within a span, its first and its last frame. Of each transition so many frames, evenly spaced.
KindByFrame fixedMoments(const CompositionSpec& spec, const SheetSpan& span, int perTransition) {
    const CompositionTimeline timeline(spec);
    KindByFrame moments{{span.first, Kind::step}, {span.last, Kind::step}};
    const auto put = [&](double atSec, Kind kind) {
        const std::int64_t frame =
            std::clamp<std::int64_t>(spec.output.fps.frameNearest(atSec), 0, lastFrame(spec));
        if (frame >= span.first && frame <= span.last) moments[frame] = kind;
    };
    double overlapSec = 0;
    for (std::size_t i = 0; i < timeline.startSec.size(); ++i) {
        for (int k = 1; overlapSec > 0 && k <= perTransition; ++k)
            put(timeline.startSec[i] + overlapSec * k / (perTransition + 1), Kind::transition);
        put(timeline.startSec[i] + overlapSec, Kind::sceneStart);
        overlapSec = timeline.transitionDurations[i];
    }
    return moments;
}

Kind kindOf(const CompositionTimeline& timeline, double atSec) {
    return timeline.sample(atSec)->incoming ? Kind::transition : Kind::step;
}

std::string seconds(double sec) { return writeJson(std::round(sec * 1000) / 1000) + " s"; }

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

SheetSpan sheetSpan(const CompositionSpec& spec, const SheetWish& wish) {
    const CompositionTimeline timeline(spec);
    double startSec = 0, lengthSec = timeline.totalSec;
    if (wish.scene) {
        const std::size_t scene = sceneNamed(spec, *wish.scene);
        startSec = timeline.startSec[scene];
        lengthSec = std::max(spec.scenes[scene].durationSec, 0.0);
    }
    const double fromSec = wish.fromSec.value_or(0), toSec = wish.toSec.value_or(lengthSec);
    if (!(fromSec >= 0 && toSec <= lengthSec + 0.5 / double(spec.output.fps) && fromSec <= toSec))
        throw UsageError("There are no pictures from " + seconds(fromSec) + " to " + seconds(toSec) +
                         "; the " + (wish.scene ? "scene" : "film") + " runs from 0 to " +
                         seconds(lengthSec) + ".");
    const std::int64_t last = lastFrame(spec);
    const auto frameAt = [&](double sec) {
        return std::clamp<std::int64_t>(spec.output.fps.frameNearest(startSec + sec), 0, last);
    };
    // What ends where nothing more is shown ends with the frame before.
    const bool isToEnd = toSec >= lengthSec;
    return {frameAt(fromSec),
        std::max(frameAt(toSec) - (isToEnd && frameAt(toSec) < last ? 1 : 0), frameAt(fromSec))};
}

int sheetMomentCount(const CompositionSpec& spec, const SheetSpan& span) {
    const double wanted = std::round(spec.output.fps.secAt(span.last - span.first) / secondsPerMoment);
    const int plain = static_cast<int>(std::clamp<double>(wanted, fewestMoments, mostMomentsUnasked));
    const std::size_t cuts = fixedMoments(spec, span, 1).size(),
                      all = fixedMoments(spec, span, mostPerTransition).size();
    return std::min(plain + static_cast<int>(all - cuts), maxSheetMoments);
}

std::vector<SheetMoment> steadyMoments(const CompositionSpec& spec, const SheetSpan& span, double everySec) {
    const FrameRate& fps = spec.output.fps;
    const double lengthSec = fps.secAt(span.last - span.first);
    const double count = everySec > 0 ? std::floor(lengthSec / everySec + 1e-9) + 1 : maxSheetMoments + 1;
    if (count > maxSheetMoments)
        throw UsageError("--every " + writeJson(everySec) + " makes more than the " +
                         std::to_string(maxSheetMoments) + " pictures that a sheet holds; give at least " +
                         seconds(std::ceil(lengthSec / (maxSheetMoments - 1) * 1000) / 1000) +
                         ", or a shorter stretch by --from and --to.");
    const CompositionTimeline timeline(spec);
    KindByFrame moments;
    for (int i = 0; i < int(count); ++i) {
        const std::int64_t frame = std::min(span.first + fps.frameNearest(i * everySec), span.last);
        moments.emplace(frame, kindOf(timeline, fps.secAt(frame)));
    }
    return listOf(moments, maxSheetMoments);
}

std::vector<SheetMoment> sheetMoments(const CompositionSpec& spec, const SheetSpan& span, int count) {
    KindByFrame moments;
    for (int each = mostPerTransition; each >= 1; --each) {
        moments = fixedMoments(spec, span, each);
        if (int(moments.size()) <= count) break;
    }
    std::vector<Stretch> stretches;
    for (auto next = std::next(moments.begin()); next != moments.end(); ++next)
        stretches.push_back({std::prev(next)->first, next->first});
    fill(stretches, count - static_cast<int>(moments.size()));
    const CompositionTimeline timeline(spec);
    const auto put = [&](std::int64_t frame) {
        moments.emplace(frame, kindOf(timeline, spec.output.fps.secAt(frame)));
    };
    for (const Stretch& stretch : stretches)
        for (std::int64_t i = 1; i <= stretch.steps; ++i)
            put(stretch.from + std::llround(double(i) * stretch.stepFrames()));
    return listOf(moments, count);
}

}   // namespace tavix::engine
