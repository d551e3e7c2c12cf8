#include "TavixPlatform/Media/OutputFile.h"

#include "TavixPlatform/Media/MediaFault.h"
#include "TavixPlatform/Media/PlainFile.h"

extern "C" {
#include <libavutil/intreadwrite.h>
}

#include <algorithm>
#include <array>
#include <string_view>

namespace tavix::media {
namespace {

libav::FormatContext makeFormat(const char* container, const std::string& failure) {
    AVFormatContext* made = nullptr;
    const libav::ErrorScope errors;
    libav::check(avformat_alloc_output_context2(&made, nullptr, container, nullptr), errors, failure);
    return libav::FormatContext(made);
}

}   // namespace

OutputFile::OutputFile(const std::filesystem::path& path, const char* container)
    : path_(path), format_(makeFormat(container, failure())) {
    // Without it the file would name the library's version and be different after every update.
    format_->flags |= AVFMT_FLAG_BITEXACT;
    // The library would shift all tracks for what a sound's coder adds before it, and so move the pictures.
    if (tellsDelays()) format_->avoid_negative_ts = 0;
    open();
}

AVStream& OutputFile::newTrack(AVRational timeBase, AVRational frameRate) {
    AVStream* stream = avformat_new_stream(format_.get(), nullptr);
    if (!stream) throw std::bad_alloc();
    stream->time_base = timeBase;
    stream->avg_frame_rate = frameRate;
    timeBases_.push_back(timeBase);
    return *stream;
}

void OutputFile::addTrack(const AVCodecContext& encoder, unsigned tag) {
    const libav::ErrorScope errors;
    const AVStream& stream = newTrack(encoder.time_base, encoder.framerate);
    libav::check(avcodec_parameters_from_context(stream.codecpar, &encoder), errors, failure());
    stream.codecpar->codec_tag = tag;
}

void OutputFile::addTrack(const AVStream& like, unsigned tag) {
    addTrack(*like.codecpar, like.time_base, like.avg_frame_rate, tag);
}

void OutputFile::addTrack(
    const AVCodecParameters& like, AVRational timeBase, AVRational frameRate, unsigned tag) {
    const libav::ErrorScope errors;
    const AVStream& stream = newTrack(timeBase, frameRate);
    libav::check(avcodec_parameters_copy(stream.codecpar, &like), errors, failure());
    stream.codecpar->codec_tag = tag;
}

void OutputFile::begin(libav::Options& options) {
    const libav::ErrorScope errors;
    const int code = avformat_write_header(format_.get(), options.get());
    if (code >= 0 && options.isEmpty()) return;
    libav::check(code < 0 ? code : AVERROR_OPTION_NOT_FOUND, errors, failure());
}

OutputFile::~OutputFile() { close(); }

std::string OutputFile::failure() const { return "Cannot write \"" + path_.string() + "\""; }

void OutputFile::open() {
    const libav::ErrorScope errors;
    // The protocol's name keeps a path with a colon from being taken for an address.
    const std::string address = "file:" + path_.string();
    libav::check(avio_open(&format_->pb, address.c_str(), AVIO_FLAG_WRITE), errors, failure());
    format_->url = av_strdup(address.c_str());   // where the index is moved to the front by reading back
    if (!format_->url) throw std::bad_alloc();
}

// In this container the head tells by how much a track is late, and players take that off every time
// (RFC 9559, 5.1.4.1.28, CodecDelay).
bool OutputFile::tellsDelays() const { return std::string_view(format_->oformat->name) == "webm"; }

void OutputFile::write(AVPacket& packet, int track) {
    const libav::ErrorScope errors;
    const AVStream& stream = *format_->streams[track];
    const AVRational timeBase = timeBases_[static_cast<std::size_t>(track)];
    packet.stream_index = track;
    if (const int early = stream.codecpar->initial_padding; early > 0 && tellsDelays()) {
        const std::int64_t delay = av_rescale_q(early, AVRational{1, stream.codecpar->sample_rate}, timeBase);
        if (packet.pts != AV_NOPTS_VALUE) packet.pts += delay;
        if (packet.dts != AV_NOPTS_VALUE) packet.dts += delay;
    }
    av_packet_rescale_ts(&packet, timeBase, stream.time_base);
    libav::check(av_interleaved_write_frame(format_.get(), &packet), errors, failure());
}

int OutputFile::flush() {
    avio_flush(format_->pb);
    return format_->pb->error;
}

void OutputFile::finish() {
    const libav::ErrorScope errors;
    libav::check(av_write_trailer(format_.get()), errors, failure());
    libav::check(flush(), errors, failure());
    libav::check(avio_closep(&format_->pb), errors, failure());
    requireWhole();
    isFinished_ = true;
}

// Moving the index to the front reads the file back, and where reading fails the library stops in silence.
// The boxes of such a file (ISO/IEC 14496-12, 4.2) reach exactly to its end.
void OutputFile::requireWhole() const {
    const std::string_view container = format_->oformat->name;
    if (container != "mp4" && container != "mov" && container != "ipod") return;
    const PlainFile file(path_, failure() + ": ");
    std::int64_t at = 0;
    while (at < file.sizeBytes()) {
        std::array<std::byte, 16> head{};
        const std::ptrdiff_t got = file.read(head, at);
        if (got < 8) throw MediaFault(failure() + ": reading it back failed.");
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(head.data());
        const auto size = std::int64_t{AV_RB32(bytes)};
        at += size == 1 ? std::max(static_cast<std::int64_t>(AV_RB64(bytes + 8)), std::int64_t{16})
                        : std::max(size, std::int64_t{8});
    }
    if (at != file.sizeBytes()) throw MediaFault(failure() + ": it did not become whole.");
}

// Only a plain file is removed: the target may be a device or a pipe.
void OutputFile::close() noexcept {
    if (isFinished_ || !format_->pb) return;
    avio_closep(&format_->pb);
    std::error_code ignored;
    if (std::filesystem::is_regular_file(path_, ignored)) std::filesystem::remove(path_, ignored);
}

}   // namespace tavix::media
