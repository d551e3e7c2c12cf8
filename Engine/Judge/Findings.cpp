#include "Engine/Judge/Findings.h"

#include "Engine/Console/Printable.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Documents/DocumentFile.h"
#include "Engine/Judge/FrameFindings.h"
#include "Engine/System/Errors.h"
#include "TavixAgent/Check/FindingReport.h"
#include "TavixAgent/Document/ReadingFaults.h"
#include "TavixAgent/Edit/DocumentEdit.h"
#include "TavixCore/Findings/AuthoredPath.h"
#include "TavixCore/Judge/CompositionRoad.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixCore/Support/JsonParser.h"
#include "TavixRender/Judge/DocumentJudge.h"
#include "TavixRender/Judge/FilmJudge.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tavix::engine {

namespace {

using CompositionLint::Finding;
using CompositionLint::Level;

bool isError(const Finding& finding) { return finding.level == Level::error; }

std::string toldIn(const Finding& finding) {
    return (finding.path.empty() ? "" : finding.path + ": ") + printableLine(finding.message) + "\n  " +
           (finding.suggestion ? printableLine(*finding.suggestion) + " " : "") + "[" +
           std::string(finding.code) + "]";
}

using Findings = std::vector<Finding>;

void append(Findings& all, Findings more) { std::ranges::move(more, std::back_inserter(all)); }

std::vector<CompositionLint::MutedCode> mutedBy(const CompositionSpec& spec, const Checks& checks) {
    std::vector<CompositionLint::MutedCode> muted = DocumentJudge::mutedBy(spec);
    for (const std::string& code : checks.mute) muted.push_back({code, {}});
    return muted;
}

Findings judged(DocumentFile& document, const Checks& checks, Terminal& terminal) {
    const Json written = parseJson(readBytes(document.file, JsonLimits{}.maxBytes));
    DocumentJudge::Judged judged = DocumentJudge::judge(std::move(document.spec), written, document.assetRoot,
        {.rules = checks.lint, .footage = checks.footage});
    document.spec = std::move(judged.spec);
    Findings all = std::move(judged.findings);
    if (!checks.frames) return all;
    if (hasErrors(all))
        terminal.warn("frames-not-seen", "The frames are not looked at, because the document has errors.");
    else
        append(all, CompositionLint::atAuthoredPaths(frameFindings(document, terminal), document.spec));
    return all;
}

}   // namespace

std::string linesOf(std::span<const Finding> findings) {
    std::string lines;
    for (const Finding& finding : findings)
        lines.append(wordOf(finding.level)).append(finding.path.empty() ? ": " : " ") +=
            toldIn(finding) + "\n";
    return lines;
}

CompositionLint::Told findingsOf(const std::string& given, const Checks& checks, Terminal& terminal) {
    try {
        return findingsIn(openDocument(given), checks, terminal);
    } catch (const DocumentError& error) {
        Findings faults = readingFaults(writtenIn(given));
        if (faults.empty())
            faults = {
                CompositionLint::findingOf(CompositionLint::Rule::unreadable, error.path(), error.message())};
        return {std::move(faults), {}};
    }
}

CompositionLint::Told findingsIn(DocumentFile document, const Checks& checks, Terminal& terminal) {
    const auto muted = mutedBy(document.spec, checks);
    return CompositionLint::told(judged(document, checks, terminal), muted);
}

Json writtenIn(const std::string& given) try {
    return parseJson(readBytes(documentFileOf(given), JsonLimits{}.maxBytes));
} catch (const Failure&) {
    return {};
}

void report(const std::string& given, const CompositionLint::Told& told, Terminal& terminal) {
    if (const std::string note = told.mutedNote(); !note.empty()) terminal.warn("muted", note);
    if (terminal.mode() == Terminal::Mode::json) {
        // With the warnings as one list, since for machines a list is all that lint gives.
        Findings all = told.findings;
        all.insert(all.end(), terminal.warnings().begin(), terminal.warnings().end());
        terminal.result(findingsAsJson(all, writtenIn(given)));
    } else
        terminal.result(linesOf(told.findings));
    if (hasErrors(told.findings)) throw ErrorsTold();
}

void tellFindings(std::span<const Finding> findings, Terminal& terminal) {
    for (const Finding& finding : findings)
        isError(finding) ? terminal.complain(toldIn(finding)) : terminal.warn(finding, toldIn(finding));
}

void requirePassing(DocumentFile& document) {
    CompositionRoad::Arrival arrival = CompositionRoad::judge(std::move(document.spec), document.assetRoot);
    Findings found = arrival.findings();
    FilmAssets assets(document.assetRoot);
    append(
        found, CompositionLint::atAuthoredPaths(FilmJudge::missingFiles(arrival.spec, assets), arrival.spec));
    const Findings all = CompositionLint::told(std::move(found), mutedBy(arrival.spec, {})).findings;
    const auto first = std::ranges::find_if(all, isError);
    if (first != all.end()) {
        const auto more = std::ranges::count_if(all, isError) - 1;
        throw DocumentError(document.shownPath, first->path,
            first->message + (first->suggestion ? " " + *first->suggestion : "") +
                (more ? " There are " + std::to_string(more) + " more; see tavix lint." : ""),
            first->code);
    }
    document.spec = std::move(arrival.spec);
}

void resolveTimes(DocumentFile& document) {
    document.spec = CompositionRoad::resolve(std::move(document.spec), document.assetRoot).spec;
}

}   // namespace tavix::engine
