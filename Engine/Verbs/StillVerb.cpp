#include "Engine/Verbs/StillVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Documents/AssetFiles.h"
#include "Engine/Judge/Findings.h"
#include "Engine/Output/FinishedFile.h"
#include "Engine/Output/OutputPath.h"
#include "Engine/System/Errors.h"
#include "Engine/System/Interruption.h"
#include "Engine/System/SystemWatch.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TavixRender/Export/CompositionRenderer.h"
#include "TavixRender/Export/ExportGeometry.h"

#include <algorithm>
#include <cmath>

namespace tavix::engine {

namespace {

// The longer side becomes so many pixels.
CompositionSpec asThumbnail(const CompositionSpec& spec, int sidePx) {
    const imaging::Size full = canvasSize(spec);
    const double scale = double(sidePx) / std::max(full.width, full.height);
    const auto scaled = [scale](int px) { return std::max(1, int(std::lround(px * scale))); };
    return scaledExportSpec(spec, {scaled(full.width), scaled(full.height)}, spec.output.fps);
}

}   // namespace

void StillVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("document", document_, "A .tavixcomp bundle or a composition.json.",
        "still needs a document: a .tavixcomp bundle or a composition.json.");
    arguments.number("--at", wish_.atSec, "SEC", "The moment, in seconds from the start of the film.");
    arguments.text("--scene", wish_.scene, "ID", "The scene that --local counts in.");
    arguments.number("--local", wish_.localSec, "SEC", "The moment, in seconds from the start of the scene.");
    arguments.text("-o,--output", output_, "FILE", "The picture, a .png. The document's name by default.");
    arguments.wholeNumber("--thumbnail", thumbnailPx_, 16, 1024, "PX",
        "The middle of the longest scene, the longer side that many pixels: what file managers ask for.");
    arguments.quietFlag(terminal);
    arguments.jsonFlag(terminal);
}

void StillVerb::run(Terminal& terminal) {
    const Interruption interruption;
    DocumentFile document = openDocument(document_);
    resolveTimes(document);
    requireRenderable(document);
    if (thumbnailPx_) {
        document.spec = asThumbnail(document.spec, *thumbnailPx_);
        if (!wish_.atSec && !wish_.scene) wish_.atSec = tellingSec(document.spec);
    }
    const double atSec = momentOf(document.spec, wish_);
    // File managers name the file by their own rules.
    const Names names = thumbnailPx_ ? Names::any : Names::withExtension;
    const std::filesystem::path target = outputPath(output_, document.name, ".png", names);
    if (names == Names::withExtension && lowerExtension(target) != ".png")
        throw UsageError("\"" + target.string() + "\" cannot be written; a still is a .png file.");
    CompositionRenderer::Config config;
    config.spec = document.spec;
    config.assetRoot = document.assetRoot;
    requireNoAsset(target, document);
    const SystemWatch::Task task("to draw the still");
    writeFinished(target, interruption, [&](const std::filesystem::path& unfinished) {
        CompositionRenderer::renderStill(config, atSec, unfinished, terminal.log());
    });
    terminal.tell("✓ Wrote " + target.string());
    if (terminal.mode() != Terminal::Mode::json) return;
    const CompositionOutput& output = document.spec.output;
    terminal.report({{"output", target.string()}, {"atSec", atSec}, {"widthPx", output.widthPx},
        {"heightPx", output.heightPx}, {"sizeBytes", fileSize(target)}});
}

}   // namespace tavix::engine
