// One track of a media file, packet by packet. Inside the library only.
#pragma once

#include "TavixPlatform/Media/MediaInput.h"

#include <cstdint>
#include <filesystem>
#include <optional>

namespace tavix::media {

class PacketSource {
public:
    // Of the first track of that kind.
    PacketSource(const std::filesystem::path& file, AVMediaType kind);

    const AVStream* track() const { return track_; }                         // null when the file has none
    AVPacket* packet() const { return isLive_ ? packet_.get() : nullptr; }   // null after the last one
    void advance();
    // Times are in units of the track. What begins at the end or later is left out.
    void endAt(std::int64_t time);

private:
    void measure();
    void cut();

    MediaInput input_;
    libav::Packet packet_, following_;
    AVStream* track_ = nullptr;
    bool isLive_ = false, isFollowed_ = false;
    std::int64_t lastDuration_ = 0;
    std::optional<std::int64_t> end_;
};

// A packet that stands next in its track, and what its times count; without one the track has ended.
struct NextPacket {
    const AVPacket* packet;
    AVRational timeBase;
};
// Whether the one comes before the other in a file that holds both.
bool isBefore(const NextPacket& a, const NextPacket& b);

}   // namespace tavix::media
