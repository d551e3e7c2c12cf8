// What may stand at a place of a document's text, told by the tables that read it.
#pragma once

#include "TavixCore/Support/Type.h"
#include "TavixEditor/Panels/JsonScan.h"

#include <string>
#include <vector>

namespace tavix::editor {

struct JsonCandidate {
    std::string text;      // as it is written, with its quotation marks
    std::string meaning;   // of a key
    bool operator==(const JsonCandidate&) const = default;
};

// The text of `scan` is a value of the document, which stands at `base` in a value of that type. A key that
// is there already is no candidate, nor is one that only older documents have.
std::vector<JsonCandidate> candidatesAt(const JsonScan& scan, const Type& root, const JsonPointer& base);

}   // namespace tavix::editor
