#include "Engine/Verbs/CheckVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/LintCodes.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Documents/DocumentFile.h"
#include "Engine/Judge/Findings.h"
#include "Engine/System/Errors.h"
#include "Engine/System/Interruption.h"
#include "TavixAgent/Check/FilmFigures.h"
#include "TavixAgent/Check/FindingReport.h"
#include "TavixAgent/Edit/DocumentEdit.h"
#include "TavixAgent/Edit/LineDifference.h"
#include "TavixAgent/Edit/Revision.h"
#include "TavixCore/Support/Decimals.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Time/CompositionResolution.h"
#include "TavixRender/Export/CompositionRenderer.h"

#include <algorithm>
#include <map>
#include <optional>

namespace tavix::engine {

namespace {

constexpr std::size_t mostTold = 50;

std::string textOf(const FilmFigures& figures) {
    std::string text =
        "film: " + twoDecimals(figures.lengthSec) + " s, " + std::to_string(figures.frames) + " frames\n";
    if (figures.integratedLufs)
        text += "sound: " + decimals(*figures.integratedLufs, 1) + " LUFS, true peak " +
                decimals(figures.truePeakDb.value_or(0), 1) + " dB, " +
                std::to_string(figures.clippedSamples) + " samples at full scale\n";
    if (figures.estimatedBytes)
        text += "export: about " + decimals(*figures.estimatedBytes / 1e6, 1) + " MB in " +
                decimals(figures.estimatedSec.value_or(0), 1) + " s\n";
    return text;
}

// Only of what can be rendered.
std::optional<FilmFigures> figuresOfFilm(
    const std::string& given, const CompositionLint::Told& told, Terminal& terminal) {
    if (hasErrors(told.findings)) return std::nullopt;
    const Interruption interruption;
    DocumentFile document = openDocument(given);
    resolveTimes(document);
    requireRenderable(document);
    try {
        return figuresOf(document.spec, document.assetRoot, interruption.token());
    } catch (const RenderStopped&) {
        interruption.check();
        throw;
    } catch (const Failure& failure) {
        terminal.warn("not-measured", failure.message());
        return std::nullopt;
    }
}

// How many of each rule are not told.
std::string restOf(const std::vector<Finding>& findings) {
    std::map<std::string_view, int> counts;
    for (std::size_t i = mostTold; i < findings.size(); ++i) ++counts[findings[i].code];
    std::string text;
    for (const auto& [code, count] : counts)
        text += (text.empty() ? "" : ", ") + std::to_string(count) + " " + std::string(code);
    return text.empty() ? text : "and more: " + text + "\n";
}

std::span<const Finding> firstOf(const std::vector<Finding>& findings) {
    return std::span(findings).first(std::min(findings.size(), mostTold));
}

}   // namespace

struct CheckVerb::Mended {
    JsonPatch patch;
    std::string difference;
    bool isUndone = false;
};

void CheckVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("document", document_, "A .tavixcomp bundle or a composition.json.",
        "check needs a document: a .tavixcomp bundle or a composition.json.");
    arguments.flag("--quick", isQuick_, "Judge the document and its files, and draw no frames.");
    arguments.flag("--fix", mends_,
        "Mend what is certain and changes nothing that was meant, and show what changed. A document that would be worse for it stays as it was.");
    arguments.texts("--mute", muted_, "CODE", "A rule that is not told, by its code; see lint.");
    arguments.completes("--mute", lintCodeNames());
    arguments.jsonFlag(terminal);
}

Checks CheckVerb::checks() const {
    return {.lint = true, .footage = true, .frames = !isQuick_, .mute = muted_};
}

CompositionLint::Told CheckVerb::judged(Terminal& terminal) const {
    CompositionLint::Told told = findingsOf(document_, checks(), terminal);
    orderByImportance(told.findings);
    return told;
}

CheckVerb::Mended CheckVerb::mend(CompositionLint::Told& told, Terminal& terminal) const {
    const WrittenDocument before = readWritten(document_);
    Mended mended{repairsOf(told.findings, before.json), {}, false};
    if (mended.patch.empty()) return mended;
    const EditResult edited = editDocument({document_, mended.patch, before.revision});
    mended.difference = edited.difference;
    CompositionLint::Told after = judged(terminal);
    if (isWorse(told.findings, after.findings)) {
        mended.isUndone = true;
        const WrittenDocument now = readWritten(document_);
        if (now.revision != edited.revision)
            throw RevisionError(document_, edited.revision, now.revision);   // somebody else's by now
        writeBytesAtomically(before.text, before.file);
    } else {
        told = std::move(after);
    }
    return mended;
}

void CheckVerb::run(Terminal& terminal) {
    CompositionLint::Told told = judged(terminal);
    const bool isReadable =
        told.findings.empty() ||
        told.findings.front().code != CompositionLint::codeOf(CompositionLint::Rule::unreadable);
    const std::optional<Mended> mended =
        mends_ && isReadable ? std::optional(mend(told, terminal)) : std::nullopt;
    const auto figures = isQuick_ ? std::nullopt : figuresOfFilm(document_, told, terminal);
    const std::string bytes = readBytes(documentFileOf(document_), JsonLimits{}.maxBytes);
    if (terminal.mode() == Terminal::Mode::json) {
        JsonObject result{{"revision", revisionOf(bytes)},
            {"findings", findingsAsJson(firstOf(told.findings), writtenIn(document_))},
            {"findingCount", told.findings.size()}, {"mutedCount", told.muted.size()}};
        if (figures) result.set("figures", writeValue(typeOf<FilmFigures>(), &*figures));
        if (mended)
            result.set("fixed", JsonObject{{"patch", writePatch(mended->patch)},
                                    {"difference", mended->difference}, {"undone", mended->isUndone}});
        terminal.report(std::move(result));
    } else {
        std::string text;
        if (mended && mended->patch.empty()) text += "There is nothing to fix that is certain.\n";
        if (mended && !mended->patch.empty())
            text += (mended->isUndone ? "undone, because the document got worse:\n" : "fixed:\n") +
                    mended->difference;
        text += linesOf(firstOf(told.findings)) + restOf(told.findings);
        if (told.findings.empty()) text += "Nothing is found.\n";
        terminal.result(text + (figures ? textOf(*figures) : ""));
        if (const std::string note = told.mutedNote(); !note.empty()) terminal.warn("muted", note);
    }
    if (hasErrors(told.findings)) throw ErrorsTold();
}

}   // namespace tavix::engine
