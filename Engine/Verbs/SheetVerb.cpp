#include "Engine/Verbs/SheetVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Documents/AssetFiles.h"
#include "Engine/Judge/Findings.h"
#include "Engine/Output/FinishedFile.h"
#include "Engine/Output/OutputPath.h"
#include "Engine/Sheet/SheetFrames.h"
#include "Engine/Sheet/SheetPainter.h"
#include "Engine/System/Errors.h"
#include "Engine/System/Interruption.h"
#include "Engine/System/SystemWatch.h"
#include "TavixAgent/Check/FindingReport.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"

#include <memory>
#include <utility>

namespace tavix::engine {

namespace {

JsonObject resultOf(const CompositionSpec& spec, const std::filesystem::path& target,
    const SheetLayout& layout, const std::vector<SheetMoment>& moments,
    const std::vector<CompositionLint::Finding>& findings, const Json& written) {
    const CompositionTimeline timeline(spec);
    JsonArray cells;
    for (const SheetMoment& moment : moments) {
        const double atSec = spec.output.fps.secAt(moment.frame);
        const auto sample = timeline.sample(atSec);
        const std::size_t scene = sample->incoming ? sample->incoming->index : sample->outgoing.index;
        cells.emplace_back(JsonObject{{"atSec", atSec}, {"scene", spec.scenes[scene].displayName(scene)}});
    }
    return JsonObject{{"output", target.string()}, {"columns", layout.columns}, {"rows", layout.rows},
        {"widthPx", layout.sheet.width}, {"heightPx", layout.sheet.height}, {"sizeBytes", fileSize(target)},
        {"cells", std::move(cells)}, {"findings", findingsAsJson(findings, written)}};
}

}   // namespace

void SheetVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("document", document_, "A .tavixcomp bundle or a composition.json.",
        "sheet needs a document: a .tavixcomp bundle or a composition.json.");
    arguments.text(
        "-o,--output", output_, "FILE", "The sheet, a .png. The document's name with -sheet by default.");
    declareSheet(arguments, columns_, widthPx_, wish_);
    arguments.text("--scene", wish_.scene, "ID", "Only this scene; --from and --to then count in it.");
    arguments.flag("--annotate", isAnnotated_,
        "Number what lint finds, draw it at its layers, and say below what the numbers mean.");
    arguments.quietFlag(terminal);
    arguments.jsonFlag(terminal);
}

// Enough to fill the last row, where the film has the frames for it.
std::vector<SheetMoment> SheetVerb::moments(const CompositionSpec& spec) const {
    return sheetMoments(outlineOf(spec), sheetSpan(spec, wish_), wish_, [&](int count) {
        const SheetLayout layout = sheetLayout(canvasSize(spec), count, columns_, widthPx_);
        return layout.columns * layout.rows;
    });
}

void SheetVerb::run(Terminal& terminal) {
    const Interruption interruption;
    DocumentFile document = openDocument(document_);
    const CompositionLint::Told told =
        isAnnotated_ ? findingsIn(document, {.lint = true}, terminal) : CompositionLint::Told();
    resolveTimes(document);
    requireRenderable(document);
    const std::filesystem::path target = outputPath(output_, document.name + "-sheet", ".png");
    if (lowerExtension(target) != ".png")
        throw UsageError("\"" + target.string() + "\" cannot be written; a sheet is a .png file.");
    const std::vector<SheetMoment> shown = moments(document.spec);
    const SheetLayout layout =
        sheetLayout(canvasSize(document.spec), static_cast<int>(shown.size()), columns_, widthPx_);
    if (const std::string note = told.mutedNote(); !note.empty()) terminal.warn("muted", note);
    requireNoAsset(target, document);
    const SystemWatch::Task task("to draw the sheet");
    writeFinished(target, interruption, [&](const std::filesystem::path& unfinished) {
        const CompositionSpec& spec = document.spec;
        std::vector<imaging::Bitmap> frames =
            sheetFrames(spec, document.assetRoot, shown, layout.cell, terminal.log(), [&](std::size_t done) {
                interruption.check();
                terminal.progress(double(done) / double(shown.size()));
            });
        imaging::Evaluator evaluator;
        ResolvedComposition resolved(spec, document.assetRoot, evaluator, {});
        SheetPainter painter(layout, evaluator);
        FindingMarks marks(told.findings, document, resolved, evaluator);
        for (std::size_t i = 0; i < shown.size(); ++i) {
            interruption.check();
            const double atSec = spec.output.fps.secAt(shown[i].frame);
            const auto frame = std::make_shared<const imaging::Bitmap>(std::move(frames[i]));
            painter.put(imaging::Image::bitmap(frame), layout.cell, atSec, shown[i].kind);
            painter.mark(marks.at(atSec), canvasSize(spec));
        }
        if (isAnnotated_) painter.add(sheetLegend(told.findings, layout.sheet.width, layout.marginPx));
        media::writePng(unfinished, painter.draw().view());
    });
    terminal.tell("✓ Wrote " + target.string());
    if (terminal.mode() == Terminal::Mode::json)
        terminal.report(resultOf(document.spec, target, layout, shown, told.findings, writtenIn(document_)));
}

}   // namespace tavix::engine
