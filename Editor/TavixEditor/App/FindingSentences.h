// All that the judge of documents says, for who translates it.
#pragma once

#include <span>

namespace tavix::editor {

struct FindingSentence {
    const char* pattern;      // with %1, %2 and so on, in this order, for what the judge puts in
    const char* parts = "";   // the numbers of those that are words of the judge, too
};

// Messages and suggestions, of the context "Finding".
std::span<const FindingSentence> findingSentences();
// Words of the judge within them, of the context "FindingPart".
std::span<const FindingSentence> findingParts();

}   // namespace tavix::editor
