// A part of the document's text while somebody writes it, and what the reader says of it.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Paths/JsonPointer.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tavix::editor {

struct JsonFault {
    std::string message;   // a finished sentence
    int line = 0;          // of the part, counted from 0
    bool operator==(const JsonFault&) const = default;
};

struct JsonPart {
    std::string text;   // of the value, without the indentation of its place
    JsonPointer at;
};

// Where the selection stands in the text that `spec` was read from: a layer, a scene, or all of it.
JsonPointer writtenPlaceOf(
    const CompositionSpec& spec, std::optional<std::size_t> scene, std::optional<std::size_t> layer);

// The part of a whole text; all of it where there is no such place.
JsonPart partOfText(const std::string& whole, const JsonPointer& at);

// The whole text with the part in its place. Nothing where that place is gone.
std::optional<std::string> wholeWith(const std::string& whole, const JsonPart& part);

// What the reader says of the part, within its document; nothing where it can be read.
std::optional<JsonFault> faultIn(const JsonPart& part, const std::string& whole);

// What of the part is read in vain, as keys that nobody knows.
std::vector<JsonFault> ignoredIn(const JsonPart& part, const std::string& whole);

}   // namespace tavix::editor
