// What an editor does beside editing: export, and the grid of the music.
#include "TavixLive/Model/CompositionEditorModel.h"

#include "TavixLive/Operations/AudioOperations.h"
#include "TavixRender/Assets/CompositionAssets.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TavixRender/Encoding/RenderStopped.h"
#include "TavixRender/Export/CompositionExport.h"
#include "TavixRender/Export/ExportGeometry.h"
#include "TavixRender/MusicAnalysis/MusicAnalyzer.h"

#include <cstdio>
#include <exception>
#include <utility>

namespace tavix {

namespace {

std::string decimal(const char* format, double value) {
    char text[64];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

}   // namespace

// On a copy of everything: what is edited from now on does not reach it.
void CompositionEditorModel::exportTo(const std::filesystem::path& file, Done then) {
    if (!state.bundle() || state.isExporting()) return;
    state.exportTarget = file;
    state.exportProgress = 0;
    state.isExporting = true;
    CompositionRenderer::Config config;
    const CompositionSpec& spec = edited().spec;
    config.output = file;
    config.assetRoot = *state.bundle();
    config.fileFormat = state.exportFormat();
    config.videoCodec = state.exportVideoCodec();
    config.container = state.exportContainer();
    config.spec = scaledExportSpec(spec,
        ReelExporter::targetDimensions(canvasSize(spec), state.exportResolution(), state.exportFormat()),
        ReelExporter::targetFps(spec.output.fps, state.exportFormat()));
    exportStop_ = {};
    const std::function<void(double)> progress =
        lifeline_.guard([this](double fraction) { state.exportProgress = fraction; });
    system::runThere(
        services_.executors.workers, main_,
        [config, stop = exportStop_.get_token(), log = services_.logs.render, progress, &main = main_] {
            CompositionExport::write(
                config, log,
                [&](double fraction) { main.post([progress, fraction] { progress(fraction); }); }, stop);
            return config.output.filename().string();
        },
        lifeline_.guard([this, then = std::move(then)](system::Outcome<std::string>& outcome) {
            try {
                const std::string name = outcome.value();
                state.exportProgress = 1;
                state.statusMessage = "Exported " + name + ".";
            } catch (const RenderStopped&) {
                state.statusMessage = "Export stopped.";
            } catch (const std::exception& error) {
                state.errorMessage = std::string("Export failed: ") + error.what();
            }
            state.isExporting = false;
            if (then) then();
        }));
}

void CompositionEditorModel::analyzeMusicGrid(Done then) {
    const auto& audio = edited().spec.audio;
    if (!audio || !audio->music || audio->music->path.empty() || !state.bundle()) return;
    const std::filesystem::path file = CompositionAssets::resolved(audio->music->path, *state.bundle());
    state.isAnalyzingMusic = true;
    system::runThere(
        services_.executors.workers, main_, [file] { return MusicAnalyzer::analyze(file); },
        document_.guard([this, name = file.filename().string(), then = std::move(then)](
                            system::Outcome<BeatAnalysis>& outcome) {
            state.isAnalyzingMusic = false;
            try {
                const BeatAnalysis& found = outcome.value();
                if (!(found.bpm > 0)) {
                    state.errorMessage = "Beat analysis failed for " + name + " — set BPM by ear.";
                } else if (const auto& heard = edited().spec.audio; heard && heard->music) {
                    MusicBed bed = *heard->music;
                    bed.bpm = found.bpm;
                    bed.firstBeatSec = found.firstBeatSec;
                    update("Find the beat",
                        [&](EditState& changed) { AudioOperations::updateMusic(changed, bed); });
                    state.statusMessage =
                        "Beat grid: " + decimal("%.1f", found.bpm) + " BPM, first beat " +
                        decimal("%.2f", found.firstBeatSec) + "s" +
                        (found.dropSec ? ", drop " + decimal("%.2f", *found.dropSec) + "s" : "") + ".";
                }
            } catch (const std::exception& error) {
                state.errorMessage = error.what();
            }
            if (then) then();
        }));
}

}   // namespace tavix
