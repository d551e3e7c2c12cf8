#include "TavixPlatform/Media/Remux.h"

#include "TavixPlatform/Media/MediaInput.h"
#include "TavixPlatform/Media/MovieEncoder.h"
#include "TavixPlatform/Media/OutputFile.h"

extern "C" {
#include <libavutil/mathematics.h>
}

#include <algorithm>
#include <optional>
#include <utility>

namespace tavix::media {
namespace {

constexpr int packetsBetweenCheckpoints = 256;

// One track of a file, packet by packet.
class PacketSource {
public:
    PacketSource(const std::filesystem::path& file, AVMediaType kind)
        : input_(file), packet_(libav::owned<libav::Packet>(av_packet_alloc())),
          following_(libav::owned<libav::Packet>(av_packet_alloc())) {
        const auto tracks = input_.tracks(kind);
        if (tracks.empty()) return;
        track_ = tracks.front();
        input_.select(*track_);
        isFollowed_ = input_.read(*following_);
        advance();
    }

    const AVStream* track() const { return track_; }
    AVPacket* packet() const { return isLive_ ? packet_.get() : nullptr; }   // null after the last one

    // Times are in units of the track. What begins at the end or later is left out.
    void endAt(std::int64_t time) {
        end_ = time;
        cut();
    }

    void advance() {
        isLive_ = isFollowed_;
        if (!isLive_) return;
        std::swap(packet_, following_);
        isFollowed_ = input_.read(*following_);
        if (track_->codecpar->codec_type == AVMEDIA_TYPE_VIDEO) measure();
        cut();
    }

private:
    // Of pictures that are not in order the demuxer does not tell how long they last. In our films the last
    // one lasts as long as the one before it.
    void measure() {
        if (isFollowed_) lastDuration_ = following_->dts - packet_->dts;
        packet_->duration = lastDuration_ > 0 ? lastDuration_ : track_->duration;   // of the only one
    }

    void cut() {
        if (!isLive_ || !end_ || packet_->pts == AV_NOPTS_VALUE) return;
        isLive_ = packet_->pts < *end_;
        packet_->duration = std::min(packet_->duration, *end_ - packet_->pts);
    }

    MediaInput input_;
    libav::Packet packet_, following_;
    AVStream* track_ = nullptr;
    bool isLive_ = false, isFollowed_ = false;
    std::int64_t lastDuration_ = 0;
    std::optional<std::int64_t> end_;
};

std::int64_t endOf(const AVStream& track) {
    return track.duration + (track.start_time == AV_NOPTS_VALUE ? 0 : track.start_time);
}

// Which track's packet comes next in the file.
bool isBefore(const PacketSource& a, const PacketSource& b) {
    if (!a.packet() || !b.packet()) return a.packet() != nullptr;
    return av_compare_ts(a.packet()->dts, a.track()->time_base, b.packet()->dts, b.track()->time_base) <= 0;
}

}   // namespace

std::optional<double> pictureDurationSec(const std::filesystem::path& movie) {
    const MediaInput input(movie);
    const auto tracks = input.tracks(AVMEDIA_TYPE_VIDEO);
    if (tracks.empty()) return std::nullopt;
    return double(endOf(*tracks.front())) * av_q2d(tracks.front()->time_base);
}

void remux(const RemuxSettings& settings, const std::function<void()>& checkpoint) {
    PacketSource picture(settings.picture, AVMEDIA_TYPE_VIDEO);
    if (!picture.track())
        throw MediaError("There is no video track in \"" + settings.picture.string() + "\".");
    PacketSource sound(settings.sound, AVMEDIA_TYPE_AUDIO);
    OutputFile file(settings.output, nameOf(settings.container));
    file.addTrack(*picture.track(), picture.track()->codecpar->codec_tag);
    if (sound.track()) {
        file.addTrack(*sound.track(), 0);
        sound.endAt(
            av_rescale_q(endOf(*picture.track()), picture.track()->time_base, sound.track()->time_base));
    }
    libav::Options options = movieOptions(picture.track()->time_base.den);
    file.begin(options);
    for (int count = 0; picture.packet() || sound.packet(); ++count) {
        if (checkpoint && count % packetsBetweenCheckpoints == 0) checkpoint();
        const bool isPicture = isBefore(picture, sound);
        PacketSource& source = isPicture ? picture : sound;
        file.write(*source.packet(), isPicture ? 0 : 1);
        source.advance();
    }
    file.finish();
}

}   // namespace tavix::media
