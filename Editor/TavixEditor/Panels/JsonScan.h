// Where things stand in a text of JSON that somebody is still writing: it may be unfinished or wrong.
#pragma once

#include "TavixCore/Paths/JsonPointer.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::editor {

// Bytes of the text, as half-open ranges.
struct JsonSpan {
    JsonPointer at;
    std::size_t keyFrom = 0;   // where the key begins; the value itself where there is none
    std::size_t from = 0, to = 0;
};

// What would be written at a place of the text.
struct JsonCursor {
    JsonPointer holder;             // the object or the list around it
    bool isInside = false;          // of an object or a list
    bool isKey = false;             // a key, and otherwise a value
    JsonPointer value;              // the place of that value
    std::size_t from = 0, to = 0;   // of the word that stands there already
};

class JsonScan {
public:
    // The cursor is a byte of the text, 0 to its size.
    explicit JsonScan(std::string_view text, std::size_t cursor = 0);

    const std::vector<JsonSpan>& spans() const { return spans_; }   // in the order in which values begin
    // The last of that place; null when there is none.
    const JsonSpan* find(const JsonPointer& at) const;
    // The same, or of the nearest thing around it that is there.
    const JsonSpan* nearest(JsonPointer at) const;
    const JsonCursor& cursor() const { return cursor_; }
    std::vector<std::string> keysOf(const JsonPointer& object) const;
    // The text that a value is; nothing where it is none.
    std::optional<std::string> textAt(const JsonPointer& at) const;

private:
    struct Frame;
    class Run;

    std::vector<JsonSpan> spans_;
    std::map<std::string, std::string, std::less<>> texts_;   // by their pointers
    JsonCursor cursor_;
};

// The text of a value without the indentation of the line that it begins in.
std::string dedented(std::string_view text, const JsonSpan& span);
// The text with that value in place of what stands there, indented again.
std::string withPart(std::string_view text, const JsonSpan& span, std::string_view part);

}   // namespace tavix::editor
