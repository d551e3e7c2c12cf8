// Brings decoded samples to float at another rate and layout. Only sources of this folder include it.
#pragma once

#include "TavixPlatform/Media/AudioFormat.h"
#include "TavixPlatform/Media/Libav.h"

#include <cstdint>
#include <vector>

struct SwrContext;

namespace tavix::media {

// One unbroken run of sound. Output frame 0 is input frame 0, whatever the rates; what lies before it and
// after the last one counts as silence. One channel becomes the same in each; several are mixed down so that
// none can pass full scale when none did before.
class AudioConverter {
public:
    // For frames like this one. Throws MediaError when they cannot be converted.
    AudioConverter(const AVFrame& like, const AudioFormat& to);
    ~AudioConverter();
    AudioConverter(const AudioConverter&) = delete;
    AudioConverter& operator=(const AudioConverter&) = delete;

    bool takes(const AVFrame& frame) const;   // whether it is like the one it was made for
    int inputRate() const { return inputRate_; }

    // As many samples of silence come first. Before anything else.
    void beginWithSilence(int count);
    // Converts samples of a frame; output is appended to `to`.
    void convert(const AVFrame& frame, int first, int count, std::vector<float>& to);
    // Gives what is still inside. Nothing may be converted afterwards.
    void finish(std::vector<float>& to);

private:
    struct Deleter {
        void operator()(SwrContext* p) const;
    };
    void setLayouts(const AVFrame& like);
    void setMatrix();
    void convert(const std::uint8_t** planes, int count, std::vector<float>& to);

    AudioFormat to_;
    int inputRate_, inputFormat_;
    AVChannelLayout inputLayout_{}, outputLayout_{};
    std::unique_ptr<SwrContext, Deleter> machine_;
    std::vector<const std::uint8_t*> planes_;
};

}   // namespace tavix::media
