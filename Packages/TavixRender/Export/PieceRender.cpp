#include "TavixRender/Export/PieceRender.h"

#include "TavixPlatform/Imaging/StopScope.h"
#include "TavixPlatform/Media/MovieJoin.h"
#include "TavixRender/Audio/CompositionAudioMuxer.h"
#include "TavixRender/Encoding/FrameClock.h"
#include "TavixRender/Encoding/FrameOutput.h"
#include "TavixRender/Encoding/FrameSequenceEncoder.h"
#include "TavixRender/Encoding/HiddenFile.h"
#include "TavixRender/Encoding/RenderStopped.h"
#include "TavixRender/Export/MachineShare.h"
#include "TavixRender/Export/PieceStore.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <system_error>
#include <thread>

namespace tavix::PieceRender {

namespace {

// Draws pieces of one film, one after another. Remembers of which parts something was told: a piece that is
// found again says nothing, so those are not kept.
class Worker {
public:
    Worker(const PiecedFilm& film, const imaging::EvaluatorOptions& evaluation, int workers,
        const RenderLog& log)
        : film_(film), evaluator_(evaluation),
          painter_(film.painter(evaluator_, watched(log), MachineShare::roomOf(film.memoryBytes, workers))) {}

    void write(const FilmPiece& piece, const std::filesystem::path& file,
        const std::function<void()>& onFrame, const std::stop_token& stop) {
        const FilmFile& kind = film_.file;
        FrameSequenceEncoder encoder({file, film_.size, film_.fps, kind.codec, kind.container, kind.effort,
                                         kind.rate, kind.hardware, true},
            evaluator_);
        for (std::int64_t i = 0; i < piece.frameCount; ++i) {
            if (stop.stop_requested()) throw RenderStopped();
            const double atSec = film_.fps.secAt(piece.firstFrame + i);
            shown_ = painter_->partsAt(atSec);
            encoder.append(painter_->frame(atSec), i);
            onFrame();
        }
        encoder.finish();
    }

    bool isSilent(const FilmPiece& piece) const {
        const auto isLoud = [this](std::size_t part) { return loudParts_.contains(part); };
        for (std::int64_t i = 0; i < piece.frameCount; ++i)
            if (std::ranges::any_of(painter_->partsAt(film_.fps.secAt(piece.firstFrame + i)), isLoud))
                return false;
        return true;
    }

private:
    RenderLog watched(const RenderLog& log) {
        return [this, log](const Finding& finding) {
            const bool isSaid =
                finding.level == Finding::Level::warning || finding.level == Finding::Level::error;
            if (isSaid) loudParts_.insert(shown_.begin(), shown_.end());
            tell(log, finding);
        };
    }

    const PiecedFilm& film_;
    imaging::Evaluator evaluator_;
    std::vector<std::size_t> shown_{
        0};   // what the painter tells before its first frame is of its first part
    std::set<std::size_t> loudParts_;
    std::unique_ptr<PiecedFilm::Painter> painter_;
};

// Counts frames of pieces that are made side by side, and says how far the film is.
class Counter {
public:
    Counter(const PiecedFilm& film, const RenderLog& log, const FilmWriter::Progress& onProgress)
        : log_(log), onProgress_(onProgress), count_(film.frameCount),
          perReport_(std::max<std::int64_t>(film.fps.frameNearest(1), 1)) {}

    void begin() { report(); }
    void add(std::int64_t frames) {
        const std::lock_guard lock(mutex_);
        done_ += frames;
        if (done_ < count_ && done_ >= nextReport_) report();
    }

private:
    void report() {
        constexpr std::int64_t reportsPerLine = 5;
        const double done = double(done_) / double(std::max<std::int64_t>(count_, 1));
        if (onProgress_) onProgress_(done);
        if (done_ >= nextLine_) {
            tell(log_, Finding::progress(RenderCode::rendered, std::to_string(int(done * 100)) + "%"));
            nextLine_ = done_ - done_ % (reportsPerLine * perReport_) + reportsPerLine * perReport_;
        }
        nextReport_ = done_ - done_ % perReport_ + perReport_;
    }

