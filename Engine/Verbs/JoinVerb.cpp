#include "Engine/Verbs/JoinVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Documents/AssetFiles.h"
#include "Engine/Judge/Findings.h"
#include "Engine/Output/FinishedFile.h"
#include "Engine/Output/SegmentPlan.h"
#include "Engine/System/Errors.h"
#include "Engine/System/Interruption.h"
#include "Engine/System/SystemWatch.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TavixRender/Export/CompositionExport.h"
#include "TavixRender/Export/FilmCheck.h"

namespace tavix::engine {

void JoinVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("document", document_, "The document whose segments they are.",
        "join needs a document: a .tavixcomp bundle or a composition.json.");
    arguments.text("--from", folder_, "FOLDER", "Where the segments lie; here by default.");
    film_.declare(arguments);
    arguments.quietFlag(terminal);
    arguments.jsonFlag(terminal);
}

void JoinVerb::run(Terminal& terminal) {
    const Interruption interruption;
    DocumentFile document = openDocument(document_);
    resolveTimes(document);
    requireRenderable(document);
    const OutputChoice choice = film_.choose(document.name);
    if (choice.format != ExportFormat::video)
        throw UsageError(
            "Segments make a video, and \"" + choice.target.string() + "\" is none; call it .mp4.");
    requireNoAsset(choice.target, document);
    const SegmentPlan plan(document, film_, {});
    const std::vector<std::filesystem::path> files = plan.filesIn(folder_.value_or(""));
    CompositionRenderer::Config config = plan.config();
    const SystemWatch::Task task("to join the film");
    writeFinished(choice.target, interruption, [&](const std::filesystem::path& unfinished) {
        config.output = unfinished;
        const PiecedFilm film = CompositionExport::filmOf(config);
        PieceRender::join(film, files, terminal.log(), interruption.token());
        FilmCheck::probe(film, unfinished);
    });
    terminal.tell("✓ Wrote " + choice.target.string());
    if (terminal.mode() == Terminal::Mode::json)
        terminal.report(filmResult(choice.target, CompositionRenderer::frameCount(config.spec),
            config.spec.output.fps, canvasSize(config.spec)));
}

}   // namespace tavix::engine
