// How a reel becomes a film.
#include "TavixReelLive/Model/ReelEditorModel.h"

#include "TavixReel/Project/ReelAssets.h"
#include "TavixReelRender/Export/ReelExport.h"
#include "TavixRender/Encoding/RenderStopped.h"
#include "TavixRender/Export/ExportGeometry.h"
#include "TavixRender/Export/FinishedFilm.h"

#include <algorithm>
#include <utility>

namespace tavix {

namespace {

constexpr double mostUnfinished = 0.99;   // of the progress, until the film stands under its name

}   // namespace

// On a copy of everything: what is edited from now on does not reach it.
void ReelEditorModel::exportTo(const std::filesystem::path& file, Done then) {
    if (!project_ || state.isExporting()) return;
    exportStop_ = std::stop_source();
    state.isExporting = true;
    state.exportProgress = 0;
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
    const auto report = [this, alive = lifeline_.thread()](double fraction) {
        services_.main.post([this, alive, fraction] {
            if (!alive.expired()) state.exportProgress = std::min(fraction, mostUnfinished);
        });
    };
    system::runThere(
        services_.workers, services_.main,
        [config = std::move(config), file, report, log = services_.exportLog,
            stop = exportStop_.get_token()] {
            FinishedFilm::write(ReelExport::filmOf(config), file, log, report, stop);
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
