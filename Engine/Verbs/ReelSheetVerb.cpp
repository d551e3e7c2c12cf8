#include "Engine/Verbs/ReelSheetVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Output/FinishedFile.h"
#include "Engine/Output/OutputPath.h"
#include "Engine/Reel/ReelDocument.h"
#include "Engine/Reel/ReelStory.h"
#include "Engine/Sheet/SheetPainter.h"
#include "Engine/System/Errors.h"
#include "Engine/System/Interruption.h"
#include "Engine/System/SystemWatch.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixReelRender/Film/ReelFilm.h"
#include "TavixRender/Encoding/FilmWriter.h"

#include <algorithm>

namespace tavix::engine {

namespace {

// Where footage goes on after a cut and where cards start, and what gives way to something else.
SheetOutline outlineOf(const ReelDocument& reel) {
    const ReelStory story = storyOf(reel.spec, reel.recording.timeline, reel.recording.preCutDurationSec());
    const FrameRate fps = reel.spec.output.fps;
    SheetOutline film{fps, std::max<std::int64_t>(FilmWriter::frameCount(story.durationSec, fps), 1),
        story.durationSec, {0}, {}};
    for (const auto& card : story.cards) {
        film.startsSec.push_back((card.range.startSec + card.range.endSec) / 2);   // its text has come
        film.startsSec.push_back(card.range.endSec);
    }
    for (const auto& cut : story.cuts) film.startsSec.push_back(cut.atSec);
    for (const auto& caption : story.captions)
        film.startsSec.push_back((caption.range.startSec + caption.range.endSec) / 2);
    for (const auto& transition : story.transitions)
        film.transitionsSec.push_back({transition.range.startSec, transition.range.endSec});
    return film;
}

}   // namespace

void ReelSheetVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("recording", recording_,
        "A .tavixproj bundle, or a video with its document beside it.",
        "reel sheet needs a recording: a .tavixproj bundle or a video.");
    arguments.text("--effects", effects_, "FILE", "The document. Where the recording keeps it by default.");
    arguments.text(
        "-o,--output", output_, "FILE", "The sheet, a .png. The recording's name with -sheet by default.");
    declareSheet(arguments, columns_, widthPx_, wish_);
    arguments.quietFlag(terminal);
    arguments.jsonFlag(terminal);
}

void ReelSheetVerb::run(Terminal& terminal) {
    const Interruption interruption;
    const ReelDocument reel = openReel(recording_, effects_, terminal);
    requireRenderable(reel);
    const std::filesystem::path target = outputPath(output_, reel.name + "-sheet", ".png");
    if (lowerExtension(target) != ".png")
        throw UsageError("\"" + target.string() + "\" cannot be written; a sheet is a .png file.");
    requireNoPart(target, reel);
    const SheetOutline outline = outlineOf(reel);
    const auto layoutFor = [&](int count) { return sheetLayout(reel.size(), count, columns_, widthPx_); };
    const std::vector<SheetMoment> shown =
        sheetMoments(outline, sheetSpan(outline, wish_), wish_, [&](int count) {
            const SheetLayout layout = layoutFor(count);
            return layout.columns * layout.rows;
        });
    const SheetLayout layout = layoutFor(static_cast<int>(shown.size()));
    const SystemWatch::Task task("to draw the sheet");
    JsonArray cells;
    writeFinished(target, interruption, [&](const std::filesystem::path& unfinished) {
        imaging::Evaluator evaluator;
        ReelFilm film(reel.spec, reel.footage(), reel.assetRoot, evaluator, terminal.log());
        SheetPainter painter(layout, evaluator);
        for (const SheetMoment& moment : shown) {
            interruption.check();
            terminal.progress(double(cells.size()) / double(shown.size()));
            const double atSec = outline.fps.secAt(moment.frame);
            painter.put(film.frame(atSec), film.size(), atSec, moment.kind);
            cells.emplace_back(JsonObject{{"atSec", atSec}});
        }
        media::writePng(unfinished, painter.draw().view());
    });
    terminal.tell("✓ Wrote " + target.string());
    if (terminal.mode() == Terminal::Mode::json)
        terminal.report({{"output", target.string()}, {"columns", layout.columns}, {"rows", layout.rows},
            {"widthPx", layout.sheet.width}, {"heightPx", layout.sheet.height},
            {"sizeBytes", fileSize(target)}, {"cells", std::move(cells)}});
}

}   // namespace tavix::engine
