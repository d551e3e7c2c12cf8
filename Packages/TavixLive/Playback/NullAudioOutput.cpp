#include "TavixLive/Playback/NullAudioOutput.h"

#include <algorithm>
#include <mutex>
#include <utility>
#include <vector>

namespace tavix {

namespace {

constexpr double stepSec = 0.01;    // how often it asks
constexpr double aheadSec = 0.05;   // how much waits to be heard

}   // namespace

struct NullAudioOutput::Run : std::enable_shared_from_this<Run> {
    Run(system::SerialExecutor& executor, const media::AudioFormat& wanted, Fill source)
        : sound(executor), format(wanted), fill(std::move(source)), startSec(executor.nowSec()) {}

    void step();
    double heard() const;   // under the lock

    system::SerialExecutor& sound;
    const media::AudioFormat format;
    const Fill fill;
    std::vector<float> block;

    mutable std::mutex mutex;
    double startSec;   // moves on where nothing was there to be heard
    double filledFrames = 0;
    bool isStopped = false, hasEnded = false;
    int underruns = 0;
    system::Timer next;
};

double NullAudioOutput::Run::heard() const {
    return std::clamp((sound.nowSec() - startSec) * format.sampleRate, 0.0, filledFrames);
}

void NullAudioOutput::Run::step() {
    std::size_t room = 0;
    {
        const std::lock_guard lock(mutex);
        if (isStopped || hasEnded) return;
        const double late = sound.nowSec() - startSec - filledFrames / format.sampleRate;
        if (late > 0) {
            startSec += late;
            underruns += filledFrames > 0;
        }
        room = std::size_t(std::max(heard() + aheadSec * format.sampleRate - filledFrames, 0.0));
    }
    block.resize(room * std::size_t(format.channels));
    const std::size_t filled = room > 0 ? fill(block) : 0;
    const std::lock_guard lock(mutex);
    if (filledFrames == 0) startSec = sound.nowSec();
    filledFrames += double(filled);
    hasEnded = filled < room;
    if (!isStopped && !hasEnded)
        next = sound.after(stepSec, [run = weak_from_this()] {
            if (const auto alive = run.lock()) alive->step();
        });
}

void NullAudioOutput::start(const media::AudioFormat& format, Fill fill) {
    stop();
    run_ = std::make_shared<Run>(sound_, format, std::move(fill));
    sound_.post([run = run_] { run->step(); });
}

void NullAudioOutput::stop() {
    if (!run_) return;
    {
        const std::lock_guard lock(run_->mutex);
        run_->isStopped = true;
    }
    // Its timer and its files are let go on the executor that uses them.
    sound_.post([run = std::exchange(run_, nullptr)] {
        const std::lock_guard lock(run->mutex);
        run->next.cancel();
    });
}

double NullAudioOutput::heardFrames() const {
    if (!run_) return 0;
    const std::lock_guard lock(run_->mutex);
    return run_->heard();
}

int NullAudioOutput::underrunCount() const {
    if (!run_) return 0;
    const std::lock_guard lock(run_->mutex);
    return run_->underruns;
}

}   // namespace tavix
