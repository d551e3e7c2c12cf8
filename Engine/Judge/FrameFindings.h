// What the frames of a document show, drawn small.
#pragma once

#include "TavixCore/Findings/CompositionFinding.h"

#include <vector>

namespace tavix {
struct DocumentFile;
}

namespace tavix::engine {

class Terminal;

// Of a document with its times in seconds that can be rendered. Shows how far it is; a signal ends it.
std::vector<CompositionLint::Finding> frameFindings(const DocumentFile& document, Terminal& terminal);

}   // namespace tavix::engine
