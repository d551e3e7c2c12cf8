// Which moments of a film a contact sheet shows.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tavix::engine {

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

// The frames that it means, both ends included.
struct SheetSpan {
    std::int64_t first = 0, last = 0;
};
// Throws `UsageError` for times outside the film and scenes that it does not have.
SheetSpan sheetSpan(const CompositionSpec& spec, const SheetWish& wish);

// About how many moments a span wants.
int sheetMomentCount(const CompositionSpec& spec, const SheetSpan& span);
// At most `count` moments in their order: the first and the last frame, where scenes begin to stand alone, a
// few of each transition, and between them even steps. A span with fewer frames shows each once.
std::vector<SheetMoment> sheetMoments(const CompositionSpec& spec, const SheetSpan& span, int count);
// One every so many seconds from the first frame on. Throws `UsageError` for more than a sheet holds.
std::vector<SheetMoment> steadyMoments(const CompositionSpec& spec, const SheetSpan& span, double everySec);

}   // namespace tavix::engine
