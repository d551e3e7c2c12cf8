#include "Engine/Reel/ReelFilmFile.h"

#include "Engine/Console/Terminal.h"
#include "Engine/Output/FinishedFile.h"
#include "Engine/System/Interruption.h"
#include "Engine/System/SystemWatch.h"
#include "TavixReel/Project/ReelAssets.h"
#include "TavixReelRender/Export/ReelExport.h"

namespace tavix::engine {

void renderReel(const ReelDocument& reel, const FilmArguments& wishes, const Interruption& interruption,
    Terminal& terminal) {
    requireRenderable(reel);
    const OutputChoice choice = wishes.choose(reel.name);
    requireNoPart(choice.target, reel);
    const imaging::Size size = wishes.size(reel.size(), choice.format);
    const ReelExport::Config config{.spec = ReelAssets::scaled(reel.spec, size.width, size.height),
        .footage = reel.footage(),
        .assetRoot = reel.assetRoot,
        .fps = wishes.rate(reel.spec.output.fps, choice.format)};
    const SystemWatch::Task task("to render the film");
    writeFinished(choice.target, interruption, [&](const std::filesystem::path& unfinished) {
        ReelExport::write(
            config, wishes.file(choice, unfinished), terminal.log(),
            [&](double fraction) { terminal.progress(fraction); }, interruption.token());
    });
    terminal.tell("✓ Wrote " + choice.target.string());
    if (terminal.mode() == Terminal::Mode::json)
        terminal.report(filmResult(choice.target, ReelExport::frameCount(config), config.fps, size));
}

}   // namespace tavix::engine
