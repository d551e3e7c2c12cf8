#include "Engine/Verbs/RenderVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/ProgressLines.h"
#include "Engine/Console/Quantities.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Documents/AssetFiles.h"
#include "Engine/Judge/Findings.h"
#include "Engine/Output/FinishedFile.h"
#include "Engine/Output/SegmentPlan.h"
#include "Engine/System/Errors.h"
#include "Engine/System/Interruption.h"
#include "Engine/System/SystemWatch.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TavixRender/Export/FilmCheck.h"

#include <algorithm>
#include <cstdio>

namespace tavix::engine {

namespace {

JsonObject jsonOf(const FilmCheck::Likeness& likeness) {
    return JsonObject{{"framesDecoded", likeness.framesDecoded}, {"framesCompared", likeness.framesCompared},
        {"leastSimilarity", likeness.leastSimilarity}, {"mostColorError", likeness.mostColorError}};
}

std::string shownRate(std::int64_t bitsPerSec) {
    char text[64];
    std::snprintf(text, sizeof text, "%.2f Mbit/s", double(bitsPerSec) / 1e6);
    return text;
}

}   // namespace

void RenderVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("document", document_, "A .tavixcomp bundle or a composition.json.",
        "render needs a document: a .tavixcomp bundle or a composition.json.");
    film_.declare(arguments);
    arguments.value(
        "--max-size", "SIZE",
        [this](const std::string& text) { mostBytes_ = bytesNamed(text, "--max-size"); },
        "The most that the file may take, as in 10MB: the rate is chosen so.");
    pieces_.declare(arguments);
    arguments.flag("--verify", isVerified_,
        "Decode the finished film and compare a frame of every second with the document's.");
    arguments.flag("--plan", isPlanned_, "Only tell the segments that the film is made of.");
    arguments.wholeNumber("--segment", segment_, 0, 1'000'000, "K",
        "Only render segment K, counted from 0, to a file for tavix join.");
    arguments.flag("--no-lint", isUnjudged_, "Render a document that has errors, as well as it goes.");
    arguments.choice<bool>("--progress", hasLines_, {{"json", true}},
        "For programs: how far it is as JSON, a line each, and a last one that says done or failed.");
    arguments.quietFlag(terminal);
    arguments.jsonFlag(terminal);
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
        const SegmentPlan plan(document, film_, pieces_);
        if (isPlanned_) return plan.tell(terminal);
        return plan.render(std::size_t(*segment_), film_.output(), interruption, terminal);
    }
    const OutputChoice choice = film_.choose(document.name);
    requireNoAsset(choice.target, document);
    CompositionRenderer::Config config = configOf(document, film_, choice);
    pieces_.apply(config);
    const Made made = write(config, choice, interruption, terminal, lines);
    terminal.tell("✓ Wrote " + choice.target.string());
    const auto result = [&] {
        JsonObject json = filmResult(choice.target, CompositionRenderer::frameCount(config.spec),
            config.spec.output.fps, canvasSize(config.spec));
        if (made.pieces.pieces > 0)
            json.set("segments", JsonObject{{"count", std::int64_t(made.pieces.pieces)},
                                     {"reused", std::int64_t(made.pieces.reused)}});
        if (made.likeness) json.set("verified", *made.likeness);
        return json;
    };
    if (lines.isOn()) lines.done(result());
    if (terminal.mode() == Terminal::Mode::json) terminal.report(result());
}

void RenderVerb::requireAgreement(const CompositionRenderer::Config& config) const {
    if (config.fileFormat == ExportFormat::gif && (mostBytes_ || isVerified_))
        throw UsageError(std::string(mostBytes_ ? "--max-size" : "--verify") +
                         " is for video, and a GIF takes none; drop one of the two.");
    if (!mostBytes_) return;
    if (config.rate != ExportRate{})
        throw UsageError("--max-size chooses the rate itself; drop --quality and --rate.");
    if (isProRes(config.videoCodec))
        throw UsageError(
            "--max-size does not go with ProRes, which has a rate of its own; drop one of the two.");
}

RenderVerb::Made RenderVerb::write(CompositionRenderer::Config& config, const OutputChoice& choice,
    const Interruption& interruption, Terminal& terminal, ProgressLines& lines) const {
    requireAgreement(config);
    Made made;
    const SystemWatch::Task task("to render the film");
    lines.stage("render");
    writeFinished(choice.target, interruption, [&](const std::filesystem::path& unfinished) {
        config.output = unfinished;
        const CompositionRenderer::Progress tellProgress = [&](double fraction) {
            terminal.progress(fraction);
            lines.progress(fraction);
        };
        made.pieces =
            mostBytes_ ? fit(config, tellProgress, interruption, terminal)
                       : CompositionExport::write(config, terminal.log(), tellProgress, interruption.token());
        if (choice.format == ExportFormat::video) FilmCheck::probe(config, unfinished);
        if (!isVerified_) return;
        lines.stage("verify");
        made.likeness = jsonOf(FilmCheck::verify(config, unfinished, tellProgress, interruption.token()));
    });
    return made;
}

// The rate follows from the size and the length; where an encoder does not keep to it, it is tried again with
// less.
PieceRender::Report RenderVerb::fit(CompositionRenderer::Config& config,
    const CompositionRenderer::Progress& onProgress, const Interruption& interruption,
    Terminal& terminal) const {
    constexpr double containerShare = 0.02, soundBitsPerSec = 256'000, safety = 0.95;
    constexpr int mostTries = 5;
    constexpr std::int64_t leastBitsPerSec = 50'000;
    const double totalSec = std::max(CompositionTimeline(config.spec).totalSec, 1e-3);
    const double forPictures =
        double(*mostBytes_) * 8 * (1 - containerShare) / totalSec - (config.spec.audio ? soundBitsPerSec : 0);
    auto bitsPerSec = std::int64_t(forPictures);
    PieceRender::Report report;
    for (int i = 0; i < mostTries && bitsPerSec >= leastBitsPerSec; ++i) {
        config.rate.bitsPerSec = bitsPerSec;
        terminal.tell(
            "• " + shownBytes(*mostBytes_) + " leave " + shownRate(bitsPerSec) + " for the pictures");
        report = CompositionExport::write(config, terminal.log(), onProgress, interruption.token());
        const double bytes = double(fileSize(config.output));
        if (bytes <= double(*mostBytes_)) return report;
        bitsPerSec = std::int64_t(double(bitsPerSec) * safety * double(*mostBytes_) / bytes);
    }
    throw Failure("The film does not fit into " + shownBytes(*mostBytes_) +
                  "; give --max-size more, or make the film smaller by --resolution or --fps.");
}

}   // namespace tavix::engine
