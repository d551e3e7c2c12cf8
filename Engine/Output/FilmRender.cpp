#include "Engine/Output/FilmRender.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/ProgressLines.h"
#include "Engine/Console/Quantities.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Output/FinishedFile.h"
#include "Engine/System/Errors.h"
#include "Engine/System/Interruption.h"
#include "Engine/System/SystemWatch.h"
#include "TavixRender/Export/FilmCheck.h"
#include "TavixRender/Export/FilmExport.h"

#include <algorithm>
#include <cstdio>

namespace tavix::engine {

namespace {

JsonObject jsonOf(const FilmCheck::Likeness& likeness) {
    return JsonObject{{"framesDecoded", likeness.framesDecoded}, {"framesCompared", likeness.framesCompared},
        {"leastSimilarity", likeness.leastSimilarity}, {"mostColorError", likeness.mostColorError}};
}

std::string shownRate(std::int64_t bitsPerSec) {
    char text[64];
    std::snprintf(text, sizeof text, "%.2f Mbit/s", double(bitsPerSec) / 1e6);
    return text;
}

}   // namespace

void FilmRender::declare(Arguments& arguments) {
    arguments.value(
        "--max-size", "SIZE",
        [this](const std::string& text) { mostBytes_ = bytesNamed(text, "--max-size"); },
        "The most that the file may take, as in 10MB: the rate is chosen so.");
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
    if (file.format == ExportFormat::gif && (mostBytes_ || isVerified_))
        throw UsageError(std::string(mostBytes_ ? "--max-size" : "--verify") +
                         " is for video, and a GIF takes none; drop one of the two.");
    if (!mostBytes_) return;
    if (file.rate != ExportRate{})
        throw UsageError("--max-size chooses the rate itself; drop --quality and --rate.");
    if (isProRes(file.codec))
        throw UsageError(
            "--max-size does not go with ProRes, which has a rate of its own; drop one of the two.");
}

void FilmRender::write(PiecedFilm film, const OutputChoice& choice, const Tellers& tellers) const {
    requireAgreement(film.file);
    auto& [interruption, terminal, lines] = tellers;
    pieces_.apply(film);
    PieceRender::Report pieces;
    std::optional<JsonObject> likeness;
    const SystemWatch::Task task("to render the film");
    lines.stage("render");
    writeFinished(choice.target, interruption, [&](const std::filesystem::path& unfinished) {
        film.file.output = unfinished;
        const FilmWriter::Progress tellProgress = [&](double fraction) {
            terminal.progress(fraction);
            lines.progress(fraction);
        };
        pieces = mostBytes_ ? fit(film, tellProgress, tellers)
                            : FilmExport::write(film, terminal.log(), tellProgress, interruption.token());
        if (choice.format == ExportFormat::video) FilmCheck::probe(film, unfinished);
        if (!isVerified_) return;
        lines.stage("verify");
        likeness = jsonOf(FilmCheck::verify(film, unfinished, tellProgress, interruption.token()));
    });
    terminal.tell("✓ Wrote " + choice.target.string());
    const auto result = [&] {
        JsonObject json = filmResult(choice.target, film.frameCount, film.fps, film.size);
        if (pieces.pieces > 0)
            json.set("segments",
                JsonObject{{"count", std::int64_t(pieces.pieces)}, {"reused", std::int64_t(pieces.reused)}});
        if (likeness) json.set("verified", *likeness);
        return json;
    };
    if (lines.isOn()) lines.done(result());
    if (terminal.mode() == Terminal::Mode::json) terminal.report(result());
}

// The rate follows from the size and the length; where an encoder does not keep to it, it is tried again with
// less.
PieceRender::Report FilmRender::fit(
    PiecedFilm& film, const FilmWriter::Progress& onProgress, const Tellers& tellers) const {
    constexpr double containerShare = 0.02, soundBitsPerSec = 256'000, safety = 0.95;
    constexpr int mostTries = 5;
    constexpr std::int64_t leastBitsPerSec = 50'000;
    const double totalSec = std::max(film.fps.secAt(film.frameCount), 1e-3);
    const double forPictures =
        double(*mostBytes_) * 8 * (1 - containerShare) / totalSec - (film.sound ? soundBitsPerSec : 0);
    auto bitsPerSec = std::int64_t(forPictures);
    PieceRender::Report report;
    for (int i = 0; i < mostTries && bitsPerSec >= leastBitsPerSec; ++i) {
        film.file.rate.bitsPerSec = bitsPerSec;
        tellers.terminal.tell(
            "• " + shownBytes(*mostBytes_) + " leave " + shownRate(bitsPerSec) + " for the pictures");
        report = FilmExport::write(film, tellers.terminal.log(), onProgress, tellers.interruption.token());
        const double bytes = double(fileSize(film.file.output));
        if (bytes <= double(*mostBytes_)) return report;
        bitsPerSec = std::int64_t(double(bitsPerSec) * safety * double(*mostBytes_) / bytes);
    }
    throw Failure("The film does not fit into " + shownBytes(*mostBytes_) +
                  "; give --max-size more, or make the film smaller by --resolution or --fps.");
}

}   // namespace tavix::engine
