// The limits that a table states, asked for by the member itself.
#pragma once

#include "TavixCore/Support/Fields.h"

namespace tavix {

// The number that a member of the record holds, moved into the limits of its row; as it is without limits.
double withinLimits(const RecordType& type, const void* record, const double& member);

template <Record R> double withinLimits(const R& record, const double& member) {
    return withinLimits(fieldsOf(std::type_identity<R>{}).type, &record, member);
}

}   // namespace tavix
