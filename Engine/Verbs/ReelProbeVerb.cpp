#include "Engine/Verbs/ReelProbeVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Reel/ReelRecording.h"
#include "TavixCore/Support/Decimals.h"
#include "TavixCore/Support/Document.h"

namespace tavix::engine {

namespace {

std::string flashLine(
    const char* name, const std::optional<double>& startSec, const std::optional<double>& endSec) {
    std::string line = std::string(name) + " ";
    if (!startSec) return line + "none\n";
    line += decimals(*startSec, 3) + " s";
    if (endSec) line += " to " + decimals(*endSec, 3) + " s";
    return line + "\n";
}

std::string linesOf(const VideoProbe& probe) {
    std::string lines = std::to_string(probe.widthPx) + " × " + std::to_string(probe.heightPx) + " pixels, " +
                        twoDecimals(probe.fps) + " frames a second\n";
    lines += flashLine("flash at the go ", probe.syncSeconds, probe.syncEndSeconds);
    lines += flashLine("flash at the end", probe.endFlashStartSeconds, probe.endFlashEndSeconds);
    lines += "marks            " + std::to_string(probe.markBlipSeconds.size());
    std::string_view before = ": ";
    for (const double sec : probe.markBlipSeconds) {
        lines.append(before).append(decimals(sec, 3));
        before = ", ";
    }
    return lines + "\n";
}

}   // namespace

void ReelProbeVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional(
        "video", video_, "A recording, or the bundle that holds it.", "reel probe needs a video.");
    arguments.jsonFlag(terminal);
}

void ReelProbeVerb::run(Terminal& terminal) {
    const VideoProbe probe = probeRecording(ReelProjectBundle::parts(video_).rawVideo, terminal);
    if (terminal.mode() == Terminal::Mode::json)
        terminal.reportRecord(Codec<VideoProbe>::write(probe));
    else
        terminal.result(linesOf(probe));
}

}   // namespace tavix::engine
