#include "Engine/Verbs/SchemaVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Documents/DocumentReference.h"
#include "Engine/System/Errors.h"
#include "TavixCore/Project/DocumentSchemas.h"
#include "TavixReel/Project/ReelSchemas.h"

#include <vector>

namespace tavix::engine {

namespace {

std::vector<std::string_view> typeNames() {
    std::vector<std::string_view> names;
    for (const DocumentSchema& schema : documentSchemas()) names.push_back(schema.name);
    for (const DocumentSchema& schema : reelSchemas()) names.push_back(schema.name);
    return names;
}

const DocumentSchema& schemaNamed(const std::string& type) {
    if (const DocumentSchema* schema = documentSchema(type)) return *schema;
    for (const DocumentSchema& schema : reelSchemas())
        if (schema.name == type) return schema;
    const std::vector<std::string_view> names = typeNames();
    throw UsageError(
        "There is no type \"" + type + "\"; use " + listed(names) + "." + suggestion(type, names));
}

}   // namespace

void SchemaVerb::declare(Arguments& arguments, Terminal& terminal) {
    const std::vector<std::string_view> names = typeNames();
    arguments.positional("type", type_, "One of " + listed(names) + "; composition by default.");
    arguments.completes("type", {names.begin(), names.end()});
    arguments.flag("--markdown", isMarkdown_, "Print a page for people instead.");
    arguments.jsonFlag(terminal);
}

void SchemaVerb::run(Terminal& terminal) {
    if (isMarkdown_ && terminal.mode() == Terminal::Mode::json)
        throw UsageError("--markdown is for people and --json for machines; leave out one of them.");
    const DocumentSchema& schema = type_.empty() ? documentSchemas().front() : schemaNamed(type_);
    if (isMarkdown_)
        terminal.result(documentReference(schema));
    else
        terminal.result(schema.schema());
}

}   // namespace tavix::engine
