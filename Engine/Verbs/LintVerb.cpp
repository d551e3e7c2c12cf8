#include "Engine/Verbs/LintVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/LintCodes.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Judge/Findings.h"
#include "Engine/System/Errors.h"

namespace tavix::engine {

void LintVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("document", document_, "A .tavixcomp bundle or a composition.json.");
    arguments.flag(
        "--footage", opensFootage_, "Open the films too, and tell which are too short; see audit.");
    arguments.flag("--frames", drawsFrames_,
        "Draw the film small, and tell what its frames show: flashes that can cause seizures, black or frozen stretches, texts that are hard to read.");
    arguments.texts("--mute", muted_, "CODE",
        "A rule that is not told, by its code; may be given several times. A document keeps its own under lint.mute.");
    arguments.completes("--mute", lintCodeNames());
    arguments.flag("--codes", listsCodes_, "List the rules with their codes and what to do about each.");
    arguments.flag("--markdown", isMarkdown_, "With --codes: as a page for people.");
    arguments.jsonFlag(terminal);
}

void LintVerb::run(Terminal& terminal) {
    if (listsCodes_) return listCodes(terminal);
    if (document_.empty())
        throw UsageError("lint needs a document: a .tavixcomp bundle or a composition.json.");
    const Checks checks{.lint = true, .footage = opensFootage_, .frames = drawsFrames_, .mute = muted_};
    report(document_, findingsOf(document_, checks, terminal), terminal);
}

void LintVerb::listCodes(Terminal& terminal) const {
    if (terminal.mode() == Terminal::Mode::json)
        terminal.result(lintCodesAsJson());
    else
        terminal.result(isMarkdown_ ? lintCodesPage() : lintCodesAsText());
}

}   // namespace tavix::engine
