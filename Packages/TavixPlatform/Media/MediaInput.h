// A media file opened for reading: its tracks and their packets. Only sources of this folder include it.
//
// Only plain local files are opened, and nothing that such a file names: no address, no playlist, no second
// file. Used by one thread at a time.
#pragma once

#include "TavixPlatform/Media/Libav.h"

#include <atomic>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace tavix::media {

class MediaInput {
public:
    // Reads what the file tells of its tracks. Throws MediaError when it is no media file that can be read,
    // and MediaFault when the machine cannot read it now.
    explicit MediaInput(const std::filesystem::path& path);
    ~MediaInput();
    MediaInput(const MediaInput&) = delete;
    MediaInput& operator=(const MediaInput&) = delete;

    AVFormatContext& format() const { return *format_; }
    const std::string& name() const { return name_; }   // of the file, for sentences

    // In the order of the file. A picture that is attached to a sound file is no video track.
    std::vector<AVStream*> tracks(AVMediaType kind) const;

    // Where second 0 lies on the clock of the file's timestamps. Broadcast streams count from anywhere and
    // start at their first sample; other containers have a zero of their own, which may lie before the first
    // sample, but never after the first picture.
    double originSec() const { return originSec_; }
    // Of a timestamp of a track; the file's own second 0 is the origin. `unknown` stays what it is.
    double secondsOf(const AVStream& track, std::int64_t timestamp) const;
    std::int64_t timestampOf(const AVStream& track, double sec) const;

    // From here on only packets of this track are read.
    void select(const AVStream& track);
    // The next packet, in the order of the file; false at its end, or where it is too damaged to go on.
    // Throws MediaFault where the machine is to blame, as does `seek`.
    bool read(AVPacket& packet);
    bool isBroken() const { return isBroken_; }   // the file ended in the midst of what it tells of
    // Throws MediaFault when reading has failed, or when the code of a library says that memory has.
    void requireRead(int code) const;
    // Goes to the last packet from which decoding can start at or before a time, or to the first one. The
    // container's index may be wrong: look at the time of what is decoded then.
    void seek(const AVStream& track, double sec);

private:
    class File;
    struct Closer {
        void operator()(AVFormatContext* p) const { avformat_close_input(&p); }
    };

    double originOfTracks() const;

    std::string name_;
    std::unique_ptr<File> file_;   // outlives the format, which reads through it
    std::unique_ptr<AVFormatContext, Closer> format_;
    double originSec_ = 0;
    bool isBroken_ = false;
};

// Decodes one track from where its input stands.
class TrackDecoder {
public:
    // Selects the track. `threads` beyond one decode several pictures at a time; what comes out is the same,
    // unless the track is damaged. Throws MediaError when there is no decoder for it.
    TrackDecoder(MediaInput& input, AVStream& track, int threads);

    AVStream& track() const { return track_; }
    // The next frame in the order of presentation; false at the end.
    bool next(AVFrame& frame);
    // Decodes on from the packet where `MediaInput::seek` of this time goes to.
    void seek(double sec);
    // The frame of the next packet, decoded without waiting for packets after it. A `seek` must follow.
    bool nextAlone(AVFrame& frame);
    // Whether something could not be decoded, or only in part.
    bool isDamaged() const { return isDamaged_ || hasReported_; }

private:
    void feed();

    MediaInput& input_;
    AVStream& track_;
    std::atomic<bool> hasReported_ = false;   // set by the decoder's threads, so it outlives them
    libav::CodecContext decoder_;
    libav::Packet packet_;
    bool isDraining_ = false, isDamaged_ = false;
};

}   // namespace tavix::media
