#include "Engine/Verbs/ReadVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/System/Errors.h"
#include "TavixAgent/Edit/DocumentEdit.h"
#include "TavixAgent/Edit/DocumentPart.h"
#include "TavixAgent/Edit/Revision.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixCore/Support/JsonParser.h"

namespace tavix::engine {

void ReadVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("document", document_, "A .tavixcomp bundle or a composition.json.",
        "read needs a document: a .tavixcomp bundle or a composition.json.");
    arguments.text("--pointer", pointer_, "POINTER", "Only this part, by its JSON Pointer.");
    arguments.wholeNumber("--depth", depth_, 1, 64, "N", "Tell only the size of what lies deeper.");
    arguments.jsonFlag(terminal);
}

void ReadVerb::run(Terminal& terminal) {
    const std::string text = readBytes(documentFileOf(document_), JsonLimits{}.maxBytes);
    const std::string part =
        partOf(text, JsonPointer::parse(pointer_.value_or("")), std::size_t(depth_.value_or(0)));
    if (terminal.mode() == Terminal::Mode::json)
        return terminal.result(
            JsonObject{{"revision", revisionOf(text)}, {"pointer", pointer_.value_or("")}, {"text", part}});
    terminal.result(part + (part.ends_with('\n') ? "" : "\n"));
    terminal.tell("revision " + revisionOf(text));
}

}   // namespace tavix::engine
