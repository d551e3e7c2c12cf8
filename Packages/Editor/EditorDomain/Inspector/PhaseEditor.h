// How a layer comes and goes, as rows: what such a phase heeds, in the order in which it is thought of,
// within bounds in which it is of use.
#pragma once

#include "Editor/EditorDomain/Inspector/InspectorRows.h"

#include <vector>

namespace tavix {

// Of the rows of a layer, those of its enter and exit phases. What a phase around a whole layer does not heed
// is left out, unless a document has it.
void arrangePhases(std::vector<InspectorRow>& rows);

}   // namespace tavix
