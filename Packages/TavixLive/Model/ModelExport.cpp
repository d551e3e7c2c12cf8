// What an editor does beside editing: export, and the grid of the music.
#include "TavixLive/Model/CompositionEditorModel.h"

#include "TavixLive/Operations/AudioOperations.h"
#include "TavixRender/Assets/CompositionAssets.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TavixRender/Export/ExportGeometry.h"
#include "TavixRender/MusicAnalysis/MusicAnalyzer.h"

#include <algorithm>
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

CompositionRenderer::Config CompositionEditorModel::exportConfig() const {
    const CompositionSpec& spec = edited().spec;
    CompositionRenderer::Config config;
    config.assetRoot = state.bundle();
    config.fileFormat = state.exportFormat();
    config.videoCodec = state.exportVideoCodec();
    config.container = state.exportContainer();
    config.effort = state.exportEffort();
    config.rate = state.exportRate();
    config.mostBytes = state.exportMostBytes();
    config.pieceStore = services_.pieceStore;
    config.spec = scaledExportSpec(spec,
        ReelExporter::targetDimensions(canvasSize(spec), state.exportResolution(), state.exportFormat()),
        ReelExporter::targetFps(spec.output.fps, state.exportFormat()));
    return config;
}

void CompositionEditorModel::exportTo(const std::filesystem::path& file, Done then) {
    if (!state.bundle()) return;
    CompositionRenderer::Config config = exportConfig();
    config.output = file;
    exports_.add(std::move(config), [this, then = std::move(then)](const ExportJob& job) {
        switch (job.stand) {
        case ExportJob::Stand::done:
            state.statusMessage = "Exported " + job.place().filename().string() + ".";
            break;
        case ExportJob::Stand::failed: state.errorMessage = "Export failed: " + job.fault; break;
        default: state.statusMessage = "Export stopped."; break;
        }
        if (then) then();
    });
}

void CompositionEditorModel::showExports() {
    const Batch together;
    const auto& jobs = exports_.jobs();
    const auto begun = std::ranges::find_if(jobs.rbegin(), jobs.rend(),
        [](const ExportJob& job) { return job.stand != ExportJob::Stand::waiting; });
    if (begun != jobs.rend()) {
        state.exportTarget = begun->place();
        state.exportProgress = begun->fraction;
    }
    state.isExporting = exports_.isBusy();
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
                state.musicAnalysis = found;
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
