#include "Engine/Verbs/LintVerb.h"

#include "Engine/Arguments.h"
#include "Engine/DocumentFile.h"
#include "Engine/Errors.h"
#include "Engine/Findings.h"
#include "Engine/Terminal.h"
#include "TavixCore/Composition/CompositionRoad.h"

#include <vector>

namespace tavix::engine {

namespace {

using CompositionLint::Finding;

// A document that cannot be read has one finding, and no others can be made.
std::vector<Finding> findingsOf(const std::string& given) {
    try {
        const DocumentFile document = openDocument(given);
        return CompositionRoad::judge(document.spec, document.assetRoot).findings();
    } catch (const DocumentError& error) {
        return {{CompositionLint::Level::error, error.path(), error.message(), std::nullopt}};
    }
}

}   // namespace

void LintVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("document", document_, "A .tavixcomp bundle or a composition.json.",
        "lint needs a document: a .tavixcomp bundle or a composition.json.");
    arguments.jsonFlag(terminal);
}

void LintVerb::run(Terminal& terminal) {
    const std::vector<Finding> findings = findingsOf(document_);
    if (terminal.mode() == Terminal::Mode::json)
        terminal.result(jsonOf(findings));
    else
        terminal.result(linesOf(findings));
    if (hasErrors(findings)) throw ErrorsTold();
}

}   // namespace tavix::engine
