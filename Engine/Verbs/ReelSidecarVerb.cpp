#include "Engine/Verbs/ReelSidecarVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Reel/ReelRecording.h"
#include "Engine/System/Errors.h"
#include "TavixCore/Support/Decimals.h"
#include "TavixCore/Support/Document.h"
#include "TavixReel/Recording/Handshake.h"
#include "TavixReel/Recording/Sidecar.h"

#include <system_error>

namespace tavix::engine {

namespace fs = std::filesystem;

void ReelSidecarVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("video", recording_, "A recording, or the bundle that holds it.",
        "reel sidecar needs a recording: a video, or a .tavixproj bundle.");
    arguments.text("--report", report_, "FILE",
        "What the driver reported when the run ended. A done.json beside the video by default.");
    arguments.text("-o,--output", output_, "FILE", "The sidecar. Where the recording keeps it by default.");
    arguments.flag("--replace", replaces_, "Replace a sidecar that is there already.");
    arguments.jsonFlag(terminal);
}

void ReelSidecarVerb::run(Terminal& terminal) {
    const ReelProjectBundle::Parts parts = ReelProjectBundle::parts(recording_);
    const fs::path file = newDocument(output_, parts.timeline, replaces_);
    const fs::path report = report_ ? fs::path(*report_) : parts.rawVideo.parent_path() / HandshakeFile::done;
    const DoneReport done = readDriverReport(report, terminal);
    const VideoProbe probe = probeRecording(parts.rawVideo, terminal);
    const auto made = Sidecar::of(done, probe);
    if (!made)
        throw Failure(
            "\"" + parts.rawVideo.string() +
            "\" has no flash at the go, so nothing ties its clock to the app's; let the app fill its screen with pure magenta for 60 milliseconds when it starts.");
    writeFile(made->aligned.timeline, file);
    const std::size_t events = made->aligned.timeline.events.size();
    if (!probe.endFlashStartSeconds)
        terminal.warn("no-end-flash",
            "There is no flash at the end, so the app's clock is taken to run as the video's does.");
    if (made->aligned.matched < made->aligned.expected)
        terminal.warn("marks-missing",
            "Only " + std::to_string(made->aligned.matched) + " of " +
                std::to_string(made->aligned.expected) +
                " marks were found in the picture; the other times are those of the report.");
    terminal.tell("✓ Wrote " + file.string() + ": " + std::to_string(events) +
                  (events == 1 ? " step, " : " steps, ") + std::to_string(made->aligned.matched) + " of " +
                  std::to_string(made->aligned.expected) + " marks found, clock rate " +
                  decimals(made->rate, 4));
    if (terminal.mode() == Terminal::Mode::json)
        terminal.report({{"output", file.string()}, {"events", events}, {"matched", made->aligned.matched},
            {"expected", made->aligned.expected}, {"rate", made->rate}});
}

}   // namespace tavix::engine
