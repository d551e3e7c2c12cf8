// The first track of sound in a file, decoded: pieces of sound and where on the file's clock they lie. Only
// sources of this folder include it.
#pragma once

#include "TavixPlatform/Media/MediaInput.h"

#include <filesystem>
#include <memory>
#include <optional>

namespace tavix::media {

// Samples of a decoded frame: `count` of them from `first` on.
struct AudioPiece {
    const AVFrame* frame = nullptr;
    int first = 0, count = 0;
    std::int64_t at = 0;   // of its first sample, in samples from the file's second 0
};

class AudioTrackInput {
public:
    // Null when the file has no sound. Throws MediaError when it or its sound cannot be read.
    static std::unique_ptr<AudioTrackInput> open(const std::filesystem::path& path);

    // The next piece, later than all before it; false at the end. The frame is valid until the next call.
    bool next(AudioPiece& piece);
    // Whether times after a seek are exact to the sample.
    bool isExactlySeekable() const;
    // Goes on with a piece at or before a time. Only where it is exact.
    void seek(double sec);
    // Where the last sample ends, told without decoding. Reads packets: nothing can be decoded afterwards.
    double durationSec();
    bool isDamaged() const { return decoder_.isDamaged(); }
    const AVCodecParameters& parameters() const { return *track_.codecpar; }

private:
    AudioTrackInput(std::unique_ptr<MediaInput> input, AVStream& track);
    std::optional<std::int64_t> sampleOf(const AVFrame& frame) const;
    bool place(const AVFrame& frame, AudioPiece& piece);
    double packetsEndSec();

    std::unique_ptr<MediaInput> input_;
    AVStream& track_;
    TrackDecoder decoder_;
    libav::Frame frame_;
    double originSec_;
    std::optional<double> endSec_;           // where the container says that the track ends
    std::optional<std::int64_t> expected_;   // where the next piece lies if nothing is missing
    bool hasBegun_ = false;
    int rate_ = 0;             // in which `expected_` counts
    std::int64_t shift_ = 0;   // of a clock that jumped
};

}   // namespace tavix::media
