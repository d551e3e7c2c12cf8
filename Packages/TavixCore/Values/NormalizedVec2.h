// A displacement in fractions of a size, usually of the output frame.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <type_traits>

namespace tavix {

struct NormalizedVec2 {
    double x = 0, y = 0;

    static const NormalizedVec2 zero;
    bool operator==(const NormalizedVec2&) const = default;
};

inline constexpr NormalizedVec2 NormalizedVec2::zero{};

const Fields<NormalizedVec2>& fieldsOf(std::type_identity<NormalizedVec2>);

}   // namespace tavix
