#include "Engine/Verbs/PackVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Documents/DocumentFile.h"
#include "Engine/Documents/PackedAssets.h"
#include "Engine/System/Errors.h"
#include "Engine/System/Interruption.h"
#include "Engine/System/SystemWatch.h"
#include "TavixCore/Project/BundlePath.h"
#include "TavixCore/Project/BundleReplacement.h"
#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Project/FileOperations.h"
#include "TavixCore/Support/UnfinishedFolders.h"

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

// Looks for a signal before it touches the disk.
class InterruptibleOperations final : public FileOperations {
public:
    explicit InterruptibleOperations(const Interruption& interruption) : interruption_(interruption) {}

    void write(std::string_view bytes, const Path& file) override { checked().write(bytes, file); }
    void copy(const Path& source, const Path& file) override { checked().copy(source, file); }
    void rename(const Path& from, const Path& to) override { disk_.rename(from, to); }
    void sync(const Path& path) override { disk_.sync(path); }
    void makeFolder(const Path& folder) override { checked().makeFolder(folder); }
    void remove(const Path& path) override { disk_.remove(path); }

private:
    DiskOperations& checked() {
        interruption_.check();
        return disk_;
    }

    const Interruption& interruption_;
    DiskOperations disk_;
};

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
        "The bundle; its assets and its document are replaced. The document's name with .tavixcomp by default.");
    arguments.flag("--allow-outside", allowsOutside_,
        "Pack also files that lie outside of the document's folder; each is told.");
    arguments.jsonFlag(terminal);
}

void PackVerb::run(Terminal& terminal) {
    const Interruption interruption;
    const DocumentFile document = openDocument(document_);
    const fs::path bundle = withExtension(output_.value_or(document.name));
    requireOther(document_, bundle);
    requirePackable(document, allowsOutside_ ? OutsideFiles::allowed : OutsideFiles::refused, terminal);
    interruption.check();
    const SystemWatch::Task task("to pack the document");
    InterruptibleOperations operations(interruption);
    const fs::path staging = fs::absolute(bundle) / BundleReplacement::stagingDirName;
    const int slot = UnfinishedFolders::remember(staging);
    try {
        CompositionProjectBundle::write(document.spec, document.assetRoot, bundle, operations);
    } catch (const Interrupted&) {
        UnfinishedFolders::removeAll();
        std::error_code ignored;
        fs::remove(bundle, ignored);   // where there is nothing else in it
        throw;
    }
    UnfinishedFolders::forget(slot);
    terminal.tell("✓ Wrote " + bundle.string());
    if (terminal.mode() == Terminal::Mode::json)
        terminal.report(
            {{"bundle", bundle.string()}, {"document", CompositionProjectBundle::specFile(bundle).string()}});
}

}   // namespace tavix::engine
