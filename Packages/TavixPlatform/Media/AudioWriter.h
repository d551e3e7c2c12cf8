// Writes sound as AAC in an MPEG-4 file (.m4a), or as Opus in WebM. The file says which samples the coder
// added before and after, so that what is read back begins with the first sample and has as many as were
// written.
#pragma once

#include "TavixPlatform/Media/AudioFormat.h"
#include "TavixPlatform/Media/MediaError.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>

namespace tavix::media {

enum class AudioCodec { aac, opus };

struct AudioSettings {
    std::filesystem::path path;   // replaced when it exists; its folder must exist
    AudioFormat format;
    std::int64_t bitsPerSec = 256'000;
    AudioCodec codec = AudioCodec::aac;   // Opus takes 48,000 samples a second
};

// Used by one thread at a time. Every member may throw MediaError. The same samples give the same bytes.
class AudioWriter {
public:
    explicit AudioWriter(const AudioSettings& settings);   // creates the file
    ~AudioWriter();                                        // without `finish` the file is removed
    AudioWriter(const AudioWriter&) = delete;
    AudioWriter& operator=(const AudioWriter&) = delete;

    // Whole frames of finite samples; what passes full scale may be cut.
    void append(std::span<const float> interleaved);
    // Encodes what is left, completes the file and closes it.
    void finish();

private:
    class Session;
    std::unique_ptr<Session> session_;
};

}   // namespace tavix::media
