#include "TavixPlatform/Media/OutputFile.h"

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
    const libav::ErrorScope errors;
    const AVStream& stream = newTrack(like.time_base, like.avg_frame_rate);
    libav::check(avcodec_parameters_copy(stream.codecpar, like.codecpar), errors, failure());
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

void OutputFile::write(AVPacket& packet, int track) {
    const libav::ErrorScope errors;
    const AVStream& stream = *format_->streams[track];
    packet.stream_index = track;
    av_packet_rescale_ts(&packet, timeBases_[static_cast<std::size_t>(track)], stream.time_base);
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
    isFinished_ = true;
}

// Only a plain file is removed: the target may be a device or a pipe.
void OutputFile::close() noexcept {
    if (isFinished_ || !format_->pb) return;
    avio_closep(&format_->pb);
    std::error_code ignored;
    if (std::filesystem::is_regular_file(path_, ignored)) std::filesystem::remove(path_, ignored);
}

}   // namespace tavix::media
