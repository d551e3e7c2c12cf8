#include "TavixPlatform/Media/PieceFile.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <limits>
#include <new>
#include <system_error>

namespace tavix::media {
namespace {

constexpr std::string_view mark = "tavix piece 1\n";
constexpr std::int64_t endOfPackets = -1;   // where a packet would tell its size
// The digest, and before it how many packets there are.
constexpr std::int64_t tailBytes = sizeof(Digest) + sizeof(std::int64_t);
constexpr std::int64_t mostPacketBytes = std::int64_t{1} << 30, mostExtraBytes = 1 << 20;

// What is said of a track apart from its extra data. Plain numbers without holes between them.
struct TrackHead {
    std::int64_t bitRate;
    std::int32_t kind, codec, format, profile, level, width, height;
    std::int32_t aspectNumerator, aspectDenominator, fieldOrder, range, primaries, curve, matrix, chromaPlace,
        delay;
    std::int32_t timeNumerator, timeDenominator, rateNumerator, rateDenominator;
    std::uint32_t tag;
    std::int32_t bitsPerCodedSample, bitsPerRawSample, extraBytes;
};
static_assert(sizeof(TrackHead) == sizeof(std::int64_t) + 24 * sizeof(std::int32_t));

TrackHead headOf(const AVCodecParameters& track, const AVCodecContext& encoder) {
    return {track.bit_rate, track.codec_type, track.codec_id, track.format, track.profile, track.level,
        track.width, track.height, track.sample_aspect_ratio.num, track.sample_aspect_ratio.den,
        track.field_order, track.color_range, track.color_primaries, track.color_trc, track.color_space,
        track.chroma_location, track.video_delay, encoder.time_base.num, encoder.time_base.den,
        encoder.framerate.num, encoder.framerate.den, track.codec_tag, track.bits_per_coded_sample,
        track.bits_per_raw_sample, track.extradata_size};
}

CodecParameters parametersOf(const TrackHead& head) {
    CodecParameters track(avcodec_parameters_alloc());
    if (!track) throw std::bad_alloc();
    track->bit_rate = head.bitRate;
    track->codec_type = static_cast<AVMediaType>(head.kind);
    track->codec_id = static_cast<AVCodecID>(head.codec);
    track->format = head.format;
    track->profile = head.profile;
    track->level = head.level;
    track->width = head.width;
    track->height = head.height;
    track->sample_aspect_ratio = {head.aspectNumerator, head.aspectDenominator};
    track->field_order = static_cast<AVFieldOrder>(head.fieldOrder);
    track->color_range = static_cast<AVColorRange>(head.range);
    track->color_primaries = static_cast<AVColorPrimaries>(head.primaries);
    track->color_trc = static_cast<AVColorTransferCharacteristic>(head.curve);
    track->color_space = static_cast<AVColorSpace>(head.matrix);
    track->chroma_location = static_cast<AVChromaLocation>(head.chromaPlace);
    track->video_delay = head.delay;
    track->codec_tag = head.tag;
    track->bits_per_coded_sample = head.bitsPerCodedSample;
    track->bits_per_raw_sample = head.bitsPerRawSample;
    return track;
}

struct PacketHead {
    std::int64_t presentation, decoding, duration;
    std::int32_t flags, sideBytes;   // of what stands beside a picture in its block, as its alpha
};

}   // namespace

PieceWriter::PieceWriter(const std::filesystem::path& path, const AVCodecContext& encoder, unsigned tag)
    : path_(path), file_(path, std::ios::binary | std::ios::trunc) {
    if (!file_) fail();
    CodecParameters track(avcodec_parameters_alloc());
    if (!track || avcodec_parameters_from_context(track.get(), &encoder) < 0) throw std::bad_alloc();
    track->codec_tag = tag;
    put(mark.data(), mark.size());
    put(headOf(*track, encoder));
    put(track->extradata, static_cast<std::size_t>(track->extradata_size));
}

PieceWriter::~PieceWriter() {
    if (isFinished_) return;
    file_.close();
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
}

void PieceWriter::take(AVPacket& packet) {
    std::size_t sideBytes = 0;
    const std::uint8_t* side =
        av_packet_get_side_data(&packet, AV_PKT_DATA_MATROSKA_BLOCKADDITIONAL, &sideBytes);
    put(std::int64_t{packet.size});
    put(PacketHead{
        packet.pts, packet.dts, packet.duration, packet.flags, static_cast<std::int32_t>(sideBytes)});
    put(packet.data, static_cast<std::size_t>(packet.size));
    put(side, sideBytes);
    av_packet_unref(&packet);
    ++packets_;
}

void PieceWriter::finish() {
    put(endOfPackets);
    put(packets_);
    const Digest digest = hash_.digest();
    file_.write(reinterpret_cast<const char*>(&digest), sizeof digest);
    file_.close();
    if (!file_) fail();
    isFinished_ = true;
}

void PieceWriter::put(const void* bytes, std::size_t size) {
    if (size == 0) return;
    hash_.add(std::span(static_cast<const std::byte*>(bytes), size));
    file_.write(static_cast<const char*>(bytes), static_cast<std::streamsize>(size));
    if (!file_) fail();
}

void PieceWriter::fail() const {
    const int reason = errno;
    throw MediaError(
        "Cannot write \"" + path_.string() + "\": " + std::generic_category().message(reason) + ".");
}

PieceReader::PieceReader(const std::filesystem::path& path)
    : failure_("Cannot read the piece \"" + path.string() + "\": "), file_(path, failure_) {
    requireWhole();
    std::string start(mark.size(), '\0');
    get(start.data(), start.size());
    const auto head = get<TrackHead>();
    if (head.extraBytes < 0 || head.extraBytes > mostExtraBytes || packetCount_ < 0)
        throw MediaError(failure_ + "it is damaged.");
    parameters_ = parametersOf(head);
    std::string extra(static_cast<std::size_t>(head.extraBytes), '\0');
    get(extra.data(), extra.size());
    if (!extra.empty()) {
        parameters_->extradata =
            static_cast<std::uint8_t*>(av_mallocz(extra.size() + AV_INPUT_BUFFER_PADDING_SIZE));
        if (!parameters_->extradata) throw std::bad_alloc();
        std::memcpy(parameters_->extradata, extra.data(), extra.size());
        parameters_->extradata_size = head.extraBytes;
    }
    timeBase_ = {head.timeNumerator, head.timeDenominator};
    frameRate_ = {head.rateNumerator, head.rateDenominator};
    head_.assign(reinterpret_cast<const char*>(&head), sizeof head).append(extra);
}

// A piece with the right digest is what was written, unless somebody forged it: sizes are doubted all the
// same.
void PieceReader::requireWhole() {
    const std::int64_t end = file_.sizeBytes() - std::int64_t{sizeof(Digest)};
    if (end < static_cast<std::int64_t>(mark.size() + sizeof(TrackHead)) + tailBytes)
        throw MediaError(failure_ + "it is not one.");
    std::string start(mark.size(), '\0');
    get(start.data(), start.size());
    if (start != mark) throw MediaError(failure_ + "it is not one, or one of another version.");
    at_ = 0;
    ContentHash hash;
    std::vector<std::byte> room(std::size_t{1} << 20);
    while (at_ < end) {
        const auto part = std::span(room).first(std::min(room.size(), static_cast<std::size_t>(end - at_)));
        get(part.data(), part.size());
        hash.add(part);
    }
    if (get<Digest>() != hash.digest()) throw MediaError(failure_ + "it is damaged.");
    at_ = end - std::int64_t{sizeof(std::int64_t)};
    packetCount_ = get<std::int64_t>();
    at_ = 0;
}

void PieceReader::get(void* to, std::size_t size) {
    for (std::span<std::byte> left(static_cast<std::byte*>(to), size); !left.empty();) {
        const std::ptrdiff_t got = file_.read(left, at_);
        if (got < 0) throw MediaError(failure_ + PlainFile::reasonOf(static_cast<int>(-got)) + ".");
        if (got == 0) throw MediaError(failure_ + "it is cut short.");
        at_ += got;
        left = left.subspan(static_cast<std::size_t>(got));
    }
}

bool PieceReader::read(AVPacket& packet) {
    if (packetsRead_ == packetCount_) return false;
    ++packetsRead_;
    const auto size = get<std::int64_t>();
    const auto head = get<PacketHead>();
    if (size < 0 || size > mostPacketBytes || head.sideBytes < 0)
        throw MediaError(failure_ + "it is damaged.");
    av_packet_unref(&packet);
    if (av_new_packet(&packet, static_cast<int>(size)) < 0) throw std::bad_alloc();
    get(packet.data, static_cast<std::size_t>(size));
    packet.pts = head.presentation;
    packet.dts = head.decoding;
    packet.duration = head.duration;
    packet.flags = head.flags;
    if (head.sideBytes == 0) return true;
    std::uint8_t* side = av_packet_new_side_data(
        &packet, AV_PKT_DATA_MATROSKA_BLOCKADDITIONAL, static_cast<std::size_t>(head.sideBytes));
    if (!side) throw std::bad_alloc();
    get(side, static_cast<std::size_t>(head.sideBytes));
    return true;
}

}   // namespace tavix::media
