#include "Engine/Verbs/CacheVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Quantities.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Reel/KnownProbes.h"
#include "Engine/System/Errors.h"
#include "TavixBase/Failure.h"
#include "TavixRender/Export/PieceStore.h"

#include <string>

namespace tavix::engine {

void CacheVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.flag("--clear", isCleared_, "Remove all of it. Nothing is lost but time.");
    arguments.jsonFlag(terminal);
}

void CacheVerb::run(Terminal& terminal) {
    const std::filesystem::path folder = PieceStore::usualFolder();
    if (folder.empty()) throw Failure("Nothing is kept: neither XDG_CACHE_HOME nor HOME names a folder.");
    const PieceStore store(folder);
    const PieceStore::Usage usage = isCleared_ ? store.clear() : store.usage();
    if (isCleared_) KnownProbes::usual().clear();
    if (terminal.mode() == Terminal::Mode::json)
        return terminal.report(JsonObject{{"folder", folder.string()}, {"segments", usage.pieces},
            {"sizeBytes", usage.bytes}, {"mostBytes", PieceStore::mostBytes}, {"isCleared", isCleared_}});
    const std::string segments =
        std::to_string(usage.pieces) + (usage.pieces == 1 ? " segment" : " segments");
    const std::string amount = segments + " of films, " + shownBytes(usage.bytes);
    terminal.result(isCleared_ ? "Removed " + amount + ".\n"
                               : folder.string() + ": " + amount + " of at most " +
                                     shownBytes(PieceStore::mostBytes) + ".\n");
}

}   // namespace tavix::engine
