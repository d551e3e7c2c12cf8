// A moment of a recording by its label: symbolic, until the recording's sidecar says when it was.
// In JSON a bare text is a mark with no clip and no offset.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <optional>
#include <string>
#include <type_traits>

namespace tavix {

struct MarkRef {
    std::string mark;
    std::optional<std::string> clip;   // the recording it belongs to; absent: the layer's own
    double offsetSec = 0;
    bool operator==(const MarkRef&) const = default;
};

const Fields<MarkRef>& fieldsOf(std::type_identity<MarkRef>);

}   // namespace tavix
