#include "Engine/Sheet/SheetPlan.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Sheet/SheetLayout.h"
#include "Engine/System/Errors.h"
#include "TavixAgent/Document/SceneNames.h"
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

std::int64_t lastFrame(const SheetOutline& film) { return film.frameCount - 1; }

// What starts within a span, its first and its last frame. Of each transition so many frames, evenly spaced.
KindByFrame fixedMoments(const SheetOutline& film, const SheetSpan& span, int perTransition) {
    KindByFrame moments{{span.first, Kind::step}, {span.last, Kind::step}};
    const auto put = [&](double atSec, Kind kind) {
        const std::int64_t frame = std::clamp<std::int64_t>(film.fps.frameNearest(atSec), 0, lastFrame(film));
        if (frame >= span.first && frame <= span.last) moments[frame] = kind;
    };
    for (const auto& [startSec, endSec] : film.transitionsSec)
        for (int k = 1; k <= perTransition; ++k)
            put(startSec + (endSec - startSec) * k / (perTransition + 1), Kind::transition);
    for (const double startSec : film.startsSec) put(startSec, Kind::sceneStart);
    return moments;
}

Kind kindOf(const SheetOutline& film, std::int64_t frame) {
    const double atSec = film.fps.secAt(frame);
    const bool isWithin = std::ranges::any_of(film.transitionsSec,
        [atSec](const SheetOutline::Stretch& s) { return s.startSec <= atSec && atSec < s.endSec; });
    return isWithin ? Kind::transition : Kind::step;
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

void declareSheet(
    Arguments& arguments, std::optional<int>& columns, std::optional<int>& widthPx, SheetWish& wish) {
    constexpr int minSheetWidthPx = 200;
    arguments.wholeNumber("--columns", columns, 1, maxSheetMoments, "N", "Pictures in a row.");
    arguments.wholeNumber(
        "--width", widthPx, minSheetWidthPx, SheetLayout::maxSidePx, "PX", "The sheet's width.");
    arguments.number("--from", wish.fromSec, "SEC", "The first moment; the start by default.");
    arguments.number("--to", wish.toSec, "SEC", "The last moment; the end by default.");
    arguments.number("--every", wish.everySec, "SEC",
        "A picture every so many seconds; without it, where there is something to see.");
}

SheetOutline outlineOf(const CompositionSpec& spec) {
    const CompositionTimeline timeline(spec);
    SheetOutline film{spec.output.fps, CompositionRenderer::frameCount(spec), timeline.totalSec, {}, {}};
    double overlapSec = 0;
    for (std::size_t i = 0; i < timeline.startSec.size(); ++i) {
        const double startSec = timeline.startSec[i];
        if (overlapSec > 0) film.transitionsSec.push_back({startSec, startSec + overlapSec});
        film.startsSec.push_back(startSec + overlapSec);
        overlapSec = timeline.transitionDurations[i];
    }
    return film;
}

namespace {

// `whole` is what the wish's times count in, called `name`.
SheetSpan spanWithin(
    const SheetOutline& film, const SheetOutline::Stretch& whole, const SheetWish& wish, const char* name) {
    const double lengthSec = whole.endSec - whole.startSec;
    const double fromSec = wish.fromSec.value_or(0), toSec = wish.toSec.value_or(lengthSec);
    if (!(fromSec >= 0 && toSec <= lengthSec + 0.5 / double(film.fps) && fromSec <= toSec))
        throw UsageError("There are no pictures from " + seconds(fromSec) + " to " + seconds(toSec) +
                         "; the " + name + " runs from 0 to " + seconds(lengthSec) + ".");
    const std::int64_t last = lastFrame(film);
    const auto frameAt = [&](double sec) {
        return std::clamp<std::int64_t>(film.fps.frameNearest(whole.startSec + sec), 0, last);
    };
    // What ends where nothing more is shown ends with the frame before.
    const bool isToEnd = toSec >= lengthSec;
    return {frameAt(fromSec),
        std::max(frameAt(toSec) - (isToEnd && frameAt(toSec) < last ? 1 : 0), frameAt(fromSec))};
}

}   // namespace

SheetSpan sheetSpan(const CompositionSpec& spec, const SheetWish& wish) {
    const SheetOutline film = outlineOf(spec);
    if (!wish.scene) return sheetSpan(film, wish);
    const std::size_t scene = sceneNamed(spec, *wish.scene);
    const double startSec = CompositionTimeline(spec).startSec[scene];
    return spanWithin(
        film, {startSec, startSec + std::max(spec.scenes[scene].durationSec, 0.0)}, wish, "scene");
}

SheetSpan sheetSpan(const SheetOutline& film, const SheetWish& wish) {
    return spanWithin(film, {0, film.lengthSec}, wish, "film");
}

int sheetMomentCount(const SheetOutline& film, const SheetSpan& span) {
    const double wanted = std::round(film.fps.secAt(span.last - span.first) / secondsPerMoment);
    const int plain = static_cast<int>(std::clamp<double>(wanted, fewestMoments, mostMomentsUnasked));
    const std::size_t cuts = fixedMoments(film, span, 1).size(),
                      all = fixedMoments(film, span, mostPerTransition).size();
    return std::min(plain + static_cast<int>(all - cuts), maxSheetMoments);
}

std::vector<SheetMoment> steadyMoments(const SheetOutline& film, const SheetSpan& span, double everySec) {
    const FrameRate& fps = film.fps;
    const double lengthSec = fps.secAt(span.last - span.first);
    const double count = everySec > 0 ? std::floor(lengthSec / everySec + 1e-9) + 1 : maxSheetMoments + 1;
    if (count > maxSheetMoments)
        throw UsageError("--every " + writeJson(everySec) + " makes more than the " +
                         std::to_string(maxSheetMoments) + " pictures that a sheet holds; give at least " +
                         seconds(std::ceil(lengthSec / (maxSheetMoments - 1) * 1000) / 1000) +
                         ", or a shorter stretch by --from and --to.");
    KindByFrame moments;
    for (int i = 0; i < int(count); ++i) {
        const std::int64_t frame = std::min(span.first + fps.frameNearest(i * everySec), span.last);
        moments.emplace(frame, kindOf(film, frame));
    }
    return listOf(moments, maxSheetMoments);
}

std::vector<SheetMoment> sheetMoments(const SheetOutline& film, const SheetSpan& span, int count) {
    KindByFrame moments;
    for (int each = mostPerTransition; each >= 1; --each) {
        moments = fixedMoments(film, span, each);
        if (int(moments.size()) <= count) break;
    }
    std::vector<Stretch> stretches;
    for (auto next = std::next(moments.begin()); next != moments.end(); ++next)
        stretches.push_back({std::prev(next)->first, next->first});
    fill(stretches, count - static_cast<int>(moments.size()));
    const auto put = [&](std::int64_t frame) { moments.emplace(frame, kindOf(film, frame)); };
    for (const Stretch& stretch : stretches)
        for (std::int64_t i = 1; i <= stretch.steps; ++i)
            put(stretch.from + std::llround(double(i) * stretch.stepFrames()));
    return listOf(moments, count);
}

std::vector<SheetMoment> sheetMoments(const SheetOutline& film, const SheetSpan& span, const SheetWish& wish,
    const std::function<int(int count)>& roomFor) {
    if (wish.everySec) return steadyMoments(film, span, *wish.everySec);
    const auto count = static_cast<int>(sheetMoments(film, span, sheetMomentCount(film, span)).size());
    return sheetMoments(film, span, std::min(roomFor(count), maxSheetMoments));
}

}   // namespace tavix::engine
