// Which moments of a film a contact sheet shows.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Document/FrameRate.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tavix::engine {

class Arguments;

struct SheetMoment {
    enum class Kind { step, sceneStart, transition };

    std::int64_t frame = 0;
    Kind kind = Kind::step;
    bool operator==(const SheetMoment&) const = default;
};

inline constexpr int maxSheetMoments = 48;

// What a sheet is asked to show. Without a scene, times count in the film; with one, in that scene.
struct SheetWish {
    std::optional<double> fromSec, toSec, everySec;
    std::optional<std::string> scene;
};

// The arguments of every verb that draws a sheet.
void declareSheet(
    Arguments& arguments, std::optional<int>& columns, std::optional<int>& widthPx, SheetWish& wish);

// What of a film makes a moment worth seeing.
struct SheetOutline {
    struct Stretch {
        double startSec = 0, endSec = 0;
    };

    FrameRate fps;
    std::int64_t frameCount = 0;
    double lengthSec = 0;
    std::vector<double> startsSec;         // where something new stands alone
    std::vector<Stretch> transitionsSec;   // in the order of time
};
SheetOutline outlineOf(const CompositionSpec& spec);

// The frames that a wish means, both ends included.
struct SheetSpan {
    std::int64_t first = 0, last = 0;
};
// Throws `UsageError` for times outside the film and scenes that it does not have.
SheetSpan sheetSpan(const CompositionSpec& spec, const SheetWish& wish);
// The same for a film without scenes.
SheetSpan sheetSpan(const SheetOutline& film, const SheetWish& wish);

// About how many moments a span wants.
int sheetMomentCount(const SheetOutline& film, const SheetSpan& span);
// At most `count` moments in their order: the first and the last frame, where scenes begin to stand alone, a
// few of each transition, and between them even steps. A span with fewer frames shows each once.
std::vector<SheetMoment> sheetMoments(const SheetOutline& film, const SheetSpan& span, int count);
// One every so many seconds from the first frame on. Throws `UsageError` for more than a sheet holds.
std::vector<SheetMoment> steadyMoments(const SheetOutline& film, const SheetSpan& span, double everySec);

// The moments of a span: at steady times where the wish says so, and otherwise about as many as it wants, and
// as many more as there is room for beside so many.
std::vector<SheetMoment> sheetMoments(const SheetOutline& film, const SheetSpan& span, const SheetWish& wish,
    const std::function<int(int count)>& roomFor);

}   // namespace tavix::engine
