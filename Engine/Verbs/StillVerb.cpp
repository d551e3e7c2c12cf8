#include "Engine/Verbs/StillVerb.h"

#include "Engine/Arguments.h"
#include "Engine/AssetFiles.h"
#include "Engine/Errors.h"
#include "Engine/Findings.h"
#include "Engine/FinishedFile.h"
#include "Engine/Interruption.h"
#include "Engine/OutputPath.h"
#include "Engine/SceneNames.h"
#include "Engine/SystemWatch.h"
#include "Engine/Terminal.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixRender/Export/CompositionRenderer.h"

#include <cstdio>

namespace tavix::engine {

namespace {

std::string seconds(double value) {
    char text[64];
    std::snprintf(text, sizeof text, "%.2f s", value);
    return text;
}

}   // namespace

void StillVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("document", document_, "A .tavixcomp bundle or a composition.json.",
        "still needs a document: a .tavixcomp bundle or a composition.json.");
    arguments.number("--at", atSec_, "SEC", "The moment, in seconds from the start of the film.");
    arguments.text("--scene", scene_, "ID", "The scene that --local counts in.");
    arguments.number("--local", localSec_, "SEC", "The moment, in seconds from the start of the scene.");
    arguments.text("-o,--output", output_, "FILE", "The picture, a .png. The document's name by default.");
    arguments.quietFlag(terminal);
    arguments.jsonFlag(terminal);
}

double StillVerb::globalSec(const CompositionSpec& spec) const {
    if (atSec_.has_value() == scene_.has_value())
        throw UsageError("Say which moment: either --at SEC, or --scene ID with --local SEC.");
    if (atSec_ && localSec_) throw UsageError("--local goes with --scene, and not with --at.");
    const CompositionTimeline timeline(spec);
    const double atSec =
        atSec_ ? *atSec_ : *timeline.globalTime(sceneNamed(spec, *scene_), localSec_.value_or(0));
    const double totalSec = timeline.totalSec;
    if (!(atSec >= 0 && atSec <= totalSec))
        throw UsageError("There is no picture at " + seconds(atSec) + "; the film runs from 0 to " +
                         seconds(totalSec) + ".");
    return atSec;
}

void StillVerb::run(Terminal& terminal) {
    const Interruption interruption;
    DocumentFile document = openDocument(document_);
    resolveTimes(document);
    requireRenderable(document);
    const double atSec = globalSec(document.spec);
    const std::filesystem::path target = outputPath(output_, document.name, ".png");
    if (lowerExtension(target) != ".png")
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
