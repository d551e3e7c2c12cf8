#include "Engine/Verbs/ManualVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Manners/ManualPages.h"
#include "Engine/System/Errors.h"
#include "Engine/Verbs/Verbs.h"
#include "TavixCore/Support/FileBytes.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace tavix::engine {

namespace {

namespace fs = std::filesystem;

std::string pageOf(const std::string& verb) {
    const auto tables = verbTables(verbs());
    if (verb.empty()) return manualPage(tables);
    const auto found = std::ranges::find(tables, verb, &VerbTable::name);
    if (found != tables.end()) return manualPage(*found);
    std::vector<std::string_view> known;
    for (const VerbTable& table : tables) known.push_back(table.name);
    throw UsageError("There is no verb \"" + verb + "\"." + suggestion(verb, known) + " See tavix --help.");
}

std::vector<fs::path> writePages(const fs::path& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) throw Failure("Cannot make \"" + folder.string() + "\": " + error.message() + ".");
    const auto tables = verbTables(verbs());
    std::vector<fs::path> written{folder / "tavix.1"};
    writeBytesAtomically(manualPage(tables), written.front());
    for (const VerbTable& table : tables) {
        written.push_back(folder / (pageName(table) + ".1"));
        writeBytesAtomically(manualPage(table), written.back());
    }
    return written;
}

}   // namespace

void ManualVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional(
        "verb", verb_, "The verb that the page explains; the command as a whole by default.");
    arguments.positional("of", second_, "The second word of a verb that has two.");
    arguments.text("-o,--output", folder_, "FOLDER", "Write all pages into this folder instead.");
    arguments.quietFlag(terminal);
    arguments.jsonFlag(terminal);
}

void ManualVerb::run(Terminal& terminal) {
    const bool isJson = terminal.mode() == Terminal::Mode::json;
    if (!folder_) {
        const std::string page = pageOf(second_.empty() ? verb_ : verb_ + " " + second_);
        return isJson ? terminal.report({{"page", page}}) : terminal.result(page);
    }
    if (!verb_.empty()) throw UsageError("--output writes all pages; leave out \"" + verb_ + "\".");
    JsonArray files;
    for (const fs::path& file : writePages(*folder_)) files.emplace_back(file.string());
    terminal.tell("✓ Wrote " + std::to_string(files.size()) + " pages into " + *folder_);
    if (isJson) terminal.report({{"files", std::move(files)}});
}

}   // namespace tavix::engine
