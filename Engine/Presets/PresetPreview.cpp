#include "Engine/Presets/PresetPreview.h"

#include "Engine/Console/Terminal.h"
#include "Engine/Output/FinishedFile.h"
#include "Engine/Output/OutputChoice.h"
#include "Engine/Output/OutputPath.h"
#include "Engine/Presets/PresetScenes.h"
#include "Engine/Sheet/SheetPainter.h"
#include "Engine/System/Interruption.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixRender/Export/CompositionExport.h"
#include "TavixRender/Export/ExportGeometry.h"

#include <algorithm>

namespace tavix::engine {

namespace {

constexpr int momentsOfAStrip = 8, stripWidthPx = 2400;

// What does not move is shown once.
bool isStill(const CompositionSpec& spec) {
    return spec.scenes.size() == 1 &&
           std::ranges::all_of(spec.scenes[0].layers, [](const CompositionLayer& layer) {
               const auto* const device = std::get_if<DeviceContent>(&layer.content);
               return device && !device->placement && !device->scene3D && layer.tracks.empty();
           });
}

void drawStrip(const PresetScene& scene, const std::filesystem::path& file, Terminal& terminal,
    const Interruption& interruption) {
    imaging::Evaluator evaluator;
    ResolvedComposition resolved(scene.spec, scene.assetRoot, evaluator, terminal.log());
    const imaging::Size size = canvasSize(scene.spec);
    if (isStill(scene.spec)) {
        media::writePng(
            file, evaluator.draw(resolved.frame(scene.fromSec), {0, 0, size.width, size.height}).view());
        return;
    }
    const SheetSpan span = sheetSpan(scene.spec, {scene.fromSec, scene.toSec, {}, {}});
    const std::vector<SheetMoment> moments = sheetMoments(outlineOf(scene.spec), span, momentsOfAStrip);
    const int count = static_cast<int>(moments.size());
    const SheetLayout layout = sheetLayout(size, count, count, stripWidthPx);
    SheetPainter painter(layout, evaluator);
    for (const SheetMoment& moment : moments) {
        interruption.check();
        const double atSec = scene.spec.output.fps.secAt(moment.frame);
        painter.put(resolved.frame(atSec), size, atSec, moment.kind);
    }
    media::writePng(file, painter.draw().view());
}

void writeFilm(const PresetScene& scene, const OutputChoice& choice, const std::filesystem::path& file,
    Terminal& terminal, const Interruption& interruption) {
    const imaging::Size size =
        ReelExporter::targetDimensions(canvasSize(scene.spec), ResolutionPreset::native, choice.format);
    CompositionRenderer::Config config;
    config.spec =
        scaledExportSpec(scene.spec, size, ReelExporter::targetFps(scene.spec.output.fps, choice.format));
    config.output = file;
    config.assetRoot = scene.assetRoot;
    config.fileFormat = choice.format;
    config.videoCodec = choice.codec;
    config.container = choice.container;
    CompositionExport::write(
        config, terminal.log(), [&](double fraction) { terminal.progress(fraction); }, interruption.token());
}

}   // namespace

void writePreview(const PresetScene& scene, const std::string& output, Terminal& terminal) {
    const Interruption interruption;
    const bool isPicture = lowerExtension(output) == ".png";
    OutputRequest request;
    request.output = output;
    const OutputChoice choice =
        isPicture ? OutputChoice{outputPath(output, "preview", ".png")} : chooseOutput(request, "preview");
    writeFinished(choice.target, interruption, [&](const std::filesystem::path& unfinished) {
        if (isPicture)
            drawStrip(scene, unfinished, terminal, interruption);
        else
            writeFilm(scene, choice, unfinished, terminal, interruption);
    });
    terminal.tell("✓ Wrote " + choice.target.string());
    if (terminal.mode() == Terminal::Mode::json)
        terminal.report({{"output", choice.target.string()}, {"sizeBytes", fileSize(choice.target)}});
}

}   // namespace tavix::engine
