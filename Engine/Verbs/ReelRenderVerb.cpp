#include "Engine/Verbs/ReelRenderVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Reel/ReelFilmFile.h"
#include "Engine/System/Interruption.h"

namespace tavix::engine {

void ReelRenderVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("recording", recording_,
        "A .tavixproj bundle, or a video with its document beside it.",
        "reel render needs a recording: a .tavixproj bundle or a video.");
    arguments.text("--effects", effects_, "FILE", "The document. Where the recording keeps it by default.");
    film_.declare(arguments);
    render_.declare(arguments);
    arguments.quietFlag(terminal);
    arguments.jsonFlag(terminal);
}

void ReelRenderVerb::run(Terminal& terminal) {
    render_.tellingProgress(terminal, [&](ProgressLines& lines) {
        const Interruption interruption;
        const ProbeMemory memory = render_.pieces().keepsNothing() ? ProbeMemory::unused : ProbeMemory::used;
        renderReel(openReel(recording_, effects_, terminal, memory), {film_, render_},
            {interruption, terminal, lines});
    });
}

}   // namespace tavix::engine
