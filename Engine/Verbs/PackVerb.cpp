#include "Engine/Verbs/PackVerb.h"

#include "Engine/Arguments.h"
#include "Engine/DocumentFile.h"
#include "Engine/Errors.h"
#include "Engine/Terminal.h"
#include "TavixCore/Project/BundlePath.h"
#include "TavixCore/Project/CompositionProjectBundle.h"

#include <filesystem>
#include <system_error>

namespace tavix::engine {

namespace {

namespace fs = std::filesystem;

fs::path withExtension(const fs::path& named) {
    if (lastComponent(named).empty() || lastComponent(named) == "..")
        throw UsageError("The bundle has no name; give -o one, as in -o film.tavixcomp.");
    fs::path bundle = named.has_filename() ? named : named.parent_path();
    const std::string extension = std::string(".").append(CompositionProjectBundle::pathExtension);
    return bundle.extension() == extension ? bundle : bundle.concat(extension);
}

// Packing writes what was read, with animations and paths made plain: the original is worth keeping.
void requireOther(const fs::path& document, const fs::path& bundle) {
    const fs::path target = CompositionProjectBundle::specFile(bundle);
    std::error_code ignored;
    if (fs::equivalent(document, target, ignored) || fs::equivalent(document, bundle, ignored))
        throw UsageError("\"" + bundle.string() +
                         "\" is the document itself and is left alone; name another bundle with -o.");
}

}   // namespace

void PackVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("document", document_, "A composition.json, or a bundle with files outside of it.",
        "pack needs a document: a composition.json or a .tavixcomp bundle.");
    arguments.text("-o,--output", output_, "BUNDLE",
        "The bundle; its assets and its document are replaced. The document's name with .tavixcomp by "
        "default.");
    arguments.jsonFlag(terminal);
}

void PackVerb::run(Terminal& terminal) {
    const DocumentFile document = openDocument(document_);
    const fs::path bundle = withExtension(output_.value_or(document.name));
    requireOther(document_, bundle);
    CompositionProjectBundle::write(document.spec, document.assetRoot, bundle);
    terminal.tell("✓ Wrote " + bundle.string());
    if (terminal.mode() == Terminal::Mode::json)
        terminal.result(JsonObject{
            {"bundle", bundle.string()}, {"document", CompositionProjectBundle::specFile(bundle).string()}});
}

}   // namespace tavix::engine
