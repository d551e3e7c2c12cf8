// The JSON Patch that makes one document out of another.
#pragma once

#include "TavixCore/Paths/JsonPatch.h"

namespace tavix {

// Small, though not always the smallest: a value is replaced as a whole where that is shorter to say than
// what differs in it. Elements of lists are matched by their "id", then by likeness, so an element that
// stands elsewhere in its list is a `move` and what changed in it is told by itself. applyPatch(diff(a, b),
// a) == b.
JsonPatch diff(const Json& before, const Json& after);

template <class T> JsonPatch diff(const T& before, const T& after) {
    return diff(writeValue(typeOf<T>(), &before), writeValue(typeOf<T>(), &after));
}

}   // namespace tavix
