#include "Engine/Verbs/ResolveVerb.h"

#include "Engine/Arguments.h"
#include "Engine/DocumentFile.h"
#include "Engine/Terminal.h"
#include "TavixCore/Support/Document.h"

namespace tavix::engine {

void ResolveVerb::declare(Arguments& arguments, Terminal&) {
    arguments.positional("document", document_, "A .tavixcomp bundle or a composition.json.",
        "resolve needs a document: a .tavixcomp bundle or a composition.json.");
}

void ResolveVerb::run(Terminal& terminal) {
    terminal.result(encodedJson(openDocument(document_).spec) + "\n");
}

}   // namespace tavix::engine
