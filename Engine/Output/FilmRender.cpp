#include "Engine/Output/FilmRender.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/ProgressLines.h"
#include "Engine/Console/Quantities.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Output/FinishedFile.h"
#include "Engine/System/Errors.h"
#include "Engine/System/Interruption.h"
#include "Engine/System/SystemWatch.h"
#include "TavixPlatform/Media/LateLibrary.h"
#include "TavixRender/Export/AnimationFit.h"
#include "TavixRender/Export/FilmCheck.h"
#include "TavixRender/Export/FilmExport.h"
#include "TavixRender/Export/HardwareFilm.h"
#include "TavixRender/Export/RateFit.h"

#include <cstdio>

namespace tavix::engine {

namespace {

JsonObject jsonOf(const FilmCheck::Likeness& likeness) {
    return JsonObject{{"framesDecoded", likeness.framesDecoded}, {"framesCompared", likeness.framesCompared},
        {"leastSimilarity", likeness.leastSimilarity}, {"mostColorError", likeness.mostColorError}};
}

JsonObject jsonOf(const media::HardwareEncoder& asked, const std::string& refusal) {
    JsonObject json{{"asked", asked.name}};
    json.set("used", refusal.empty() ? asked.name : media::softwareEncoderName(asked.codec));
    if (!refusal.empty()) json.set("refusal", refusal);
    return json;
}

// With the name of the film for the file that is to become it.
std::string unnamed(
    std::string text, const std::filesystem::path& unfinished, const std::filesystem::path& target) {
    const std::string hidden = unfinished.string(), shown = target.string();
    for (auto at = text.find(hidden); at != std::string::npos; at = text.find(hidden, at + shown.size()))
        text.replace(at, hidden.size(), shown);
    return text;
}

std::string shownRate(std::int64_t bitsPerSec) {
    char text[64];
    std::snprintf(text, sizeof text, "%.2f Mbit/s", double(bitsPerSec) / 1e6);
    return text;
}

void tellOfOlder(std::int64_t count, const OutputChoice& choice, Terminal& terminal) {
    if (count == 0) return;
    terminal.tell("• \"" + choice.target.parent_path().string() + "\" still has " + std::to_string(count) +
                  (count == 1 ? " picture" : " pictures") + " past the last one, of an earlier film.");
}

}   // namespace

void FilmRender::declare(Arguments& arguments) {
    arguments.value(
        "--max-size", "SIZE",
        [this](const std::string& text) { mostBytes_ = bytesNamed(text, "--max-size"); },
        "The most that the file may take, as in 10MB: the rate is chosen so, and the size and the frames a second of "
        "a GIF or a WebP.");
    pieces_.declare(arguments);
    arguments.flag("--verify", isVerified_,
        "Decode the finished film and compare a frame of every second with the document's.");
    arguments.choice<bool>("--progress", hasLines_, {{"json", true}},
        "For programs: how far it is as JSON, a line each, and a last one that says done or failed.");
}

void FilmRender::tellingProgress(
    Terminal& terminal, const std::function<void(ProgressLines& lines)>& work) const {
    ProgressLines lines(hasLines_.value_or(false));
    if (lines.isOn()) terminal.setMode(Terminal::Mode::quiet);
    try {
        work(lines);
    } catch (const std::exception& error) {
        lines.failed(error);
        throw;
    }
}

void FilmRender::requireAgreement(const FilmFile& file) const {
    const auto refuse = [&](const std::string& flag) {
        throw UsageError(flag + " is for video, and a " + std::string(displayName(file.format)) +
                         " takes none; drop one of the two.");
    };
    if (isVerified_ && file.format != ExportFormat::video) refuse("--verify");
    if (!mostBytes_) return;
    if (file.format == ExportFormat::png) refuse("--max-size");
    if (file.rate != ExportRate{})
        throw UsageError("--max-size chooses the rate itself; drop --quality and --rate.");
    if (file.format == ExportFormat::video && isProRes(file.codec))
        throw UsageError(
            "--max-size does not go with ProRes, which has a rate of its own; drop one of the two.");
}

PieceRender::Report FilmRender::writeUnder(
    PiecedFilm& film, const FilmWriter::Progress& onProgress, const Tellers& tellers) const {
    if (mostBytes_ && isAnimation(film.file.format)) {
        const auto tell = [&](const AnimationFit::Look& look, double bytes) {
            tellers.terminal.tell(
                "• About " + shownBytes(std::int64_t(bytes)) + " at " + AnimationFit::shown(film, look));
        };
        film = AnimationFit::write(
            film, *mostBytes_, tellers.terminal.log(), tell, onProgress, tellers.interruption.token());
        return {};
    }
    if (mostBytes_) {
        const auto tell = [&](std::int64_t bitsPerSec) {
            tellers.terminal.tell(
                "• " + shownBytes(*mostBytes_) + " leave " + shownRate(bitsPerSec) + " for the pictures");
        };
        return RateFit::write(
            film, *mostBytes_, tellers.terminal.log(), tell, onProgress, tellers.interruption.token());
    }
    return FilmExport::write(film, tellers.terminal.log(), onProgress, tellers.interruption.token());
}

void FilmRender::write(PiecedFilm film, const OutputChoice& choice, const Tellers& tellers) const {
    requireAgreement(film.file);
    const Interruption& interruption = tellers.interruption;
    Terminal& terminal = tellers.terminal;
    ProgressLines& lines = tellers.lines;
    pieces_.apply(film);
    const std::optional<media::HardwareEncoder> hardware = film.file.hardware;
    HardwareFilm::Outcome made;
    std::string refused;
    const SystemWatch::Task task("to render the film");
    // Without memory the loader ends the program at once, which would leave what is unfinished lying.
    if (choice.format == ExportFormat::video) media::loadLateLibraries();
    lines.stage("render");
    const auto writeUnfinished = [&](const std::filesystem::path& unfinished) {
        film.file.output = unfinished;
        const FilmWriter::Progress tellProgress = [&](double fraction) {
            terminal.progress(fraction);
            lines.progress(fraction);
        };
        made = HardwareFilm::write(film,
            {[&](PiecedFilm& it) { return writeUnder(it, tellProgress, tellers); },
                [&] { lines.stage("verify"); }, tellProgress,
                [&](const std::string& refusal) {
                    refused = unnamed(refusal, unfinished, choice.target);
                    terminal.warn("encoder-refused", HardwareFilm::sentenceOf(*hardware, refused));
                    lines.stage("render");
                }},
            interruption.token());
        if (choice.format == ExportFormat::video) FilmCheck::probe(film, unfinished);
        if (!isVerified_ || made.likeness) return;
        lines.stage("verify");
        made.likeness = FilmCheck::verify(film, unfinished, tellProgress, interruption.token());
    };
    if (choice.format == ExportFormat::png)
        tellOfOlder(writeFinishedPictures(choice.target, film.frameCount, interruption, writeUnfinished),
            choice, terminal);
    else
        writeFinished(choice.target, interruption, writeUnfinished);
    if (!made.pieces.storeFault.empty()) terminal.warn("cache-unwritable", made.pieces.storeFault);
    terminal.tell("✓ Wrote " + choice.target.string());
    const auto result = [&] {
        JsonObject json = filmResult(choice.target, film.frameCount, film.fps, film.size);
        const PieceRender::Report& pieces = made.pieces;
        if (pieces.pieces > 0)
            json.set("segments",
                JsonObject{{"count", std::int64_t(pieces.pieces)}, {"reused", std::int64_t(pieces.reused)}});
        if (hardware) json.set("encoder", jsonOf(*hardware, refused));
        if (made.likeness) json.set("verified", jsonOf(*made.likeness));
        return json;
    };
    if (lines.isOn()) lines.done(result());
    if (terminal.mode() == Terminal::Mode::json) terminal.report(result());
}

}   // namespace tavix::engine
