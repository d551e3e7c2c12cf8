#include "Engine/Verbs/ReelRenderVerb.h"

#include "Engine/Arguments.h"
#include "Engine/FinishedFile.h"
#include "Engine/Interruption.h"
#include "Engine/Reel/ReelDocument.h"
#include "Engine/RenderNotes.h"
#include "Engine/SystemWatch.h"
#include "Engine/Terminal.h"
#include "TavixReel/Project/ReelAssets.h"
#include "TavixReelRender/Export/ReelExport.h"

namespace tavix::engine {

void ReelRenderVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("recording", recording_,
        "A .tavixproj bundle, or a video with its document beside it.",
        "reel render needs a recording: a .tavixproj bundle or a video.");
    arguments.text("--effects", effects_, "FILE", "The document. Where the recording keeps it by default.");
    film_.declare(arguments);
    arguments.quietFlag(terminal);
    arguments.jsonFlag(terminal);
}

void ReelRenderVerb::run(Terminal& terminal) {
    const Interruption interruption;
    const ReelDocument reel = openReel(recording_, effects_, terminal);
    requireRenderable(reel);
    const OutputChoice choice = film_.choose(reel.name);
    requireNoPart(choice.target, reel);
    const imaging::Size size = film_.size(reel.size(), choice.format);
    const ReelExport::Config config{.spec = ReelAssets::scaled(reel.spec, size.width, size.height),
        .footage = reel.footage(),
        .assetRoot = reel.assetRoot,
        .fps = film_.rate(reel.spec.output.fps, choice.format)};
    RenderNotes notes(terminal);
    const SystemWatch::Task task("to render the film");
    writeFinished(choice.target, interruption, [&](const std::filesystem::path& unfinished) {
        ReelExport::write(
            config, film_.file(choice, unfinished), notes.log(),
            [&](double fraction) { terminal.progress(fraction); }, interruption.token());
    });
    terminal.tell("✓ Wrote " + choice.target.string());
    if (terminal.mode() == Terminal::Mode::json)
        terminal.result(
            filmResult(choice.target, ReelExport::frameCount(config), config.fps, size, notes.warnings()));
}

}   // namespace tavix::engine
