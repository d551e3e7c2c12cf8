#include "Engine/Verbs/ResolveVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Documents/DocumentFile.h"
#include "Engine/Judge/Findings.h"
#include "Engine/System/Errors.h"
#include "TavixCore/Judge/CompositionRoad.h"
#include "TavixCore/Support/Document.h"

namespace tavix::engine {

void ResolveVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("document", document_, "A .tavixcomp bundle or a composition.json.",
        "resolve needs a document: a .tavixcomp bundle or a composition.json.");
    arguments.jsonFlag(terminal);
}

void ResolveVerb::run(Terminal& terminal) {
    const DocumentFile document = openDocument(document_);
    CompositionResolution resolution = CompositionRoad::resolve(document.spec, document.assetRoot);
    // What is printed has no place of its own that the paths of its files could hang from.
    resolution.spec.assetRoot = document.assetRoot.string();
    tellFindings(resolution.findings, terminal);
    terminal.result(encodedJson(resolution.spec) + "\n");
    if (hasErrors(resolution.findings)) throw ErrorsTold();
}

}   // namespace tavix::engine
