#include "TavixPlatform/Media/AudioTrackInput.h"

extern "C" {
#include <libavutil/intreadwrite.h>
#include <libavutil/mathematics.h>
}

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

namespace tavix::media {
namespace {

// Rates that a sound can have; others come from damaged files.
constexpr int lowestRate = 1000, highestRate = 768'000;
// Times may be off by this much from counting samples, for they are rounded or jitter; more is a gap.
constexpr double toleranceSec = 0.01;
// A clock that goes back or leaps further was set anew: what comes then follows what came before.
constexpr double longestOverlapSec = 1, longestGapSec = 600;
// No file is this long; a time past it is damaged.
constexpr double longestSec = 1e6;

bool isOneOf(std::string_view name, std::initializer_list<std::string_view> names) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

std::string_view containerOf(const MediaInput& input) { return input.format().iformat->name; }

bool hasEditLists(const MediaInput& input) { return containerOf(input).starts_with("mov,"); }

// Whether the track's length tells to the sample where its sound ends.
bool knowsItsEnd(const MediaInput& input, const AVStream& track) {
    if (track.duration <= 0) return false;
    return hasEditLists(input) ||
           (containerOf(input) == "ogg" && track.codecpar->codec_id != AV_CODEC_ID_OPUS);
}

// Their clock is the demuxer's own count of samples, so it begins with the first that is heard.
bool countsFromItsHead(const MediaInput& input) { return containerOf(input) == "mp3"; }

double startOf(const AVStream& track) {
    return track.start_time == AV_NOPTS_VALUE ? 0 : double(track.start_time) * av_q2d(track.time_base);
}

// Vorbis gives nothing for its first packet. Where all of a file is in one page, the demuxer counts it as
// heard.
constexpr int longestVorbisBlock = 8192;

// How many samples at the packet's end are not to be heard.
std::uint32_t paddingOf(const AVPacket& packet) {
    std::size_t size = 0;
    const std::uint8_t* data = av_packet_get_side_data(&packet, AV_PKT_DATA_SKIP_SAMPLES, &size);
    return data && size >= 8 ? AV_RL32(data + 4) : 0;
}

}   // namespace

std::unique_ptr<AudioTrackInput> AudioTrackInput::open(const std::filesystem::path& path) {
    auto input = std::make_unique<MediaInput>(path);
    const auto tracks = input->tracks(AVMEDIA_TYPE_AUDIO);
    if (tracks.empty()) return nullptr;
    return std::unique_ptr<AudioTrackInput>(new AudioTrackInput(std::move(input), *tracks.front()));
}

AudioTrackInput::AudioTrackInput(std::unique_ptr<MediaInput> input, AVStream& track)
    : input_(std::move(input)), track_(track), decoder_(*input_, track_, 1),
      frame_(libav::owned<libav::Frame>(av_frame_alloc())),
      originSec_(countsFromItsHead(*input_) ? startOf(track_) : input_->originSec()) {
    if (knowsItsEnd(*input_, track_))
        endSec_ = startOf(track_) + double(track_.duration) * av_q2d(track_.time_base);
}

bool AudioTrackInput::isExactlySeekable() const {
    return hasEditLists(*input_) || isOneOf(containerOf(*input_), {"wav", "w64", "aiff", "caf", "flac"});
}

void AudioTrackInput::seek(double sec) {
    decoder_.seek(sec);
    expected_.reset();
}

bool AudioTrackInput::next(AudioPiece& piece) {
    while (decoder_.next(*frame_))
        if (place(*frame_, piece)) return true;
    return false;
}

std::optional<std::int64_t> AudioTrackInput::sampleOf(const AVFrame& frame) const {
    const std::int64_t timestamp = frame.pts != AV_NOPTS_VALUE ? frame.pts : frame.best_effort_timestamp;
    if (timestamp == AV_NOPTS_VALUE) return std::nullopt;
    const double sec = double(timestamp) * track_.time_base.num / track_.time_base.den - originSec_;
    if (!(std::abs(sec) < longestSec)) return std::nullopt;
    return std::llround(sec * frame.sample_rate);
}

// False when nothing of the frame is to be heard.
bool AudioTrackInput::place(const AVFrame& frame, AudioPiece& piece) {
    if (frame.sample_rate < lowestRate || frame.sample_rate > highestRate) return false;
    if (expected_ && rate_ != frame.sample_rate) {
        expected_ = av_rescale(*expected_, frame.sample_rate, rate_);
        shift_ = av_rescale(shift_, frame.sample_rate, rate_);
    }
    rate_ = frame.sample_rate;
    std::int64_t at = sampleOf(frame).value_or(expected_.value_or(0) - shift_) + shift_;
    if (!hasBegun_ && track_.codecpar->codec_id == AV_CODEC_ID_VORBIS && containerOf(*input_) == "ogg" &&
        at > 0 && at <= longestVorbisBlock)
        shift_ = -std::exchange(at, 0);
    hasBegun_ = true;
    if (expected_) {
        const auto samplesOf = [&](double sec) { return std::llround(sec * rate_); };
        const std::int64_t off = at - *expected_;
        const bool isAnotherClock = off < -samplesOf(longestOverlapSec) || off > samplesOf(longestGapSec);
        if (isAnotherClock) shift_ -= off;
        const std::int64_t tolerance = samplesOf(std::max(toleranceSec, 2 * av_q2d(track_.time_base)));
        if (isAnotherClock || std::abs(off) <= tolerance) at = *expected_;
    }
    const std::int64_t heardFrom = std::max(expected_.value_or(0), std::int64_t{0});
    std::int64_t end = at + frame.nb_samples;
    if (endSec_) end = std::min<std::int64_t>(end, std::llround((*endSec_ - originSec_) * rate_));
    const std::int64_t start = std::max(at, heardFrom);
    if (start >= end) return false;
    piece = {&frame, static_cast<int>(start - at), static_cast<int>(end - start), start};
    expected_ = end;
    return true;
}

double AudioTrackInput::durationSec() {
    if (endSec_) return *endSec_ - originSec_;
    if (isExactlySeekable() && track_.duration > 0) return double(track_.duration) * av_q2d(track_.time_base);
    return packetsEndSec();
}

double AudioTrackInput::packetsEndSec() {
    const auto packet = libav::owned<libav::Packet>(av_packet_alloc());
    const int rate = std::max(track_.codecpar->sample_rate, 1);
    double lastEnd = originSec_, end = originSec_, longest = 0;
    while (input_->read(*packet)) {
        const std::int64_t timestamp = packet->pts != AV_NOPTS_VALUE ? packet->pts : packet->dts;
        const double start =
            timestamp == AV_NOPTS_VALUE ? lastEnd : double(timestamp) * av_q2d(track_.time_base);
        const double duration = double(packet->duration) * av_q2d(track_.time_base);
        const double padding = double(paddingOf(*packet)) / rate;
        // Some containers give the last packet the length that is heard, others that of all packets.
        longest = std::max(longest, duration);
        const bool isCutAlready = duration + padding <= longest;
        lastEnd = start + duration;
        if (std::abs(lastEnd) < longestSec) end = std::max(end, lastEnd - (isCutAlready ? 0 : padding));
    }
    return end - originSec_;
}

}   // namespace tavix::media
