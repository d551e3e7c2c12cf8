#include "Engine/Verbs/ReelDescribeVerb.h"

#include "Engine/Arguments.h"
#include "Engine/Errors.h"
#include "Engine/FinishedFile.h"
#include "Engine/Interruption.h"
#include "Engine/OutputPath.h"
#include "Engine/Reel/ReelPlot.h"
#include "Engine/Reel/ReelRecording.h"
#include "Engine/Terminal.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixReel/Camera/EffectsAuthor.h"

#include <filesystem>
#include <system_error>

namespace tavix::engine {

namespace fs = std::filesystem;

void ReelDescribeVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("recording", recording_,
        "A .tavixproj bundle, or a video with its sidecar beside it.",
        "reel describe needs a recording: a .tavixproj bundle or a video.");
    arguments.text("--effects", effects_, "FILE", "The document. Where the recording keeps it by default.");
    arguments.text("--plot", plot_, "FILE", "Draw it too, to a .png.");
    arguments.jsonFlag(terminal);
}

void ReelDescribeVerb::run(Terminal& terminal) {
    const Interruption interruption;
    const std::optional<fs::path> plot =
        plot_ ? std::optional(outputPath(plot_, "reel-plot", ".png")) : std::nullopt;
    if (plot && lowerExtension(*plot) != ".png")
        throw UsageError("\"" + plot->string() + "\" cannot be written; a plot is a .png file.");
    const ReelRecording recording = openRecording(recording_, terminal);
    const fs::path effects = effects_ ? fs::path(*effects_) : recording.parts.effects;
    std::error_code ignored;
    const bool hasDocument = effects_ || fs::is_regular_file(effects, ignored);
    if (!hasDocument)
        terminal.warn("no-effects", "There is no \"" + effects.string() +
                                        "\" yet; this is what reel author would make of the steps alone.");
    const EffectsSpec spec = hasDocument ? readEffects(effects, terminal)
                                         : EffectsAuthor::author(recording.timeline, {},
                                               MotionSpec::smoothGlide, ReelFormat::deviceNative);
    const ReelStory story = storyOf(spec, recording.timeline, recording.preCutDurationSec());
    if (plot)
        writeFinished(*plot, interruption,
            [&](const fs::path& unfinished) { media::writePng(unfinished, plotOf(story).view()); });
    if (terminal.mode() == Terminal::Mode::json)
        terminal.report(jsonOf(story));
    else
        terminal.result(linesOf(story));
    if (plot) terminal.tell("✓ Wrote " + plot->string());
}

}   // namespace tavix::engine
