#include "TavixPlatform/Media/Remux.h"

#include "TavixPlatform/Media/MovieEncoder.h"
#include "TavixPlatform/Media/OutputFile.h"
#include "TavixPlatform/Media/PacketSource.h"

extern "C" {
#include <libavutil/mathematics.h>
}

namespace tavix::media {
namespace {

constexpr int packetsBetweenCheckpoints = 256;

std::int64_t endOf(const AVStream& track) {
    return track.duration + (track.start_time == AV_NOPTS_VALUE ? 0 : track.start_time);
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
    libav::Options options = movieOptions(settings.container, picture.track()->time_base.den);
    file.begin(options);
    for (int count = 0; picture.packet() || sound.packet(); ++count) {
        if (checkpoint && count % packetsBetweenCheckpoints == 0) checkpoint();
        const AVRational soundBase = sound.track() ? sound.track()->time_base : AVRational{1, 1};
        const bool isPicture =
            isBefore({picture.packet(), picture.track()->time_base}, {sound.packet(), soundBase});
        PacketSource& source = isPicture ? picture : sound;
        file.write(*source.packet(), isPicture ? 0 : 1);
        source.advance();
    }
    file.finish();
}

}   // namespace tavix::media
