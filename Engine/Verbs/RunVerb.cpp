#include "Engine/Verbs/RunVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Output/FinishedFile.h"
#include "Engine/System/Errors.h"
#include "Engine/System/Interruption.h"
#include "TavixReel/Project/ReelProjectBundle.h"

#include <system_error>

namespace tavix::engine {

namespace {

namespace fs = std::filesystem;

JsonObject resultOf(const recorder::Recording& recording, const fs::path& bundle) {
    const Timeline::Video& video = recording.timeline.video;
    return {{"output", bundle.string()}, {"frames", recording.frameCount},
        {"seconds", double(recording.frameCount) / video.fps}, {"widthPx", video.widthPx},
        {"heightPx", video.heightPx}, {"fps", video.fps}, {"steps", recording.timeline.events.size()},
        {"sizeBytes", fileSize(bundle / ReelProjectBundle::rawVideoName)}};
}

}   // namespace

void RunVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("flow", flow_, "The flow, a JSON document.", "run needs a flow, a JSON document.");
    recording_.declare(arguments);
    arguments.text("-o,--output", output_, "BUNDLE",
        "The recording with its sidecar and its flow. The flow's name with .tavixproj by default.");
    arguments.flag("--replace", replaces_, "Record again into a bundle that has a recording.");
    arguments.quietFlag(terminal);
    arguments.jsonFlag(terminal);
}

void RunVerb::run(Terminal& terminal) {
    const Interruption interruption;
    const fs::path bundle = recordingBundle(
        output_ ? fs::path(*output_) : fs::path(flow_).stem().concat(".tavixproj"), replaces_);
    const auto recording =
        recordBundle(recording_.settings(flow_, terminal), flow_, bundle, interruption, terminal);
    std::error_code ignored;
    if (fs::exists(bundle / ReelProjectBundle::effectsName, ignored))
        terminal.warn(
            "effects-kept", "The bundle's effects.json was kept; it was made for the recording before.");
    terminal.tell("✓ Wrote " + bundle.string());
    if (terminal.mode() == Terminal::Mode::json) terminal.report(resultOf(recording, bundle));
}

}   // namespace tavix::engine
