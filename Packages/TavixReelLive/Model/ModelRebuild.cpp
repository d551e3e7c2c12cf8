// How the preview of a reel follows its document, and how it becomes a film.
#include "TavixReelLive/Model/ReelEditorModel.h"

#include "TavixCore/Support/SafeOutput.h"
#include "TavixReel/Project/ReelAssets.h"
#include "TavixReelRender/Export/ReelExport.h"
#include "TavixRender/Encoding/RenderStopped.h"
#include "TavixRender/Export/ExportGeometry.h"
#include "TavixRender/Export/FilmCheck.h"
#include "TavixRender/Export/FilmExport.h"

#include <algorithm>
#include <utility>

namespace tavix {

namespace {

constexpr double mostUnfinished = 0.99;   // of the progress, until the film stands under its name

// The film takes its name when it is whole; until then what stood there before stays.
void writeFinished(ReelExport::Config config, const std::filesystem::path& file, const RenderLog& log,
    const FilmWriter::Progress& onProgress, const std::stop_token& stop) {
    SafeOutput output(file);
    config.file.output = output.partial();
    const PiecedFilm film = ReelExport::filmOf(config);
    FilmExport::write(film, log, onProgress, stop);
    if (film.file.format == ExportFormat::video) FilmCheck::probe(film, film.file.output);
    output.commit();
}

}   // namespace

void ReelEditorModel::scheduleRebuild() {
    if (!project_) return;
    const double now = services_.main.nowSec();
    const bool isQuiet = !isRebuilding_ && (!lastRebuildAtSec_ || now - *lastRebuildAtSec_ > quietSec);
    rebuildTimer_ = services_.main.after(isQuiet ? 0 : coalesceSec, [this] {
        rebuildTimer_.cancel();
        rebuildNow();
    });
}

EffectsSpec ReelEditorModel::shownSpec() const {
    EffectsSpec spec = state.spec();
    if (excludedCaption_ && spec.narration && *excludedCaption_ < spec.narration->captions.size())
        spec.narration->captions.erase(
            spec.narration->captions.begin() + static_cast<std::ptrdiff_t>(*excludedCaption_));
    return spec;
}

void ReelEditorModel::rebuildNow() {
    if (!project_) return;
    const std::uint64_t generation = ++rebuildGeneration_;
    isRebuilding_ = true;
    system::runThere(
        services_.render, services_.main,
        [make = services_.preview, spec = shownSpec(), footage = project_->footage(),
            assetRoot = project_->assetRoot(), room = room_] { return make(spec, footage, assetRoot, room); },
        lifeline_.guard([this, generation, key = timingKey(state.spec(), project_->footage())](
                            system::Outcome<ReelPreview>& outcome) {
            if (generation != rebuildGeneration_) return;   // another one is under way
            isRebuilding_ = false;
            lastRebuildAtSec_ = services_.main.nowSec();
            try {
                finishRebuild(key, std::move(outcome.value()));
            } catch (const std::exception& error) {
                state.errorMessage = std::string("Preview failed: ") + error.what();
            }
        }));
}

// Where the timing is the same the player keeps its item and its time, and only draws from another source.
void ReelEditorModel::finishRebuild(const std::string& key, ReelPreview preview) {
    const double totalSec = preview.pictures->totalSec();
    state.errorMessage = std::nullopt;
    state.outputDuration = totalSec;
    if (shownKey_ == key && player_.item()) {
        keptPreCutSec_.reset();
        player_.item()->pictures->setFrameSource(preview.pictures);
        return player_.redraw();
    }
    const double footageSec = keptPreCutSec_.value_or(preCutSec(state.currentTime()));
    const bool wasPlaying = player_.isPlaying();
    const bool isFirst = !shownKey_;
    shownKey_ = key;
    PlayerItem item{
        std::make_shared<RenderChain>(services_.render, services_.main, preview.pictures, services_.scrubLog),
        std::nullopt, totalSec, double(std::clamp<std::int64_t>(state.spec().output.fps, 1, 30))};
    if (preview.sound) item.sound.emplace(std::move(*preview.sound), RenderLog());
    player_.setItem(std::move(item));
    const double atSec = isFirst ? 0 : std::min(compositionSec(footageSec), totalSec);
    keptPreCutSec_.reset();
    state.currentTime = atSec;
    player_.seek(atSec);
    if (wasPlaying) player_.play();
    state.isPlaying = player_.isPlaying();
}

void ReelEditorModel::exportTo(const std::filesystem::path& file, Done then) {
    if (!project_ || state.isExporting()) return;
    save();
    const imaging::Size canvas{int(state.spec().output.widthPx), int(state.spec().output.heightPx)};
    const imaging::Size size =
        ReelExporter::targetDimensions(canvas, state.exportResolution(), state.exportFormat());
    const FrameRate fps = ReelExporter::targetFps(
        FrameRate(snapExportFps(double(state.spec().output.fps))), state.exportFormat());
    ReelExport::Config config{.spec = ReelAssets::scaled(state.spec(), size.width, size.height),
        .footage = project_->footage(),
        .assetRoot = project_->assetRoot(),
        .fps = fps,
        .file = {.output = {},
            .format = state.exportFormat(),
            .codec = state.exportVideoCodec(),
            .container = state.exportContainer()},
        .pieceStore = services_.pieceStore};
    exportStop_ = std::stop_source();
    state.isExporting = true;
    state.exportProgress = 0;
    const auto report = [this, alive = lifeline_.thread()](double fraction) {
        services_.main.post([this, alive, fraction] {
            if (!alive.expired()) state.exportProgress = std::min(fraction, mostUnfinished);
        });
    };
    system::runThere(
        services_.workers, services_.main,
        [config = std::move(config), file, report, log = services_.exportLog,
            stop = exportStop_.get_token()] {
            writeFinished(config, file, log, report, stop);
            return true;
        },
        lifeline_.guard(
            [this, name = file.filename().string(), then = std::move(then)](system::Outcome<bool>& outcome) {
                state.isExporting = false;
                try {
                    outcome.value();
                    state.exportProgress = 1;
                    state.statusMessage = "Exported " + name + ".";
                } catch (const RenderStopped&) {
                    state.statusMessage = "Export stopped.";
                } catch (const std::exception& error) {
                    state.statusMessage = std::string("Export failed: ") + error.what();
                }
                if (then) then();
            }));
}

}   // namespace tavix
