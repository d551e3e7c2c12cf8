#include "TavixRender/Export/PieceRender.h"

#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixPlatform/Imaging/StopScope.h"
#include "TavixPlatform/Media/MovieJoin.h"
#include "TavixRender/Audio/CompositionAudioMuxer.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TavixRender/Encoding/FrameClock.h"
#include "TavixRender/Encoding/FrameOutput.h"
#include "TavixRender/Encoding/FrameSequenceEncoder.h"
#include "TavixRender/Encoding/HiddenFile.h"
#include "TavixRender/Export/MachineShare.h"
#include "TavixRender/Export/PieceKeys.h"
#include "TavixRender/Export/PieceStore.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <thread>

namespace tavix::PieceRender {

namespace {

using CompositionRenderer::Config;

// Draws pieces of one film, one after another. Remembers of which scenes something was told: a piece that is
// found again says nothing, so those are not kept.
class Worker {
public:
    Worker(const Config& config, const imaging::EvaluatorOptions& evaluation, const RenderLog& log)
        : config_(config), evaluator_(evaluation),
          resolved_(config.spec, config.assetRoot, evaluator_, watched(log)) {}

    void write(const FilmPiece& piece, const std::filesystem::path& file,
        const std::function<void()>& onFrame, const std::stop_token& stop) {
        const FrameRate& fps = config_.spec.output.fps;
        FrameSequenceEncoder encoder({file, canvasSize(config_.spec), fps, config_.videoCodec,
                                         config_.container, config_.effort, config_.rate, true},
            evaluator_);
        for (std::int64_t i = 0; i < piece.frameCount; ++i) {
            if (stop.stop_requested()) throw RenderStopped();
            const double atSec = fps.secAt(piece.firstFrame + i);
            note(atSec);
            encoder.append(resolved_.frame(atSec), i);
            onFrame();
        }
        encoder.finish();
    }

    bool isSilent(const FilmPiece& piece) const {
        const FrameRate& fps = config_.spec.output.fps;
        for (std::int64_t i = 0; i < piece.frameCount; ++i) {
            const auto sample = resolved_.timeline().sample(fps.secAt(piece.firstFrame + i));
            if (!sample) continue;
            if (loudScenes_.contains(sample->outgoing.index)) return false;
            if (sample->incoming && loudScenes_.contains(sample->incoming->index)) return false;
        }
        return true;
    }

private:
    RenderLog watched(const RenderLog& log) {
        return [this, log](const Finding& finding) {
            const bool isSaid =
                finding.level == Finding::Level::warning || finding.level == Finding::Level::error;
            if (isSaid) loudScenes_.insert(shown_.begin(), shown_.end());
            tell(log, finding);
        };
    }
    void note(double atSec) {
        shown_.clear();
        const auto sample = resolved_.timeline().sample(atSec);
        if (!sample) return;
        shown_.insert(sample->outgoing.index);
        if (sample->incoming) shown_.insert(sample->incoming->index);
    }

    const Config& config_;
    imaging::Evaluator evaluator_;
    std::set<std::size_t> shown_, loudScenes_;
    ResolvedComposition resolved_;
};

// Counts frames of pieces that are made side by side, and says how far the film is.
class Counter {
public:
    Counter(const Config& config, const RenderLog& log, const CompositionRenderer::Progress& onProgress)
        : log_(log), onProgress_(onProgress), count_(CompositionRenderer::frameCount(config.spec)),
          perReport_(std::max<std::int64_t>(config.spec.output.fps.frameNearest(1), 1)) {}

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
    const CompositionRenderer::Progress& onProgress_;
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
    const Config& config;
    const std::vector<Job>& jobs;
    const std::optional<PieceStore>& store;
    const std::optional<PieceKeys>& keys;
    RenderLog log;
    Counter& counter;
    imaging::EvaluatorOptions evaluation;
    std::stop_token stop;
    std::atomic<std::size_t> next = 0;
    std::mutex keeping = {};   // keys and the first failure
    std::exception_ptr failure = {};

