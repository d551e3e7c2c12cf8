#include "Engine/Verbs/NewVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Documents/StarterDocument.h"
#include "Engine/Documents/Templates.h"
#include "Engine/Output/FrameSize.h"
#include "Engine/System/Errors.h"
#include "TavixCore/Project/BundlePath.h"
#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Support/FileBytes.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace tavix::engine {

namespace {

constexpr int leastSidePx = 320, mostSidePx = 4096;   // what lint takes

namespace fs = std::filesystem;

void requireFreshBundle(const fs::path& bundle) {
    const std::string extension = std::string(".").append(CompositionProjectBundle::pathExtension);
    if (lastComponent(bundle).extension() != extension)
        throw UsageError("A bundle's name ends in " + extension + "; call it \"" +
                         lastComponent(bundle).string() + extension + "\".");
    if (fs::exists(fs::symlink_status(bundle)))
        throw Failure("\"" + bundle.string() + "\" is there already and is left alone; choose another name.");
}

std::string sizeText(imaging::Size size) {
    return std::to_string(size.width) + "x" + std::to_string(size.height);
}

TemplateDocument documentFor(
    const std::optional<std::string>& name, const std::optional<imaging::Size>& size) {
    if (!name) return {std::string(starterDocument()), {}};
    const Template& chosen = templateNamed(*name);
    return documentOf(chosen, size.value_or(chosen.size));
}

void makeFolder(const fs::path& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) throw Failure("Cannot make \"" + folder.string() + "\": " + error.message() + ".");
}

// The document comes last: a bundle without one is none.
void write(const TemplateDocument& made, const fs::path& bundle) {
    const fs::path assets = bundle / CompositionProjectBundle::assetsDirName;
    if (!made.assets.empty()) makeFolder(assets);
    for (const fs::path& asset : made.assets)
        writeBytesAtomically(readBytes(asset), assets / asset.filename());
    writeBytesAtomically(made.json, CompositionProjectBundle::specFile(bundle));
}

}   // namespace

void NewVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("bundle", bundle_, "The bundle to make; its name ends in .tavixcomp.");
    arguments.text("--template", template_, "NAME", "What to start from; tavix new --list tells the names.");
    std::vector<std::string> names;
    for (const Template& entry : templates()) names.emplace_back(entry.name);
    arguments.completes("--template", std::move(names));
    arguments.value(
        "--size", "WxH",
        [this](const std::string& text) { size_ = sizeNamed(text, leastSidePx, mostSidePx); },
        "The frame of a template, as in 1080x1920; its own by default.");
    arguments.flag("--list", isList_, "List the templates.");
    arguments.jsonFlag(terminal);
}

void NewVerb::list(Terminal& terminal) const {
    JsonArray entries;
    std::string lines;
    for (const Template& entry : templates()) {
        entries.push_back(JsonObject{{"name", entry.name}, {"about", entry.about},
            {"widthPx", entry.size.width}, {"heightPx", entry.size.height}});
        lines += std::string(entry.name) + std::string(16 - entry.name.size(), ' ') + sizeText(entry.size) +
                 std::string(12 - sizeText(entry.size).size(), ' ') + std::string(entry.about) + "\n";
    }
    if (terminal.mode() == Terminal::Mode::json)
        terminal.result(std::move(entries));
    else
        terminal.result(lines + "\nAs in tavix new hello.tavixcomp --template teaser --size 1080x1920\n");
}

void NewVerb::run(Terminal& terminal) {
    if (isList_) return list(terminal);
    if (bundle_.empty()) throw UsageError("new needs the name of the bundle to make, as in hello.tavixcomp.");
    if (size_ && !template_) throw UsageError("--size goes with --template.");
    const fs::path bundle = bundle_;
    const TemplateDocument made = documentFor(template_, size_);
    requireFreshBundle(bundle);
    makeFolder(bundle);
    try {
        write(made, bundle);
    } catch (const Failure&) {
        std::error_code ignored;
        fs::remove_all(bundle, ignored);
        throw;
    }
    const fs::path document = CompositionProjectBundle::specFile(bundle);
    terminal.tell("✓ Wrote " + document.string());
    terminal.tell("  Next: tavix " + std::string(template_ ? "sheet " : "render ") + bundle_);
    if (terminal.mode() == Terminal::Mode::json)
        terminal.report({{"bundle", bundle.string()}, {"document", document.string()}});
}

}   // namespace tavix::engine
