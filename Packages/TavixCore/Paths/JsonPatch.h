// JSON Patch (RFC 6902): a list of operations that make one document out of another.
#pragma once

#include "TavixBase/Failure.h"
#include "TavixCore/Paths/JsonPointer.h"
#include "TavixCore/Support/Codec.h"
#include "TavixCore/Support/Json.h"
#include "TavixCore/Support/Tables.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace tavix {

struct PatchOperation {
    enum class Kind { add, remove, replace, move, copy, test };

    Kind kind = Kind::test;
    JsonPointer path;
    JsonPointer from;   // of `move` and `copy`
    Json value;         // of `add`, `replace` and `test`
    bool operator==(const PatchOperation&) const = default;
};
using JsonPatch = std::vector<PatchOperation>;

const Names<PatchOperation::Kind>& namesOf(std::type_identity<PatchOperation::Kind>);

// An operation that cannot be done, and where.
class PatchError : public Failure {
public:
    PatchError(std::size_t index, JsonPointer pointer, const std::string& message)
        : Failure(message), operation(index), path(std::move(pointer)) {}

    std::size_t operation;   // the index of it
    JsonPointer path;        // what it could not find or change
};

// Throws a `DecodingError` for what is no patch. Members that the standard does not know are ignored.
JsonPatch readPatch(const Json& json);
Json writePatch(const JsonPatch& patch);

// The patched document; throws a `PatchError`, and then nothing has been changed.
Json applyPatch(const JsonPatch& patch, Json document);

// The same of a record, by its written form. What it is then must be readable: a `DecodingError` otherwise.
template <class T> T applyTo(const T& document, const JsonPatch& patch) {
    T patched{};
    readValue(typeOf<T>(), applyPatch(patch, writeValue(typeOf<T>(), &document)), &patched, KeyPath());
    return patched;
}

}   // namespace tavix
