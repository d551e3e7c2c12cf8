#include "TavixPlatform/Sound/PulseAudioOutput.h"

#include <pulse/pulseaudio.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <utility>
#include <vector>

namespace tavix::media {

// The connection and the library's own thread. What the library calls back runs on that thread, under its
// lock, and is short: sound is mixed elsewhere.
struct PulseAudioOutput::Server {
    explicit Server(const std::string& name) : loop(pa_threaded_mainloop_new()) {
        if (!loop) return;
        context = pa_context_new(pa_threaded_mainloop_get_api(loop), name.c_str());
        if (!context || pa_context_connect(context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0) return;
        pa_threaded_mainloop_start(loop);
    }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;
    ~Server() {
        if (!loop) return;
        pa_threaded_mainloop_stop(loop);
        if (context) {
            pa_context_disconnect(context);
            pa_context_unref(context);
        }
        pa_threaded_mainloop_free(loop);
    }

    pa_threaded_mainloop* loop;
    pa_context* context = nullptr;
};

namespace {

class Lock {
public:
    explicit Lock(pa_threaded_mainloop* loop) : loop_(loop) { pa_threaded_mainloop_lock(loop_); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    ~Lock() { pa_threaded_mainloop_unlock(loop_); }

private:
    pa_threaded_mainloop* loop_;
};

}   // namespace

// One start. The stream is touched under the server's lock alone.
struct PulseAudioOutput::Run : std::enable_shared_from_this<Run> {
    Run(std::shared_ptr<Server> at, system::Executor& executor, const AudioFormat& wanted, Fill source)
        : server(std::move(at)), sound(executor), format(wanted), fill(std::move(source)) {}

    void connect();      // under the lock
    void disconnect();   // under the lock
    void refill();       // on the sound executor
    static void wanted(pa_stream*, std::size_t, void* run) { static_cast<Run*>(run)->askForMore(); }
    void askForMore();

    const std::shared_ptr<Server> server;
    system::Executor& sound;
    const AudioFormat format;
    const Fill fill;
    pa_stream* stream = nullptr;
    std::vector<float> block;
    double filledFrames = 0;   // under the lock
    bool hasEnded = false;
    std::atomic<bool> isAsked = false;
};

void PulseAudioOutput::Run::connect() {
    const pa_sample_spec spec{
        PA_SAMPLE_FLOAT32NE, std::uint32_t(format.sampleRate), std::uint8_t(format.channels)};
    stream = pa_stream_new(server->context, "Preview", &spec, nullptr);
    if (!stream) return;
    pa_stream_set_write_callback(stream, &Run::wanted, this);
    const pa_buffer_attr buffer{.maxlength = std::uint32_t(-1),
        .tlength = std::uint32_t(pa_usec_to_bytes(pa_usec_t(bufferSec * 1e6), &spec)),
        .prebuf = std::uint32_t(-1),
        .minreq = std::uint32_t(-1),
        .fragsize = std::uint32_t(-1)};
    const auto flags = pa_stream_flags_t(
        PA_STREAM_INTERPOLATE_TIMING | PA_STREAM_AUTO_TIMING_UPDATE | PA_STREAM_ADJUST_LATENCY);
    pa_stream_connect_playback(stream, nullptr, &buffer, flags, nullptr, nullptr);
}

void PulseAudioOutput::Run::disconnect() {
    if (!stream) return;
    pa_stream_set_write_callback(stream, nullptr, nullptr);
    pa_stream_disconnect(stream);
    pa_stream_unref(std::exchange(stream, nullptr));
}

void PulseAudioOutput::Run::askForMore() {
    if (!isAsked.exchange(true)) sound.post([run = shared_from_this()] { run->refill(); });
}

void PulseAudioOutput::Run::refill() {
    isAsked = false;
    const std::size_t frameBytes = sizeof(float) * std::size_t(format.channels);
    std::size_t room = 0;
    {
        const Lock lock(server->loop);
        if (!stream || hasEnded) return;
        room = pa_stream_writable_size(stream);
        if (room == std::size_t(-1)) return;
    }
    room /= frameBytes;
    if (room == 0) return;
    block.resize(room * std::size_t(format.channels));
    const std::size_t filled = fill(block);
    const Lock lock(server->loop);
    if (!stream) return;   // stopped meanwhile: thrown away
    if (filled > 0) pa_stream_write(stream, block.data(), filled * frameBytes, nullptr, 0, PA_SEEK_RELATIVE);
    filledFrames += double(filled);
    hasEnded = filled < room;
    // The server waits for a full buffer before it plays, which an end would never give it.
    if (hasEnded)
        if (pa_operation* started = pa_stream_trigger(stream, nullptr, nullptr)) pa_operation_unref(started);
}

PulseAudioOutput::PulseAudioOutput(system::Executor& sound, const std::string& applicationName)
    : sound_(sound), server_(std::make_shared<Server>(applicationName)) {}

PulseAudioOutput::~PulseAudioOutput() { stop(); }

bool PulseAudioOutput::isReady() const {
    if (!server_->context) return false;
    const Lock lock(server_->loop);
    return pa_context_get_state(server_->context) == PA_CONTEXT_READY;
}

void PulseAudioOutput::start(const AudioFormat& format, Fill fill) {
    stop();
    if (!isReady()) return;
    run_ = std::make_shared<Run>(server_, sound_, format, std::move(fill));
    const Lock lock(server_->loop);
    run_->connect();
}

void PulseAudioOutput::stop() {
    if (!run_) return;
    {
        const Lock lock(server_->loop);
        run_->disconnect();
    }
    // Its files are let go on the executor that reads them.
    sound_.post([run = std::exchange(run_, nullptr)] {});
}

double PulseAudioOutput::heardFrames() const {
    if (!run_) return 0;
    const Lock lock(server_->loop);
    pa_usec_t heard = 0;
    if (!run_->stream || pa_stream_get_time(run_->stream, &heard) < 0) return 0;   // no timing yet
    return std::clamp(double(heard) * 1e-6 * run_->format.sampleRate, 0.0, run_->filledFrames);
}

}   // namespace tavix::media