    const RenderLog& log_;
    const FilmWriter::Progress& onProgress_;
    std::int64_t count_, perReport_, done_ = 0, nextReport_ = 0, nextLine_ = 0;
    std::mutex mutex_;   // its own: what is told is told by one thread at a time
};

struct Job {
    FilmPiece piece;
    std::filesystem::path file;
    std::optional<Digest> key;
};

// What the workers of one film share.
struct Shop {
    const PiecedFilm& film;
    const std::vector<Job>& jobs;
    const std::optional<PieceStore>& store;
    const PiecedFilm::Keys* keys;   // where there is a store
    RenderLog log;
    Counter& counter;
    imaging::EvaluatorOptions evaluation;
    int workers;
    std::stop_token stop;
    std::atomic<std::size_t> next = 0;
    std::mutex keeping = {};        // keys and the first failure
    std::error_code keptNot = {};   // why the first piece of those that were not kept was not
    std::exception_ptr failure = {};

    void work() {
        std::optional<Worker> worker;
        for (std::size_t i = next++; i < jobs.size(); i = next++) {
            const Job& job = jobs[i];
            if (!worker) worker.emplace(film, evaluation, workers, log);
            worker->write(
                job.piece, job.file, [this] { counter.add(1); }, stop);
            const std::lock_guard lock(keeping);
            if (!store || !job.key || !worker->isSilent(job.piece) || !keys->holds(job.piece)) continue;
            const std::error_code error = store->keep(*job.key, job.file);
            if (!keptNot) keptNot = error;
        }
    }
};

void runSideBySide(Shop& shop, const std::stop_token& outer) {
    std::stop_source source;
    const std::stop_callback passOn(outer, [&source] { source.request_stop(); });
    shop.stop = source.get_token();
    const std::stop_token work = imaging::StopScope::current();
    const auto run = [&] {
        const imaging::StopScope scope(work);
        try {
            shop.work();
        } catch (...) {
            const std::lock_guard lock(shop.keeping);
            if (!shop.failure) shop.failure = std::current_exception();
            source.request_stop();   // the others need not go on
        }
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < shop.workers; ++i) threads.emplace_back(run);
    for (std::thread& thread : threads) thread.join();
    if (shop.failure) std::rethrow_exception(shop.failure);
}

// The same log for several threads.
RenderLog oneAtATime(RenderLog log, std::mutex& mutex) {
    return [log = std::move(log), &mutex](const Finding& finding) {
        const std::lock_guard lock(mutex);
        tell(log, finding);
    };
}

media::MovieContainer mediaContainer(ExportContainer container) {
    switch (container) {
    case ExportContainer::mp4: return media::MovieContainer::mp4;
    case ExportContainer::mov: return media::MovieContainer::mov;
    case ExportContainer::webm: break;
    }
    return media::MovieContainer::webm;
}

std::string storeFault(const std::filesystem::path& folder, const std::error_code& error) {
    if (!error) return {};
    return "Finished segments cannot be kept in \"" + folder.string() + "\": " + error.message() +
           ". The film is whole, but the next render draws all of it again; make room there, let it be written, name "
           "another folder in XDG_CACHE_HOME, or use --no-cache.";
}

}   // namespace

int workerCount(const PiecedFilm& film, std::size_t pieces) {
    const imaging::Size size = film.size;
    // Encoder, frame and what it is made of, as measured for films with devices in space.
    constexpr double fixedBytes = 120e6, bytesPerPixel = 160;
    const double bytesEach = fixedBytes + bytesPerPixel * size.width * size.height;
    const double budget = double(MachineShare::memoryBytes(film.memoryBytes));
    // An encoder has two threads, and one draws.
    const int byCores =
        std::max(film.evaluation.threadCount > 0 ? film.evaluation.threadCount : MachineShare::cores(), 2) /
        2;
    // Drivers open few encoders at once; of one that is shared two are kept busy by their drawing.
    const int byDevice = film.file.hardware ? 2 : byCores;
    const int most = std::min({byCores, byDevice, int(std::min(double(byCores), budget / bytesEach))});
    return std::clamp(most, 1, int(std::max<std::size_t>(pieces, 1)));
}

void write(const PiecedFilm& film, const FilmPiece& piece, const std::filesystem::path& file,
    const RenderLog& log, const FilmWriter::Progress& onProgress, const std::stop_token& stop) {
    std::int64_t done = 0;
    Worker(film, film.evaluation, 1, log)
        .write(
            piece, file,
            [&] {
                if (onProgress) onProgress(double(++done) / double(piece.frameCount));
            },
            stop);
}

Report writeAll(const PiecedFilm& film, const std::vector<FilmPiece>& pieces,
    const std::vector<std::filesystem::path>& files, const RenderLog& log,
    const FilmWriter::Progress& onProgress, const std::stop_token& stop) {
    Report report{pieces.size(), 0};
    std::optional<PieceStore> store;
    std::unique_ptr<PiecedFilm::Keys> keys;
    if (film.pieceStore) {
        store.emplace(*film.pieceStore);
        keys = film.keys(film.file);
    }
    Counter counter(film, log, onProgress);
    counter.begin();
    std::vector<Job> jobs;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const auto key = keys ? keys->of(pieces[i]) : std::nullopt;
        if (key && store->fetch(*key, pieces[i].frameCount, files[i])) {
            ++report.reused;
            counter.add(pieces[i].frameCount);
        } else {
            jobs.push_back({pieces[i], files[i], key});
        }
    }
    const int workers = workerCount(film, jobs.size());
    std::mutex telling;
    const RenderLog shared = workers > 1 ? oneAtATime(onceEach(log), telling) : log;
    auto evaluation = MachineShare::evaluation(film.evaluation, film.memoryBytes, workers);
    if (workers > 1) evaluation.threadCount = 2;
    Shop shop{film, jobs, store, keys.get(), shared, counter, evaluation, workers, stop};
    if (workers > 1)
        runSideBySide(shop, stop);
    else
        shop.work();
    if (!store) return report;
    store->trim();
    report.storeFault = storeFault(*film.pieceStore, shop.keptNot);
    return report;
}

