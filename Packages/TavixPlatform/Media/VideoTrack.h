// The film of a file, opened and decoded in order. Inside the library only.
#pragma once

#include "TavixPlatform/Media/FrameConversion.h"
#include "TavixPlatform/Media/MediaInput.h"
#include "TavixPlatform/Media/VideoSource.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>

namespace tavix::media {

// The first video track of an opened file. Throws MediaError when it has none.
AVStream& firstVideoTrack(const MediaInput& input);

// Frames in rising order of time, from wherever it was sent to. Used by one thread at a time.
class VideoTrack {
public:
    // `shown` as in VideoManner.
    VideoTrack(const std::filesystem::path& path, int threads, const std::optional<ShownBox>& shown = {});

    struct Decoded {
        std::shared_ptr<AVFrame> frame;
        double ptsSec;
    };
    std::optional<Decoded> next();   // nothing at the end, or where frames can no longer be shown
    void seek(double sec);
    // The frame that the next packet alone gives, without waiting for others as `next` does. A `seek` must
    // follow.
    std::optional<Decoded> nextAlone();
    // Whether the pictures ended well before their container says that they do, in kinds of films that do not
    // tell so themselves.
    bool hasEndedEarly() const;
    // Something was damaged; with several threads, what became of it may differ from run to run.
    bool isDamaged() const { return decoder_.isDamaged(); }

    // What the decoder takes with its frames and with what is made of two of them, roughly; and one picture.
    std::size_t decoderBytes() const;
    std::size_t frameBytes() const;

    VideoFrame shown(const Decoded& decoded, const std::shared_ptr<imaging::BytePool>& pool) const;

private:
    std::optional<Decoded> decodedNext(bool (TrackDecoder::*step)(AVFrame&));
    double timeOf(const AVFrame& frame) const;

    MediaInput input_;
    AVStream& track_;
    FrameSetting setting_;
    int threads_;
    TrackDecoder decoder_;
    std::optional<double> lastSec_;
    double lastEndSec_ = 0;
};

}   // namespace tavix::media
