// How the elements of a text block are offset against one another.
#pragma once

#include "TavixCore/Animation/AnimationEnums.h"

#include <cstdint>

namespace tavix {

struct Stagger {
    double delaySec = 0;   // between neighbouring ranks
    StaggerOrder order = StaggerOrder::normal;
    double overlap = 0;      // 0 to 1; kept for authors, plays no part in the schedule
    std::int64_t seed = 0;   // of the random order

    static const Stagger simultaneous;

    // The place of an element in the order; 0 for an index outside the count.
    int rank(int index, int count) const;
    double startOffsetSec(int rank) const;   // a negative rank counts as 0
    bool operator==(const Stagger&) const = default;
};

inline constexpr Stagger Stagger::simultaneous{};

const Fields<Stagger>& fieldsOf(std::type_identity<Stagger>);

}   // namespace tavix
