#include "Engine/Verbs/NewVerb.h"

#include "Engine/Arguments.h"
#include "Engine/Errors.h"
#include "Engine/StarterDocument.h"
#include "Engine/Terminal.h"
#include "TavixCore/Project/BundlePath.h"
#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Support/FileBytes.h"

#include <filesystem>
#include <system_error>

namespace tavix::engine {

namespace {

namespace fs = std::filesystem;

void requireFreshBundle(const fs::path& bundle) {
    const std::string extension = std::string(".").append(CompositionProjectBundle::pathExtension);
    if (lastComponent(bundle).extension() != extension)
        throw UsageError("A bundle's name ends in " + extension + "; call it \"" +
                         lastComponent(bundle).string() + extension + "\".");
    if (fs::exists(fs::symlink_status(bundle)))
        throw Failure("\"" + bundle.string() + "\" is there already and is left alone; choose another name.");
}

}   // namespace

void NewVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("bundle", bundle_, "The bundle to make; its name ends in .tavixcomp.",
        "new needs the name of the bundle to make, as in hello.tavixcomp.");
    arguments.jsonFlag(terminal);
}

void NewVerb::run(Terminal& terminal) {
    const fs::path bundle = bundle_;
    requireFreshBundle(bundle);
    std::error_code error;
    fs::create_directories(bundle, error);
    if (error) throw Failure("Cannot make \"" + bundle.string() + "\": " + error.message() + ".");
    const fs::path document = CompositionProjectBundle::specFile(bundle);
    try {
        writeBytesAtomically(starterDocument(), document);
    } catch (const Failure&) {
        fs::remove(bundle, error);
        throw;
    }
    terminal.tell("✓ Wrote " + document.string());
    terminal.tell("  Next: tavix render " + bundle_);
    if (terminal.mode() == Terminal::Mode::json)
        terminal.result(JsonObject{{"bundle", bundle.string()}, {"document", document.string()}});
}

}   // namespace tavix::engine
