#include "Engine/Verbs/ReelDescribeVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Output/FinishedFile.h"
#include "Engine/Output/OutputPath.h"
#include "Engine/Reel/ReelDocument.h"
#include "Engine/Reel/ReelPlot.h"
#include "Engine/System/Errors.h"
#include "Engine/System/Interruption.h"
#include "TavixPlatform/Media/StillImages.h"

#include <filesystem>

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
    const ReelDocument reel = openReel(recording_, effects_, terminal);
    const ReelStory story = storyOf(reel.spec, reel.recording.timeline, reel.recording.preCutDurationSec());
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