void join(const PiecedFilm& film, const std::vector<std::filesystem::path>& files, const RenderLog& log,
    const std::stop_token& stop) {
    const FrameClock clock = FrameClock::of(film.fps);
    const ExportContainer container = film.file.finalContainer();
    const std::filesystem::path& output = film.file.output;
    const bool isWebm = container == ExportContainer::webm;
    const HiddenFile sound(
        output, ".tavix-audio-mix-" + output.filename().string() + (isWebm ? ".webm" : ".m4a"));
    FrameOutput::makeRoomFor(output);
    media::JoinSettings settings{files, std::nullopt, output, mediaContainer(container), clock.frameDuration};
    try {
        if (film.sound) {
            const double lengthSec = double(clock.timeOf(film.frameCount)) / clock.timescale;
            const CompositionAudioMuxer::Mix mix{
                film.sound->audio, film.sound->assetRoot, film.sound->totalSec};
            const bool isHeard =
                CompositionAudioMuxer::renderAudioMix(mix, lengthSec, sound.path(), log, stop, container);
            if (isHeard) settings.sound = sound.path();
            tell(log,
                isHeard ? Finding::note(RenderCode::soundAdded, "muxed music/cues under the visual track")
                        : Finding::note(RenderCode::soundAbsent, "no playable audio — output stays silent"));
        }
        media::joinPieces(settings, [&] {
            if (stop.stop_requested()) throw RenderStopped();
        });
    } catch (const media::MediaError& error) {
        throw Failure(sound.unnamed(error.what()));
    } catch (const RenderStopped&) {
        throw;
    } catch (const Failure& failure) {
        throw Failure(sound.unnamed(failure.what()));
    }
}

}   // namespace tavix::PieceRender
