#include "TavixRender/Export/RateFit.h"

#include "TavixBase/Failure.h"
#include "TavixRender/Export/FilmExport.h"
#include "TavixRender/Export/RatePlan.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

namespace tavix::RateFit {

namespace {

constexpr std::int64_t leastBitsPerSec = 50'000;
constexpr double planShare = 0.15;   // of the progress

[[noreturn]] void refuse(std::int64_t mostBytes) {
    throw Failure("The film does not fit into " + std::to_string(mostBytes / 1000) +
                  " kB; allow it more bytes, or make it smaller, shorter or of fewer frames a second.");
}

struct Run {
    const RenderLog& log;
    const FilmWriter::Progress& onProgress;
    const std::stop_token& stop;

    // From a share of the progress on.
    PieceRender::Report write(const PiecedFilm& film, double from) const {
        const auto report = [&](double done) {
            if (onProgress) onProgress(from + done * (1 - from));
        };
        return FilmExport::write(film, log, report, stop);
    }
};

double bytesOf(const PiecedFilm& film) { return double(std::filesystem::file_size(film.file.output)); }

// Of an encoder that keeps to rates by itself.
PieceRender::Report writeByRate(PiecedFilm& film, std::int64_t mostBytes, std::int64_t rate, const Run& run) {
    constexpr double safety = 0.95;
    constexpr int mostTries = 5;
    for (int i = 0; i < mostTries && rate >= leastBitsPerSec; ++i) {
        film.file.rate.bitsPerSec = rate;
        const PieceRender::Report report = run.write(film, 0);
        const double bytes = bytesOf(film);
        if (bytes <= double(mostBytes)) return report;
        rate = std::int64_t(double(rate) * safety * double(mostBytes) / bytes);
    }
    refuse(mostBytes);
}

PieceRender::Report writeByCoarseness(
    PiecedFilm& film, std::int64_t mostBytes, std::int64_t rate, const Run& run) {
    constexpr double aim = 0.95;   // of what the plan is asked for, which may err
    constexpr int mostTries = 6;
    const VideoCodec codec = film.file.codec;
    const double most = RatePlan::mostCoarseness(codec);
    const auto report = [&](double done) {
        if (run.onProgress) run.onProgress(done * planShare);
    };
    std::optional<double> coarseness = RatePlan::coarsenessFor(
        film, aim * double(rate) / 8 * film.fps.secAt(film.frameCount), report, run.stop);
    // What is finer than usual nobody sees.
    const double usual = RatePlan::usualCoarseness(codec);
    for (int i = 0; i < mostTries; ++i) {
        film.file.rate = {};
        if (coarseness && *coarseness > usual)
            film.file.rate.coarseness = RatePlan::steppedUp(codec, std::min(*coarseness, most));
        const PieceRender::Report made = run.write(film, planShare);
        const double bytes = bytesOf(film);
        if (bytes <= double(mostBytes)) return made;
        const double written = film.file.rate.coarseness.value_or(usual);
        if (written >= most) break;
        // A step more than it takes as a rule.
        coarseness =
            written + 1 + RatePlan::stepsPerHalf(codec) * std::log2(bytes / (aim * double(mostBytes)));
    }
    refuse(mostBytes);
}

}   // namespace

std::int64_t bitsPerSec(const PiecedFilm& film, std::int64_t mostBytes) {
    constexpr double containerShare = 0.02, soundBitsPerSec = 256'000, mostBitsPerSec = 1e12;
    const double totalSec = std::max(film.fps.secAt(film.frameCount), 1e-3);
    const double all = double(mostBytes) * 8 * (1 - containerShare) / totalSec;
    const double forPictures = std::min(all, mostBitsPerSec) - (film.sound ? soundBitsPerSec : 0);
    if (forPictures < double(leastBitsPerSec)) refuse(mostBytes);
    return std::int64_t(forPictures);
}

PieceRender::Report write(PiecedFilm& film, std::int64_t mostBytes, const RenderLog& log, const Tell& tell,
    const FilmWriter::Progress& onProgress, const std::stop_token& stop) {
    const std::int64_t rate = bitsPerSec(film, mostBytes);
    if (tell) tell(rate);
    const Run run{log, onProgress, stop};
    return RatePlan::isFor(film.file) ? writeByCoarseness(film, mostBytes, rate, run)
                                      : writeByRate(film, mostBytes, rate, run);
}

}   // namespace tavix::RateFit
