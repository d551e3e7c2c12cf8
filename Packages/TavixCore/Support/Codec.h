// Values of a document and their JSON form, by their types.
#pragma once

#include "TavixCore/Support/Json.h"
#include "TavixCore/Support/KeyPath.h"
#include "TavixCore/Support/Type.h"

#include <optional>
#include <string>

namespace tavix {

struct Field;
struct RecordType;

// Fills a freshly made value. Throws a `DecodingError` that says what is wrong and where.
void readValue(const Type& type, const Json& json, void* into, const KeyPath& at);
// What the reader would say of the value of one row, read into a record of its own; nothing when it can be
// read.
std::optional<std::string> whyUnreadable(
    const RecordType& record, const Field& row, const Json& json, const KeyPath& at);
Json writeValue(const Type& type, const void* from);

template <class T> struct Codec {
    static void read(const Json& json, T& into, const KeyPath& at) {
        readValue(typeOf<T>(), json, &into, at);
    }
    static Json write(const T& from) { return writeValue(typeOf<T>(), &from); }
};

}   // namespace tavix
