#include "Engine/Verbs/ReelStillVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Output/FinishedFile.h"
#include "Engine/Output/OutputPath.h"
#include "Engine/Reel/ReelDocument.h"
#include "Engine/System/Errors.h"
#include "Engine/System/Interruption.h"
#include "Engine/System/SystemWatch.h"
#include "TavixCore/Support/Decimals.h"
#include "TavixReelRender/Export/ReelExport.h"

namespace tavix::engine {

void ReelStillVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("recording", recording_,
        "A .tavixproj bundle, or a video with its document beside it.",
        "reel still needs a recording: a .tavixproj bundle or a video.");
    arguments.number("--at", atSec_, "SEC", "The moment, in seconds of the finished reel.");
    arguments.text("--effects", effects_, "FILE", "The document. Where the recording keeps it by default.");
    arguments.text("-o,--output", output_, "FILE", "The picture, a .png. The recording's name by default.");
    arguments.quietFlag(terminal);
    arguments.jsonFlag(terminal);
}

void ReelStillVerb::run(Terminal& terminal) {
    const Interruption interruption;
    if (!atSec_) throw UsageError("Say which moment: --at SEC, in seconds of the finished reel.");
    const ReelDocument reel = openReel(recording_, effects_, terminal);
    requireRenderable(reel);
    if (const double endSec = reel.durationSec(); !(*atSec_ >= 0 && *atSec_ <= endSec))
        throw UsageError("There is no picture at " + twoDecimals(*atSec_) + " s; the reel runs from 0 to " +
                         twoDecimals(endSec) + " s.");
    const std::filesystem::path target = outputPath(output_, reel.name, ".png");
    if (lowerExtension(target) != ".png")
        throw UsageError("\"" + target.string() + "\" cannot be written; a still is a .png file.");
    requireNoPart(target, reel);
    const ReelExport::Config config{.spec = reel.spec,
        .footage = reel.footage(),
        .assetRoot = reel.assetRoot,
        .fps = reel.spec.output.fps};
    const SystemWatch::Task task("to draw the still");
    writeFinished(target, interruption, [&](const std::filesystem::path& unfinished) {
        ReelExport::writeStill(config, *atSec_, unfinished, terminal.log());
    });
    terminal.tell("✓ Wrote " + target.string());
    if (terminal.mode() != Terminal::Mode::json) return;
    const imaging::Size size = reel.size();
    terminal.report({{"output", target.string()}, {"atSec", *atSec_}, {"widthPx", size.width},
        {"heightPx", size.height}, {"sizeBytes", fileSize(target)}});
}

}   // namespace tavix::engine
