#include "Engine/Verbs/ThemeVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Reel/ReelRecording.h"
#include "Engine/System/Errors.h"
#include "TavixCore/Support/Document.h"
#include "TavixReel/Authoring/ThemeAuthor.h"

namespace tavix::engine {

namespace fs = std::filesystem;

void ThemeVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("recording", recording_,
        "A .tavixproj bundle, or a video with its document beside it.",
        "theme needs a reel: a .tavixproj bundle, or a video with its document beside it.");
    brand_.declare(arguments);
    arguments.text("--effects", effects_, "FILE", "The document. Where the recording keeps it by default.");
    arguments.text("-o,--output", output_, "FILE", "The themed document. The same file by default.");
    arguments.flag("--replace", replaces_, "Replace a document that is there already.");
    arguments.jsonFlag(terminal);
}

void ThemeVerb::run(Terminal& terminal) {
    const fs::path file = effects_ ? fs::path(*effects_) : ReelProjectBundle::parts(recording_).effects;
    std::vector<std::string> notes;
    const auto brand = brand_.read(notes);
    if (!brand) throw UsageError("Say whose look it is: --theme-from-app APP or --brand-bundle PATH.");
    const fs::path target = newDocument(output_, file, replaces_);
    const EffectsSpec themed = ThemeAuthor::apply(*brand, readEffects(file, terminal));
    writeFile(themed, target);
    for (const std::string& note : notes) terminal.tell("  " + note);
    terminal.tell("✓ Wrote " + target.string());
    if (terminal.mode() == Terminal::Mode::json)
        terminal.report({{"output", target.string()}, {"brand", Codec<BrandKit>::write(*brand)}});
}

}   // namespace tavix::engine
