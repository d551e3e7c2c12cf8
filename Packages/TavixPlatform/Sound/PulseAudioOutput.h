// Plays through the sound server of the desktop.
#pragma once

#include "TavixPlatform/Media/AudioOutput.h"
#include "TavixPlatform/System/Executor.h"

#include <memory>
#include <string>

namespace tavix::media {

// The executor, on which sound is asked for, outlives it. Nothing here waits for the server.
class PulseAudioOutput final : public AudioOutput {
public:
    // Begins to look for the server; the name is what mixers of the desktop show.
    PulseAudioOutput(system::Executor& sound, const std::string& applicationName);
    ~PulseAudioOutput() override;

    // Whether a server answers. Without one, `start` plays nothing and no time passes.
    bool isReady() const;

    void start(const AudioFormat& format, Fill fill) override;
    void stop() override;
    double heardFrames() const override;

    static constexpr double bufferSec = 0.06;   // short enough that a pause is heard at once

private:
    struct Server;
    struct Run;
    system::Executor& sound_;
    std::shared_ptr<Server> server_;
    std::shared_ptr<Run> run_;
};

}   // namespace tavix::media
