#include "Engine/Verbs/DiffVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Documents/AssetFiles.h"
#include "Engine/Documents/DocumentFile.h"
#include "Engine/Judge/Findings.h"
#include "Engine/Output/FinishedFile.h"
#include "Engine/Output/OutputPath.h"
#include "Engine/Sheet/SheetPainter.h"
#include "Engine/System/Errors.h"
#include "Engine/System/Interruption.h"
#include "Engine/System/SystemWatch.h"
#include "TavixAgent/Edit/DocumentDiff.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TavixRender/DeviceScene/Composition3DRendererPool.h"

#include <algorithm>

namespace tavix::engine {

namespace {

constexpr std::size_t mostMoments = 12;

struct Side {
    DocumentFile document;
    DiffSide diff;
};

Side sideOf(const std::string& given) {
    DocumentFile document = openDocument(given);
    resolveTimes(document);
    Json written = parseJson(readBytes(document.file, JsonLimits{}.maxBytes));
    DiffSide diff{std::move(written), document.spec};
    return {std::move(document), std::move(diff)};
}

// The last moment of a shorter film stands for those after it.
imaging::Image frameAt(ResolvedComposition& film, const CompositionSpec& spec, double sec) {
    return film.frame(std::min(sec, CompositionTimeline(spec).totalSec));
}

void drawSheet(const Side& before, const Side& after, const std::vector<double>& moments,
    const std::filesystem::path& file, const Interruption& interruption) {
    const int count = 2 * static_cast<int>(moments.size());
    const SheetLayout layout = sheetLayout(canvasSize(after.document.spec), count, 2, std::nullopt);
    imaging::Evaluator evaluator;
    Composition3DRendererPool stages;
    ResolvedComposition old(before.document.spec, before.document.assetRoot, evaluator, {}, &stages);
    ResolvedComposition now(after.document.spec, after.document.assetRoot, evaluator, {}, &stages);
    SheetPainter painter(layout, evaluator);
    for (const double sec : moments) {
        interruption.check();
        painter.put(frameAt(old, before.document.spec, sec), canvasSize(before.document.spec), sec,
            SheetMoment::Kind::step);
        painter.put(frameAt(now, after.document.spec, sec), canvasSize(after.document.spec), sec,
            SheetMoment::Kind::sceneStart);
    }
    media::writePng(file, painter.draw().view());
}

}   // namespace

void DiffVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("before", before_, "A .tavixcomp bundle or a composition.json.",
        "diff needs two documents: the one before and the one after.");
    arguments.positional("after", after_, "The document that it became.");
    arguments.text("--sheet", sheet_, "FILE",
        "Draw before and after side by side, at the times that the changes touch, to a .png.");
    arguments.jsonFlag(terminal);
}

void DiffVerb::run(Terminal& terminal) {
    if (after_.empty()) throw UsageError("diff needs two documents: the one before and the one after.");
    const Interruption interruption;
    const Side before = sideOf(before_), after = sideOf(after_);
    const std::vector<DocumentChange> changes = changesBetween(before.diff, after.diff);
    const std::vector<double> moments = momentsOf(changes, mostMoments);
    JsonObject result{{"changes", writeValue(typeOf<std::vector<DocumentChange>>(), &changes)}};
    if (sheet_ && !moments.empty()) {
        requireRenderable(before.document);
        requireRenderable(after.document);
        const std::filesystem::path target = outputPath(sheet_, after.document.name + "-diff", ".png");
        if (lowerExtension(target) != ".png")
            throw UsageError("\"" + target.string() + "\" cannot be written; a sheet is a .png file.");
        requireNoAsset(target, before.document);
        requireNoAsset(target, after.document);
        const SystemWatch::Task task("to draw the sheet");
        writeFinished(target, interruption, [&](const std::filesystem::path& unfinished) {
            drawSheet(before, after, moments, unfinished, interruption);
        });
        result.set("sheet", target.string());
        terminal.tell("✓ Wrote " + target.string());
    }
    if (terminal.mode() == Terminal::Mode::json)
        terminal.result(std::move(result));
    else
        terminal.result(textOf(changes));
}

}   // namespace tavix::engine
