#include "TavixRender/Export/ExportTrial.h"

#include "TavixRender/Encoding/FilmEncoders.h"
#include "TavixRender/Encoding/RenderStopped.h"
#include "TavixRender/Export/CompositionExport.h"
#include "TavixRender/Export/MachineShare.h"
#include "TavixRender/Export/RateFit.h"
#include "TavixRender/Export/RatePlan.h"
#include "TavixRender/Export/TrialFolder.h"

#include <algorithm>
#include <chrono>

namespace tavix::ExportTrial {

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr double trialSec = 3;   // of work
constexpr std::int64_t leastFrames = 4, mostFrames = 30;
constexpr double atFraction = 0.4;   // of the film

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// What the film becomes where it may not have all the bytes that it would take.
void fit(PiecedFilm& film, Outcome& outcome, const std::stop_token& stop) {
    if (!film.mostBytes) return;
    if (isAnimation(film.file.format)) {
        const AnimationFit::Estimate estimate = AnimationFit::estimated(film, *film.mostBytes, stop);
        outcome.look = estimate.look;
        outcome.bytes = estimate.bytes;
        film = AnimationFit::made(film, estimate.look);
    } else if (film.file.format == ExportFormat::video && !isProRes(film.file.codec)) {
        outcome.bitsPerSec = RateFit::bitsPerSec(film, *film.mostBytes);
        if (!RatePlan::isFor(film.file)) film.file.rate.bitsPerSec = *outcome.bitsPerSec;
    }
}

struct Stretch {
    std::int64_t frames = 0;
    double sec = 0;
};

Stretch encoded(const PiecedFilm& film, const std::stop_token& stop) {
    const std::int64_t most = std::min(film.frameCount, mostFrames);
    const auto first = std::min(std::int64_t(double(film.frameCount) * atFraction), film.frameCount - most);
    imaging::Evaluator evaluator(MachineShare::evaluation(film.evaluation, film.memoryBytes, 1));
    const auto painter = film.painter(evaluator, {}, MachineShare::roomOf(film.memoryBytes, 1));
    painter->frame(film.fps.secAt(first));   // files are opened once for the whole film
    Stretch done;
    const auto encode = [&](auto&& encoder) {
        const auto start = Clock::now();
        // A single frame would be a key frame alone.
        while (done.frames < most && (done.frames < leastFrames || secondsSince(start) < trialSec)) {
            if (stop.stop_requested()) throw RenderStopped();
            encoder.append(painter->frame(film.fps.secAt(first + done.frames)), done.frames);
            ++done.frames;
        }
        encoder.finish();
        done.sec = secondsSince(start);
    };
    withEncoder(film.file, film.size, film.fps, evaluator, encode);
    return done;
}

}   // namespace

Outcome run(const CompositionRenderer::Config& config, const std::stop_token& stop) {
    PiecedFilm film = CompositionExport::filmOf(config);
    const TrialFolder folder;
    film.file.output = folder.path() / (film.file.format == ExportFormat::png ? FrameNames::usual : "trial");
    if (film.file.format != ExportFormat::png) film.file.output += config.output.extension();
    Outcome outcome;
    fit(film, outcome, stop);
    const Stretch stretch = encoded(film, stop);
    const double share = double(film.frameCount) / double(stretch.frames);
    outcome.sec = stretch.sec * share;
    if (outcome.look) return outcome;   // the search has told the bytes better
    for (const fs::directory_entry& entry : fs::directory_iterator(folder.path()))
        outcome.bytes += double(entry.file_size()) * share;
    if (!outcome.bitsPerSec || film.file.rate.bitsPerSec) return outcome;
    // The stretch was coded as usual, and so is the film where that fits.
    const double most = double(*outcome.bitsPerSec) / 8 * film.fps.secAt(film.frameCount);
    if (outcome.bytes <= most)
        outcome.bitsPerSec.reset();
    else
        outcome.bytes = most;
    return outcome;
}

}   // namespace tavix::ExportTrial