    void work() {
        std::optional<Worker> worker;
        for (std::size_t i = next++; i < jobs.size(); i = next++) {
            const Job& job = jobs[i];
            if (!worker) worker.emplace(config, evaluation, log);
            worker->write(
                job.piece, job.file, [this] { counter.add(1); }, stop);
            const std::lock_guard lock(keeping);
            if (store && job.key && worker->isSilent(job.piece) && keys->holds(job.piece))
                store->keep(*job.key, job.file);
        }
    }
};

void runSideBySide(Shop& shop, int workers, const std::stop_token& outer) {
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
    for (int i = 0; i < workers; ++i) threads.emplace_back(run);
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

}   // namespace

int workerCount(const Config& config, std::size_t pieces) {
    const imaging::Size size = canvasSize(config.spec);
    // Encoder, frame and what it is made of, as measured for films with devices in space.
    constexpr double fixedBytes = 120e6, bytesPerPixel = 160;
    const double bytesEach = fixedBytes + bytesPerPixel * size.width * size.height;
    const double budget = double(MachineShare::memoryBytes(config.memoryBytes));
    // An encoder has two threads, and one draws.
    const int byCores =
        std::max(
            config.evaluation.threadCount > 0 ? config.evaluation.threadCount : MachineShare::cores(), 2) /
        2;
    const int most = std::min(byCores, int(std::min(double(byCores), budget / bytesEach)));
    return std::clamp(most, 1, int(std::max<std::size_t>(pieces, 1)));
}

void write(const Config& config, const FilmPiece& piece, const std::filesystem::path& file,
    const RenderLog& log, const CompositionRenderer::Progress& onProgress, const std::stop_token& stop) {
    std::int64_t done = 0;
    Worker(config, config.evaluation, log)
        .write(
            piece, file,
            [&] {
                if (onProgress) onProgress(double(++done) / double(piece.frameCount));
            },
            stop);
}

Report writeAll(const Config& config, const std::vector<FilmPiece>& pieces,
    const std::vector<std::filesystem::path>& files, const RenderLog& log,
    const CompositionRenderer::Progress& onProgress, const std::stop_token& stop) {
    Report report{pieces.size(), 0};
    std::optional<PieceStore> store;
    std::optional<PieceKeys> keys;
    if (config.pieceStore) {
        store.emplace(*config.pieceStore);
        keys.emplace(config);
    }
    Counter counter(config, log, onProgress);
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
    const int workers = workerCount(config, jobs.size());
    std::mutex telling;
    const RenderLog shared = workers > 1 ? oneAtATime(onceEach(log), telling) : log;
    imaging::EvaluatorOptions evaluation = config.evaluation;
    if (workers > 1) evaluation.threadCount = 2;
    Shop shop{config, jobs, store, keys, shared, counter, evaluation, stop};
    if (workers > 1)
        runSideBySide(shop, workers, stop);
    else
        shop.work();
    if (store) store->trim();
    return report;
}

void join(const Config& config, const std::vector<std::filesystem::path>& files, const RenderLog& log,
    const std::stop_token& stop) {
    const FrameClock clock = FrameClock::of(config.spec.output.fps);
    const ExportContainer container = CompositionRenderer::fileOf(config).finalContainer();
    const bool isWebm = container == ExportContainer::webm;
    const HiddenFile sound(
        config.output, ".tavix-audio-mix-" + config.output.filename().string() + (isWebm ? ".webm" : ".m4a"));
    FrameOutput::makeRoomFor(config.output);
    media::JoinSettings settings{
        files, std::nullopt, config.output, mediaContainer(container), clock.frameDuration};
    try {
        if (config.spec.audio) {
            auto root = config.assetRoot;
            if (!root && config.spec.assetRoot) root = *config.spec.assetRoot;
            const double totalSec = CompositionTimeline(config.spec).totalSec;
            const double lengthSec =
                double(clock.timeOf(CompositionRenderer::frameCount(config.spec))) / clock.timescale;
            const CompositionAudioMuxer::Mix mix{*config.spec.audio, root, totalSec};
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
