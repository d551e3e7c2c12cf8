#include "Engine/Verbs/CaptionsVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Documents/DocumentFile.h"
#include "Engine/Judge/Findings.h"
#include "Engine/Output/OutputPath.h"
#include "Engine/System/Errors.h"
#include "TavixAgent/Edit/DocumentEdit.h"
#include "TavixAgent/Exchange/CaptionLayers.h"
#include "TavixCore/Support/FileBytes.h"

namespace tavix::engine {

namespace {

constexpr std::size_t mostCaptionBytes = 8u << 20;

Json jsonOf(const std::vector<SubtitleCue>& captions) {
    JsonArray all;
    for (const SubtitleCue& caption : captions)
        all.emplace_back(
            JsonObject{{"fromSec", caption.fromSec}, {"toSec", caption.toSec}, {"text", caption.text}});
    return all;
}

SubtitleReading readFile(const std::string& file) {
    const std::string bytes = readBytes(file, mostCaptionBytes);
    try {
        return readSubtitles(bytes);
    } catch (const Failure& failure) {
        throw Failure("\"" + file + "\" cannot be taken in. " + failure.message());
    }
}

}   // namespace

void CaptionsVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("document", document_, "A .tavixcomp bundle or a composition.json.",
        "captions needs a document: a .tavixcomp bundle or a composition.json.");
    arguments.text(
        "-o,--output", output_, "FILE", "The captions, an .srt or a .vtt file. They are printed by default.");
    arguments.choice<SubtitleForm>("--form", form_, {{"srt", SubtitleForm::srt}, {"vtt", SubtitleForm::vtt}},
        "SubRip or WebVTT; by the output's extension, or srt, by default.");
    arguments.text("--import", import_, "FILE",
        "Take the captions of this .srt or .vtt file into the document instead, as text layers caption-1 and so on; those of an earlier import go.");
    arguments.text("--if-revision", ifRevision_, "REVISION",
        "With --import: change nothing unless the document still has this revision; read prints it.");
    arguments.jsonFlag(terminal);
}

void CaptionsVerb::run(Terminal& terminal) {
    if (!import_ && ifRevision_) throw UsageError("--if-revision goes with --import.");
    if (!import_) return write(terminal);
    if (output_ || form_) throw UsageError("--import changes the document; leave out --output and --form.");
    take(terminal);
}

void CaptionsVerb::write(Terminal& terminal) const {
    DocumentFile document = openDocument(document_);
    resolveTimes(document);
    const auto captions = captionsOf(document.spec);
    if (captions.empty()) terminal.warn("captions-none", "The film has no texts.");
    const bool isVtt = output_ && lowerExtension(*output_) == ".vtt";
    if (output_ && !isVtt && lowerExtension(*output_) != ".srt")
        throw UsageError("\"" + *output_ + "\" is no name for captions; use .srt or .vtt.");
    const auto form = form_.value_or(isVtt ? SubtitleForm::vtt : SubtitleForm::srt);
    const std::string text = writeSubtitles(captions, form);
    if (output_) {
        if (form_ && (*form_ == SubtitleForm::vtt) != isVtt)
            throw UsageError("\"" + *output_ + "\" does not go with --form; leave one of them out.");
        writeBytesAtomically(text, *output_);
        terminal.tell("✓ Wrote " + *output_);
    }
    if (terminal.mode() == Terminal::Mode::json) {
        JsonObject result{{"captions", jsonOf(captions)}};
        if (output_) result.set("output", *output_);
        return terminal.report(std::move(result));
    }
    if (!output_) terminal.result(text);
}

void CaptionsVerb::take(Terminal& terminal) const {
    const SubtitleReading reading = readFile(*import_);
    DocumentFile document = openDocument(document_);
    resolveTimes(document);
    const CaptionImport taken = captionLayers(reading.cues, document.spec, writtenIn(document_));
    for (const auto* notes : {&reading.notes, &taken.notes})
        for (const Finding& note : *notes) terminal.warn(note);
    const EditResult result = editDocument({document_, taken.patch, ifRevision_});
    terminal.tell("✓ Took " + std::to_string(reading.cues.size()) + " captions into " + document_);
    if (terminal.mode() == Terminal::Mode::json)
        terminal.report({{"captions", jsonOf(reading.cues)}, {"revision", result.revision},
            {"difference", result.difference}});
}

}   // namespace tavix::engine
