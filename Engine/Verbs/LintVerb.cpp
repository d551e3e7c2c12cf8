#include "Engine/Verbs/LintVerb.h"

#include "Engine/Arguments.h"
#include "Engine/Findings.h"

namespace tavix::engine {

void LintVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("document", document_, "A .tavixcomp bundle or a composition.json.",
        "lint needs a document: a .tavixcomp bundle or a composition.json.");
    arguments.flag(
        "--footage", opensFootage_, "Open the films too, and tell which are too short; see audit.");
    arguments.jsonFlag(terminal);
}

void LintVerb::run(Terminal& terminal) {
    report(findingsOf(document_, {.lint = true, .footage = opensFootage_}), terminal);
}

}   // namespace tavix::engine
