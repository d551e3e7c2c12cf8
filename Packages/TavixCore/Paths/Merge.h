// Merges two changed copies of a document by the document that both came from.
#pragma once

#include "TavixCore/Paths/JsonPointer.h"
#include "TavixCore/Support/Codec.h"
#include "TavixCore/Support/Json.h"

#include <optional>
#include <string>
#include <vector>

namespace tavix {

// A value that both sides changed, each in its own way. The merged document has ours.
struct MergeConflict {
    JsonPointer path;                         // in the merged document, or where it would be
    std::optional<Json> base, ours, theirs;   // nothing: it is not there

    // "/scenes/0/durationSec" was 4; here it became 5, there 6.
    std::string message() const;
    bool operator==(const MergeConflict&) const = default;
};

struct Merged {
    Json document;
    std::vector<MergeConflict> conflicts;
};

// Objects are merged key by key; lists of objects element by element, matched as in `diff`, in the order of
// the side that changed it; any other value is one thing. A removal and a change of the same value are a
// conflict.
Merged merge(const Json& base, const Json& ours, const Json& theirs);

// The same of records, by their written form.
template <class T> Merged merge(const T& base, const T& ours, const T& theirs) {
    const Type& type = typeOf<T>();
    return merge(writeValue(type, &base), writeValue(type, &ours), writeValue(type, &theirs));
}

}   // namespace tavix
