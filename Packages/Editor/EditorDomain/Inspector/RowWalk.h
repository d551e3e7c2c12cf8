// Walks the tables of a record and makes the rows of an inspector of what it meets.
#pragma once

#include "Editor/EditorDomain/Inspector/InspectorRows.h"
#include "TavixCore/Support/Type.h"

#include <vector>

namespace tavix {

// Of records of the same type, at least one: the rows that all of them have. Times in beats and marks, which
// become seconds when a document is read, are left out.
std::vector<InspectorRow> rowsOf(const Type& record, const std::vector<const void*>& records);

}   // namespace tavix
