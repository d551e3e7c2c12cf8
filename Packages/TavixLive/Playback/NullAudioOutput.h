// Plays to nobody, in time: for tests, and for machines without a device.
#pragma once

#include "TavixPlatform/Media/AudioOutput.h"
#include "TavixPlatform/System/Executor.h"

#include <memory>

namespace tavix {

// The executor, on which sound is asked for, outlives it.
class NullAudioOutput final : public media::AudioOutput {
public:
    explicit NullAudioOutput(system::SerialExecutor& sound) : sound_(sound) {}
    ~NullAudioOutput() override { stop(); }

    void start(const media::AudioFormat& format, Fill fill) override;
    void stop() override;
    double heardFrames() const override;

    // How often nothing was there to be heard, before the end.
    int underrunCount() const;

private:
    struct Run;
    system::SerialExecutor& sound_;
    std::shared_ptr<Run> run_;
};

}   // namespace tavix
