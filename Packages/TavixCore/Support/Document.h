// Documents in and out: JSON text or a file to a record, and back by the standard writer.
#pragma once

#include "TavixCore/Support/DecodingError.h"
#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixCore/Support/JsonParser.h"
#include "TavixCore/Support/JsonWriter.h"
#include "TavixCore/Support/Schema.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace tavix {

// Reading throws a `DecodingError`, or a `Failure` when the file cannot be read.
template <class T> T decodeValue(const Json& json) {
    T value{};
    readValue(typeOf<T>(), json, &value, KeyPath());
    return value;
}

template <class T> T decodeJson(std::string_view bytes) { return decodeValue<T>(parseJson(bytes)); }

template <class T> T decodeFile(const std::filesystem::path& file) {
    return decodeJson<T>(readBytes(file, JsonLimits{}.maxBytes));
}

// Writing throws a `Failure` for a number that is not finite, or when the file cannot be written.
template <class T> std::string encodedJson(const T& value) {
    return writeJson(writeValue(typeOf<T>(), &value));
}

template <class T> void writeFile(const T& value, const std::filesystem::path& file) {
    writeBytesAtomically(encodedJson(value), file);
}

// The JSON Schema of a record, an enumeration or a union, as a document of its own.
template <class T> Json schemaOf(std::string_view title) { return schemaOf(typeOf<T>(), title); }

}   // namespace tavix
