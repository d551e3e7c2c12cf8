#include "Engine/Verbs/AuditVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Judge/Findings.h"

namespace tavix::engine {

void AuditVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("document", document_, "A .tavixcomp bundle or a composition.json.",
        "audit needs a document: a .tavixcomp bundle or a composition.json.");
    arguments.jsonFlag(terminal);
}

void AuditVerb::run(Terminal& terminal) {
    report(document_, findingsOf(document_, {.footage = true}, terminal), terminal);
}

}   // namespace tavix::engine
