#include "Engine/Verbs/RenderVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/ProgressLines.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Documents/AssetFiles.h"
#include "Engine/Judge/Findings.h"
#include "Engine/Output/SegmentPlan.h"
#include "Engine/System/Interruption.h"
#include "TavixRender/Encoding/FrameNames.h"
#include "TavixRender/Export/CompositionExport.h"

namespace tavix::engine {

void RenderVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("document", document_, "A .tavixcomp bundle or a composition.json.",
        "render needs a document: a .tavixcomp bundle or a composition.json.");
    film_.declare(arguments);
    render_.declare(arguments);
    arguments.flag("--plan", isPlanned_, "Only tell the segments that the film is made of.");
    arguments.wholeNumber("--segment", segment_, 0, 1'000'000, "K",
        "Only render segment K, counted from 0, to a file for tavix join.");
    arguments.flag("--no-lint", isUnjudged_, "Render a document that has errors, as well as it goes.");
    arguments.quietFlag(terminal);
    arguments.jsonFlag(terminal);
}

void RenderVerb::run(Terminal& terminal) {
    render_.tellingProgress(terminal, [&](ProgressLines& lines) { render(terminal, lines); });
}

DocumentFile RenderVerb::judged(ProgressLines& lines) const {
    lines.stage("read");
    DocumentFile document = openDocument(document_);
    lines.stage("judge");
    if (isUnjudged_)
        resolveTimes(document);
    else
        requirePassing(document);
    requireRenderable(document);
    return document;
}

void RenderVerb::render(Terminal& terminal, ProgressLines& lines) {
    const Interruption interruption;
    const DocumentFile document = judged(lines);
    if (isPlanned_ || segment_) {
        const SegmentPlan plan(document, film_, render_.pieces());
        if (isPlanned_) return plan.tell(terminal);
        return plan.render(std::size_t(*segment_), film_.output(), interruption, terminal);
    }
    const OutputChoice choice = film_.choose(document.name);
    const PiecedFilm film = CompositionExport::filmOf(configOf(document, film_, choice));
    requireNoAsset(choice.target, document);
    if (const auto names = FrameNames::parsed(choice.target); names && choice.format == ExportFormat::png)
        for (std::int64_t i = 0; i < film.frameCount; ++i)
            if (std::filesystem::exists(names->of(i))) requireNoAsset(names->of(i), document);
    render_.write(film, choice, {interruption, terminal, lines});
}

}   // namespace tavix::engine
