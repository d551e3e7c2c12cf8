// Writes what an inspector's controls say into the selection.
#pragma once

#include "Editor/EditorDomain/Inspector/InspectorRows.h"

#include <optional>
#include <string>

namespace tavix::InspectorEdit {

// Each gives a finished sentence when the value does not fit; then nothing has changed.
using Complaint = std::optional<std::string>;

// The value of a row in all that is selected. Null takes an optional value away.
Complaint set(EditState& state, const JsonPointer& path, const Json& value);
// A part of a few numbers that belong together; the others keep theirs, each layer its own.
Complaint setPart(EditState& state, const JsonPointer& path, const std::string& part, double value);
// To the value that a new document has there.
Complaint reset(EditState& state, const InspectorRow& row);
// Whether an optional value with parts is there, fresh or away.
void setPresent(EditState& state, const JsonPointer& path, bool isThere);
// Which of its forms the value has; a fresh one of that form.
void setAlternative(EditState& state, const JsonPointer& path, const std::string& tag);
// One more at the end of a list, as fresh as can be; sounds stand at a time of the film, and an emphasis
// takes the first word that has none.
void append(EditState& state, const JsonPointer& path, double atSec);
// The left upper corner of a layer of that size, along an axis: "x" or "y".
void setCorner(EditState& state, const std::string& axis, double toPx, double sizePx);
// An element of a list.
Complaint remove(EditState& state, const JsonPointer& path);

}   // namespace tavix::InspectorEdit
