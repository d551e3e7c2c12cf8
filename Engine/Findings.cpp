#include "Engine/Findings.h"

#include "Engine/DocumentFile.h"
#include "Engine/Errors.h"
#include "Engine/Printable.h"
#include "Engine/Terminal.h"
#include "TavixCore/Judge/CompositionRoad.h"
#include "TavixRender/Composition2D/CompositionFootageAudit.h"

#include <algorithm>
#include <utility>

namespace tavix::engine {

namespace {

using CompositionLint::Finding;
using CompositionLint::Level;

const char* wordOf(Level level) { return level == Level::error ? "error" : "warning"; }

bool isError(const Finding& finding) { return finding.level == Level::error; }

std::string toldIn(const Finding& finding) {
    return (finding.path.empty() ? "" : finding.path + ": ") + printableLine(finding.message) +
           (finding.suggestion ? "\n  " + printableLine(*finding.suggestion) : "");
}

}   // namespace

std::string linesOf(std::span<const Finding> findings) {
    std::string lines;
    for (const Finding& finding : findings)
        lines.append(wordOf(finding.level)).append(finding.path.empty() ? ": " : " ") +=
            toldIn(finding) + "\n";
    return lines;
}

Json jsonOf(std::span<const Finding> findings) {
    JsonArray all;
    for (const Finding& finding : findings) {
        JsonObject one{
            {"level", wordOf(finding.level)}, {"path", finding.path}, {"message", finding.message}};
        if (finding.suggestion) one.set("suggestion", *finding.suggestion);
        all.emplace_back(std::move(one));
    }
    return all;
}

std::vector<Finding> findingsOf(const std::string& given, Checks checks) {
    try {
        DocumentFile document = openDocument(given);
        const auto arrival = CompositionRoad::judge(std::move(document.spec), document.assetRoot);
        std::vector<Finding> all = checks.lint ? arrival.findings() : arrival.resolving;
        if (checks.footage && arrival.isResolved())
            for (Finding& finding : CompositionFootageAudit::findings(arrival.spec, document.assetRoot))
                all.push_back(std::move(finding));
        return all;
    } catch (const DocumentError& error) {
        return {{Level::error, error.path(), error.message(), std::nullopt}};
    }
}

void report(std::span<const Finding> findings, Terminal& terminal) {
    if (terminal.mode() == Terminal::Mode::json)
        terminal.result(jsonOf(findings));
    else
        terminal.result(linesOf(findings));
    if (hasErrors(findings)) throw ErrorsTold();
}

void tellFindings(std::span<const Finding> findings, Terminal& terminal) {
    for (const Finding& finding : findings)
        isError(finding) ? terminal.complain(toldIn(finding)) : terminal.warn(toldIn(finding));
}

void requireSound(DocumentFile& document) {
    CompositionRoad::Arrival arrival = CompositionRoad::judge(std::move(document.spec), document.assetRoot);
    const std::vector<Finding> all = arrival.findings();
    const auto first = std::ranges::find_if(all, isError);
    if (first != all.end()) {
        const auto more = std::ranges::count_if(all, isError) - 1;
        throw DocumentError(document.shownPath, first->path,
            first->message + (first->suggestion ? " " + *first->suggestion : "") +
                (more ? " There are " + std::to_string(more) + " more; see tavix lint." : ""));
    }
    document.spec = std::move(arrival.spec);
}

void resolveTimes(DocumentFile& document) {
    document.spec = CompositionRoad::resolve(std::move(document.spec), document.assetRoot).spec;
}

}   // namespace tavix::engine
