// Which moments of a film a contact sheet shows.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"

#include <cstdint>
#include <vector>

namespace tavix::engine {

struct SheetMoment {
    enum class Kind { step, sceneStart, transition };

    std::int64_t frame = 0;
    Kind kind = Kind::step;
    bool operator==(const SheetMoment&) const = default;
};

inline constexpr int maxSheetMoments = 48;

// About how many moments a film of that length wants.
int sheetMomentCount(const CompositionSpec& spec);

// At most `count` moments in their order: where scenes begin to stand alone, the middles of transitions, and
// between them even steps. A film with fewer frames shows each once.
std::vector<SheetMoment> sheetMoments(const CompositionSpec& spec, int count);

}   // namespace tavix::engine
