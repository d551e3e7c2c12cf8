// The frames that a composition is rendered to.
#pragma once

#include "TavixCore/Document/FrameRate.h"
#include "TavixCore/Support/Tables.h"

#include <cstdint>
#include <type_traits>

namespace tavix {

struct CompositionOutput {
    std::int64_t widthPx = 1920, heightPx = 1080;
    FrameRate fps = 60;
    bool operator==(const CompositionOutput&) const = default;
};

const Fields<CompositionOutput>& fieldsOf(std::type_identity<CompositionOutput>);

}   // namespace tavix
