#include "TavixPlatform/Media/PacketSource.h"

extern "C" {
#include <libavutil/mathematics.h>
}

#include <algorithm>
#include <utility>

namespace tavix::media {

PacketSource::PacketSource(const std::filesystem::path& file, AVMediaType kind)
    : input_(file), packet_(libav::owned<libav::Packet>(av_packet_alloc())),
      following_(libav::owned<libav::Packet>(av_packet_alloc())) {
    const auto tracks = input_.tracks(kind);
    if (tracks.empty()) return;
    track_ = tracks.front();
    input_.select(*track_);
    isFollowed_ = input_.read(*following_);
    advance();
}

void PacketSource::endAt(std::int64_t time) {
    end_ = time;
    cut();
}

void PacketSource::advance() {
    isLive_ = isFollowed_;
    if (!isLive_) return;
    std::swap(packet_, following_);
    isFollowed_ = input_.read(*following_);
    if (track_->codecpar->codec_type == AVMEDIA_TYPE_VIDEO) measure();
    cut();
}

// Of pictures that are not in order the demuxer does not tell how long they last. In our films the last one
// lasts as long as the one before it.
void PacketSource::measure() {
    if (isFollowed_) lastDuration_ = following_->dts - packet_->dts;
    packet_->duration = lastDuration_ > 0 ? lastDuration_ : track_->duration;   // of the only one
}

void PacketSource::cut() {
    if (!isLive_ || !end_ || packet_->pts == AV_NOPTS_VALUE) return;
    isLive_ = packet_->pts < *end_;
    packet_->duration = std::min(packet_->duration, *end_ - packet_->pts);
}

bool isBefore(const NextPacket& a, const NextPacket& b) {
    if (!a.packet || !b.packet) return a.packet != nullptr;
    return av_compare_ts(a.packet->dts, a.timeBase, b.packet->dts, b.timeBase) <= 0;
}

}   // namespace tavix::media
