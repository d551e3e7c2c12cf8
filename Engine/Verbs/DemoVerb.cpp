#include "Engine/Verbs/DemoVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Output/OutputPath.h"
#include "Engine/System/Interruption.h"
#include "Engine/Verbs/ReelAuthorVerb.h"
#include "Engine/Verbs/ReelRenderVerb.h"
#include "TavixReel/Project/ReelProjectBundle.h"

#include <filesystem>
#include <vector>

namespace tavix::engine {

namespace {

namespace fs = std::filesystem;

// Another verb, as if it had been called with these words.
template <class V> void runVerb(std::string_view name, std::vector<std::string> words, Terminal& terminal) {
    V verb;
    Arguments arguments(name, {}, {});
    verb.declare(arguments, terminal);
    arguments.parse(words);
    verb.run(terminal);
}

}   // namespace

void DemoVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("flow", flow_, "The flow, a JSON document.", "demo needs a flow, a JSON document.");
    recording_.declare(arguments);
    arguments.text("-o,--output", output_, "FILE",
        "The film, an MP4 or a MOV; the recording is kept beside it. The flow's name with .mp4 by default.");
    arguments.text("--background", background_, "SELECTOR", "As for reel author.");
    arguments.text("--typography", typography_, "VALUE", "As for reel author.");
    arguments.flag("--replace", replaces_, "Record again into a bundle that has a recording.");
    arguments.quietFlag(terminal);
    arguments.jsonFlag(terminal);
}

void DemoVerb::run(Terminal& terminal) {
    const fs::path film = outputPath(output_, fs::path(flow_).stem().string(), ".mp4");
    const fs::path named = fs::path(film).replace_extension(ReelProjectBundle::pathExtension);
    const fs::path bundle = recordingBundle(named, replaces_);
    {
        const Interruption interruption;
        recordBundle(recording_.settings(flow_, terminal), flow_, bundle, interruption, terminal);
    }
    std::vector<std::string> authoring{bundle.string(), "--captions", "--replace"};
    if (background_) authoring.insert(authoring.end(), {"--background", *background_});
    if (typography_) authoring.insert(authoring.end(), {"--typography", *typography_});
    const Terminal::Mode mode = terminal.mode();
    if (mode == Terminal::Mode::json) terminal.setMode(Terminal::Mode::quiet);   // the film is the result
    runVerb<ReelAuthorVerb>("reel author", authoring, terminal);
    terminal.setMode(mode);
    runVerb<ReelRenderVerb>("reel render", {bundle.string(), "-o", film.string()}, terminal);
}

}   // namespace tavix::engine
