#include "Engine/Verbs/ReelNewVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Reel/ReelProject.h"
#include "Engine/Reel/ReelRecording.h"
#include "Engine/System/Errors.h"

#include <system_error>

namespace tavix::engine {

namespace fs = std::filesystem;

namespace {

// What was named, or what lies at the usual place.
std::optional<fs::path> partOf(const std::optional<std::string>& named, const fs::path& usual) {
    if (named) return *named;
    std::error_code ignored;
    return fs::is_regular_file(usual, ignored) ? std::optional(usual) : std::nullopt;
}

}   // namespace

void ReelNewVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("bundle", bundle_, "The bundle to make; its name ends in .tavixproj.",
        "reel new needs the name of the bundle to make, as in walk.tavixproj.");
    arguments.text("--video", video_, "FILE", "The recording. It is copied.");
    arguments.text("--sidecar", sidecar_, "FILE", "Its sidecar. What lies beside the video by default.");
    arguments.text(
        "--flow", flow_, "FILE", "The flow that was driven. What lies beside the video by default.");
    arguments.jsonFlag(terminal);
}

void ReelNewVerb::run(Terminal& terminal) {
    if (!video_) throw UsageError("Say which recording: --video FILE.");
    const ReelProjectBundle::Parts beside = ReelProjectBundle::parts(*video_);
    const ReelProjectParts parts{
        beside.rawVideo, partOf(sidecar_, beside.timeline), partOf(flow_, beside.flow)};
    probeRecording(parts.video, terminal);   // says what is wrong with it before it is copied
    writeProject(bundle_, parts);
    if (!parts.sidecar)
        terminal.warn("no-sidecar",
            "There is no sidecar \"" + beside.timeline.string() +
                "\", so the camera of the reel will stand still; tavix reel sidecar makes one.");
    terminal.tell("✓ Wrote " + bundle_);
    terminal.tell("  Next: tavix reel author " + bundle_ + " --captions");
    if (terminal.mode() == Terminal::Mode::json)
        terminal.report({{"bundle", bundle_}, {"hasSidecar", parts.sidecar.has_value()},
            {"hasFlow", parts.flow.has_value()}});
}

}   // namespace tavix::engine
