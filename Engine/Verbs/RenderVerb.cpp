#include "Engine/Verbs/RenderVerb.h"

#include "Engine/Arguments.h"
#include "Engine/AssetFiles.h"
#include "Engine/Errors.h"
#include "Engine/Findings.h"
#include "Engine/FinishedFile.h"
#include "Engine/Interruption.h"
#include "Engine/ProgressLines.h"
#include "Engine/SystemWatch.h"
#include "Engine/Terminal.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TavixRender/Export/CompositionExport.h"
#include "TavixRender/Export/ExportGeometry.h"

namespace tavix::engine {

void RenderVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("document", document_, "A .tavixcomp bundle or a composition.json.",
        "render needs a document: a .tavixcomp bundle or a composition.json.");
    film_.declare(arguments);
    arguments.flag("--no-lint", isUnjudged_, "Render a document that has errors, as well as it goes.");
    arguments.choice<bool>("--progress", hasLines_, {{"json", true}},
        "For programs: how far it is as JSON, a line each, and a last one that says done or failed.");
    arguments.quietFlag(terminal);
    arguments.jsonFlag(terminal);
}

CompositionRenderer::Config RenderVerb::config(
    const DocumentFile& document, const OutputChoice& choice) const {
    CompositionRenderer::Config config;
    const CompositionOutput& output = document.spec.output;
    const imaging::Size native{static_cast<int>(output.widthPx), static_cast<int>(output.heightPx)};
    const FrameRate rate = film_.rate(output.fps, choice.format);
    config.spec = scaledExportSpec(document.spec, film_.size(native, choice.format), rate);
    config.assetRoot = document.assetRoot;
    config.fileFormat = choice.format;
    config.videoCodec = choice.codec;
    config.container = choice.container;
    config.effort = film_.effort();
    return config;
}

void RenderVerb::run(Terminal& terminal) {
    ProgressLines lines(hasLines_.value_or(false));
    if (lines.isOn()) terminal.setMode(Terminal::Mode::quiet);
    try {
        render(terminal, lines);
    } catch (const std::exception& error) {
        lines.failed(error);
        throw;
    }
}

void RenderVerb::render(Terminal& terminal, ProgressLines& lines) {
    const Interruption interruption;
    lines.stage("read");
    DocumentFile document = openDocument(document_);
    lines.stage("judge");
    if (isUnjudged_)
        resolveTimes(document);
    else
        requirePassing(document);
    requireRenderable(document);
    const OutputChoice choice = film_.choose(document.name);
    requireNoAsset(choice.target, document);
    CompositionRenderer::Config config = this->config(document, choice);
    const SystemWatch::Task task("to render the film");
    lines.stage("render");
    writeFinished(choice.target, interruption, [&](const std::filesystem::path& unfinished) {
        config.output = unfinished;
        const auto tellProgress = [&](double fraction) {
            terminal.progress(fraction);
            lines.progress(fraction);
        };
        CompositionExport::write(config, terminal.log(), tellProgress, interruption.token());
    });
    terminal.tell("✓ Wrote " + choice.target.string());
    const auto result = [&] {
        return filmResult(choice.target, CompositionRenderer::frameCount(config.spec), config.spec.output.fps,
            canvasSize(config.spec));
    };
    if (lines.isOn()) lines.done(result());
    if (terminal.mode() == Terminal::Mode::json) terminal.report(result());
}

}   // namespace tavix::engine
