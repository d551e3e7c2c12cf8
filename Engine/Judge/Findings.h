// What the judge of documents says, for people and for machines.
#pragma once

#include "TavixCore/Findings/CompositionFinding.h"
#include "TavixCore/Judge/Muting.h"
#include "TavixCore/Support/Json.h"

#include <span>
#include <string>
#include <vector>

namespace tavix {
struct DocumentFile;
}

namespace tavix::engine {

class Terminal;

// As in "error scenes[0].durationSec: Scenes need a length.", with the suggestion and the code of the rule on
// a line of their own.
std::string linesOf(std::span<const CompositionLint::Finding> findings);

// What a document is judged by, beside whether it can be read and its times make sense.
struct Checks {
    bool lint = false;                    // the document itself, its files and what the eye would see
    bool footage = false;                 // films that end too early
    bool frames = false;                  // the frames themselves
    std::vector<std::string> mute = {};   // codes, beside those of the document
};
// Of a document on the disk. One that cannot be read has one finding, and no others can be made; `Failure`
// when there is nothing to read.
CompositionLint::Told findingsOf(const std::string& given, const Checks& checks, Terminal& terminal);
// Of one that is open.
CompositionLint::Told findingsIn(DocumentFile document, const Checks& checks, Terminal& terminal);
// What its author wrote; null where that is no JSON.
Json writtenIn(const std::string& given);
// As the result of the command, with what mends each finding; how many are muted goes to standard error.
// Throws `ErrorsTold` when there are errors among those that are told.
void report(const std::string& given, const CompositionLint::Told& told, Terminal& terminal);

// On standard error, each as the warning or the error that it is.
void tellFindings(std::span<const CompositionLint::Finding> findings, Terminal& terminal);

// Turns beats and marks into seconds. Throws a `DocumentError` with the first error of resolving, of judging
// or of files that cannot be drawn, unless the document mutes its rule.
void requirePassing(DocumentFile& document);
// The same without judging; what cannot be resolved stays.
void resolveTimes(DocumentFile& document);

}   // namespace tavix::engine
