#include "Engine/Verbs/TimelineVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Documents/DocumentFile.h"
#include "Engine/Judge/Findings.h"
#include "Engine/Output/OutputPath.h"
#include "Engine/System/Errors.h"
#include "TavixAgent/Exchange/OpenTimeline.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixCore/Support/JsonWriter.h"

namespace tavix::engine {

void TimelineVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("document", document_, "A .tavixcomp bundle or a composition.json.",
        "timeline needs a document: a .tavixcomp bundle or a composition.json.");
    arguments.text("-o,--output", output_, "FILE",
        "The time line, an .otio file (OpenTimelineIO). It is printed by default.");
    arguments.jsonFlag(terminal);
}

void TimelineVerb::run(Terminal& terminal) {
    DocumentFile document = openDocument(document_);
    requirePassing(document);
    const OpenTimeline made = openTimeline(document.spec, document.name, document.assetRoot);
    for (const Finding& note : made.notes) terminal.warn(note);
    if (!output_) return terminal.result(made.json);
    if (lowerExtension(*output_) != ".otio")
        throw UsageError("\"" + *output_ + "\" is no name for a time line; use .otio.");
    writeBytesAtomically(writeJson(made.json) + "\n", *output_);
    terminal.tell("✓ Wrote " + *output_);
    if (terminal.mode() == Terminal::Mode::json) terminal.report({{"output", *output_}});
}

}   // namespace tavix::engine
