// Reads the sound of a file as float samples on the file's own clock: frame 0 is what is heard at second 0,
// without the samples that a coder puts before and after what was recorded. Gaps are silence, and every
// sample is a finite number.
//
// Decoding runs while it is read, so memory does not depend on the length.
#pragma once

#include "TavixPlatform/Media/AudioFormat.h"
#include "TavixPlatform/Media/MediaError.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>

namespace tavix::media {

struct AudioInfo {
    double durationSec = 0;   // until the last sample
    int sampleRate = 0, channels = 0;
};

// What is known of the first track of sound without decoding it; nothing when the file has none. Throws
// MediaError when it cannot be read.
std::optional<AudioInfo> probeAudio(const std::filesystem::path& path);

// Used by one thread at a time.
class AudioReader {
public:
    // Opens the first track of sound. Throws MediaError when there is none, or none that can be decoded.
    AudioReader(const std::filesystem::path& path, const AudioFormat& format);
    ~AudioReader();
    AudioReader(AudioReader&&) noexcept;
    AudioReader& operator=(AudioReader&&) noexcept;

    // Fills whole frames and returns how many; fewer than there is room for only at the end. What is damaged
    // is silent, and where nothing can be read any more is the end. Throws MediaError where the sound changes
    // into one that cannot be converted.
    std::size_t read(std::span<float> interleaved);
    // The frame that is read next. Going back or far ahead decodes from the beginning where the container's
    // index is not exact to the sample.
    void seek(std::int64_t frame);
    std::int64_t position() const;
    bool isDamaged() const;   // whether something that was read could not be decoded

private:
    class Session;
    std::unique_ptr<Session> session_;
};

}   // namespace tavix::media
