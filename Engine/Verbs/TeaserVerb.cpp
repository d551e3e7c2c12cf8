#include "Engine/Verbs/TeaserVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Reel/ReelFilmFile.h"
#include "Engine/Reel/ReelProject.h"
#include "Engine/System/Errors.h"
#include "Engine/System/Interruption.h"
#include "TavixReel/Authoring/TeaserAuthor.h"
#include "TavixReel/Project/ReelAssets.h"

namespace tavix::engine {

namespace fs = std::filesystem;

void TeaserVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("spec", spec_, "A teaser: its frame, its background and its beats, as JSON.",
        "teaser needs a file of headlines; tavix schema teaser tells what is in it.");
    arguments.text(
        "--project", project_, "BUNDLE", "Make a .tavixproj bundle of it instead of a film, to go on from.");
    film_.declare(arguments);
    render_.declare(arguments);
    arguments.quietFlag(terminal);
    arguments.jsonFlag(terminal);
}

void TeaserVerb::run(Terminal& terminal) {
    render_.tellingProgress(terminal, [&](ProgressLines& lines) { make(terminal, lines); });
}

void TeaserVerb::make(Terminal& terminal, ProgressLines& lines) {
    const Interruption interruption;
    const TeaserSpec teaser = readTeaser(spec_, terminal);
    ReelDocument reel;
    reel.file = spec_;
    reel.assetRoot = fs::absolute(reel.file).lexically_normal().parent_path();
    reel.name = fs::path(spec_).stem().string();
    reel.spec = ReelAssets::rooted(TeaserAuthor::author(teaser), reel.assetRoot);
    reel.recording.rawDurationSec = TeaserAuthor::sourceSeconds;
    if (teaser.beats.empty())
        throw DocumentError(spec_, "beats", "The film would have no frames; add a headline.");
    if (project_) {
        requireRenderable(reel);
        const fs::path document = writeCardProject(*project_, reel.spec);
        terminal.tell("✓ Wrote " + document.string());
        if (terminal.mode() == Terminal::Mode::json)
            terminal.report({{"bundle", *project_}, {"document", document.string()}});
        return;
    }
    renderReel(reel, {film_, render_}, {interruption, terminal, lines});
}

}   // namespace tavix::engine
