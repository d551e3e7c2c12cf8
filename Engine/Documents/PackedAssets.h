// What `pack` asks of the files that a document names, before it copies any: a document from elsewhere must
// not carry off what else lies on the machine.
#pragma once

#include "Engine/Documents/DocumentFile.h"

namespace tavix::engine {

class Terminal;

enum class OutsideFiles { refused, allowed };

// Throws `Failure` that names every file outside of the document's folder, unless they are allowed; then each
// is told. Throws also for a file that cannot be decoded as what the document takes it for. A missing file is
// left to packing.
void requirePackable(const DocumentFile& document, OutsideFiles outside, Terminal& terminal);

}   // namespace tavix::engine
