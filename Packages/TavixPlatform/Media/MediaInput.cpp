#include "TavixPlatform/Media/MediaInput.h"

#include "TavixPlatform/Imaging/StopScope.h"
#include "TavixPlatform/Media/MediaFault.h"
#include "TavixPlatform/Media/PlainFile.h"
#include "TavixPlatform/Media/VideoFile.h"

extern "C" {
#include <libavutil/mathematics.h>
#include <libavutil/mem.h>
}

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <limits>
#include <span>

namespace tavix::media {
namespace {

constexpr int readBufferBytes = 1 << 16;
constexpr int mostBusyReads = 100;   // a container may ask to be read again; one that always does is broken
constexpr int mostFailuresAtEnd = 100;   // the frames that a decoder can still hold

constexpr double microsecondsPerSec = AV_TIME_BASE;

// VP8 and VP9 carry alpha as a second stream beside the first, which only this library joins.
const AVCodec* decoderFor(const AVStream& track) {
    const AVCodecID id = track.codecpar->codec_id;
    const AVDictionaryEntry* alpha = av_dict_get(track.metadata, "alpha_mode", nullptr, 0);
    if (alpha && std::string_view(alpha->value) == "1") {
        const char* name = id == AV_CODEC_ID_VP9 ? "libvpx-vp9" : id == AV_CODEC_ID_VP8 ? "libvpx" : nullptr;
        if (const AVCodec* joined = name ? avcodec_find_decoder_by_name(name) : nullptr) return joined;
    }
    return avcodec_find_decoder(id);
}

}   // namespace

// The bytes of a plain file. The libraries read through it and so never open anything themselves.
class MediaInput::File {
public:
    File(const std::filesystem::path& path, const std::string& failure)
        : file_(path, failure), failure_(failure) {
        if (file_.sizeBytes() == 0) throw MediaError(failure + "It is empty.");
    }
    ~File() {
        if (!access_) return;
        av_freep(&access_->buffer);
        avio_context_free(&access_);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    AVIOContext* access() {
        auto* buffer = static_cast<unsigned char*>(av_malloc(readBufferBytes));
        if (!buffer) throw std::bad_alloc();
        access_ = avio_alloc_context(buffer, readBufferBytes, 0, this, &File::read, nullptr, &File::seek);
        if (!access_) {
            av_free(buffer);
            throw std::bad_alloc();
        }
        return access_;
    }

    // The libraries take an error for the end of the file, or for damage, and go on. Throws MediaFault.
    void requireRead(int code = 0) const {
        if (error_ != 0)
            throw MediaFault(failure_ + "Reading it failed: " + PlainFile::reasonOf(error_) + ".");
        if (code == AVERROR(ENOMEM)) throw MediaFault(failure_ + "There is not enough memory.");
    }

    // An index names places that a file which was cut no longer has.
    bool wasReadBeyondItsEnd() const { return wasReadBeyondItsEnd_; }

private:
    static int read(void* self, std::uint8_t* to, int count) {
        auto& file = *static_cast<File*>(self);
        file.wasReadBeyondItsEnd_ = file.wasReadBeyondItsEnd_ || file.at_ > file.file_.sizeBytes();
        const std::ptrdiff_t got =
            file.file_.read({reinterpret_cast<std::byte*>(to), std::size_t(count)}, file.at_);
        if (got < 0) file.error_ = static_cast<int>(-got);
        if (got < 0) return AVERROR(file.error_);
        if (got == 0) return AVERROR_EOF;
        file.at_ += got;
        return static_cast<int>(got);
    }
    static std::int64_t seek(void* self, std::int64_t offset, int whence) {
        auto& file = *static_cast<File*>(self);
        const std::int64_t size = file.file_.sizeBytes();
        if (whence == AVSEEK_SIZE) return size;
        const std::int64_t base = whence == SEEK_CUR ? file.at_ : whence == SEEK_END ? size : std::int64_t{0};
        if (offset < -base) return AVERROR(EINVAL);
        return file.at_ = base + offset;
    }

    PlainFile file_;
    std::string failure_;
    std::int64_t at_ = 0;
    int error_ = 0;   // of the system, while reading
    bool wasReadBeyondItsEnd_ = false;
    AVIOContext* access_ = nullptr;
};

MediaInput::MediaInput(const std::filesystem::path& path) : name_(path.filename().string()) {
    const std::string failure = "Cannot read the media file \"" + path.string() + "\". ";
    const libav::ErrorScope errors;
    file_ = std::make_unique<File>(path, failure);
    auto format = libav::owned<libav::FormatContext>(avformat_alloc_context());
    format->pb = file_->access();
    format->io_open = [](AVFormatContext*, AVIOContext**, const char*, int, AVDictionary**) {
        return AVERROR(EACCES);
    };
    libav::Options options;
    options.set("protocol_whitelist", "none");   // no protocol bears this name
    // The extension says what a few formats without a mark are; the rest of the name might be a pattern.
    const std::string plainName = "media" + path.extension().string();
    AVFormatContext* opened = format.release();   // freed by the call when it fails
    if (const int code = avformat_open_input(&opened, plainName.c_str(), nullptr, options.get()); code < 0) {
        file_->requireRead(code);
        throw MediaError(
            failure + "It is not a film or sound that can be read: " + errors.reason(code) + ".");
    }
    format_.reset(opened);
    // A track that it knows too little of fails when it is opened.
    file_->requireRead(avformat_find_stream_info(format_.get(), nullptr));
    originSec_ = originOfTracks();
}

MediaInput::~MediaInput() = default;

std::vector<AVStream*> MediaInput::tracks(AVMediaType kind) const {
    std::vector<AVStream*> found;
    for (unsigned i = 0; i < format_->nb_streams; ++i) {
        AVStream* stream = format_->streams[i];
        const bool isCover = (stream->disposition & AV_DISPOSITION_ATTACHED_PIC) != 0;
        if (stream->codecpar->codec_type == kind && !isCover) found.push_back(stream);
    }
    return found;
}

double MediaInput::originOfTracks() const {
    if ((format_->iformat->flags & AVFMT_TS_DISCONT) && format_->start_time != AV_NOPTS_VALUE)
        return double(format_->start_time) / microsecondsPerSec;
    double origin = 0;
    for (const AVStream* stream : tracks(AVMEDIA_TYPE_VIDEO))
        if (stream->start_time != AV_NOPTS_VALUE)
            origin = std::min(origin, double(stream->start_time) * av_q2d(stream->time_base));
    return origin;
}

double MediaInput::secondsOf(const AVStream& track, std::int64_t timestamp) const {
    // One division of whole numbers, so that a time which is a fraction comes out as that fraction does.
    const double sec = double(timestamp) * track.time_base.num / track.time_base.den;
    return originSec_ == 0 ? sec : sec - originSec_;
}

std::int64_t MediaInput::timestampOf(const AVStream& track, double sec) const {
    constexpr double most = 1e18;   // far past any file, and within 64 bits
    const double units = std::floor((sec + originSec_) * track.time_base.den / track.time_base.num);
    return static_cast<std::int64_t>(std::clamp(units, -most, most));
}

void MediaInput::select(const AVStream& track) {
    for (unsigned i = 0; i < format_->nb_streams; ++i)
        format_->streams[i]->discard = static_cast<int>(i) == track.index ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
}

bool MediaInput::read(AVPacket& packet) {
    for (int busy = 0; busy < mostBusyReads;) {
        imaging::checkStop();
        av_packet_unref(&packet);
        const int code = av_read_frame(format_.get(), &packet);
        if (code == AVERROR(EAGAIN)) {
            ++busy;
            continue;
        }
        if (code < 0) {
            file_->requireRead(code);
            isBroken_ = isBroken_ || code != AVERROR_EOF || file_->wasReadBeyondItsEnd();
            return false;
        }
        if (format_->streams[packet.stream_index]->discard != AVDISCARD_ALL) return true;
    }
    return false;
}

void MediaInput::requireRead(int code) const { file_->requireRead(code); }

void MediaInput::seek(const AVStream& track, double sec) {
    const std::int64_t wanted = timestampOf(track, sec);
    bool isThere = av_seek_frame(format_.get(), track.index, wanted, AVSEEK_FLAG_BACKWARD) >= 0;
    // Nothing to decode from lies before it, or the container has no index.
    isThere =
        isThere || avformat_seek_file(format_.get(), track.index, std::numeric_limits<std::int64_t>::min(),
                       wanted, std::numeric_limits<std::int64_t>::max(), 0) >= 0;
    if (!isThere) av_seek_frame(format_.get(), -1, 0, AVSEEK_FLAG_BYTE);
    file_->requireRead();
}

TrackDecoder::TrackDecoder(MediaInput& input, AVStream& track, int threads)
    : input_(input), track_(track), packet_(libav::owned<libav::Packet>(av_packet_alloc())) {
    const libav::ErrorScope errors;
    const std::string failure = "Cannot decode \"" + input.name() + "\"";
    const AVCodec* codec = decoderFor(track);
    if (!codec)
        throw MediaError(
            failure + ": there is no decoder for " + avcodec_get_name(track.codecpar->codec_id) + ".");
    decoder_ = libav::owned<libav::CodecContext>(avcodec_alloc_context3(codec));
    libav::check(avcodec_parameters_to_context(decoder_.get(), track.codecpar), errors, failure);
    decoder_->pkt_timebase = track.time_base;
    decoder_->thread_count = threads;
    decoder_->max_pixels = mostFramePixels;
    // Decoders of sound report what is harmless, as tags between packets.
    if (track.codecpar->codec_type == AVMEDIA_TYPE_VIDEO) decoder_->opaque = &hasReported_;
    libav::check(avcodec_open2(decoder_.get(), codec, nullptr), errors, failure);
    input.select(track);
}

void TrackDecoder::feed() {
    if (isDraining_) return;
    isDraining_ = !input_.read(*packet_);
    const int code = avcodec_send_packet(decoder_.get(), isDraining_ ? nullptr : packet_.get());
    input_.requireRead(code);
    if (code < 0 || input_.isBroken()) isDamaged_ = true;
}

bool TrackDecoder::next(AVFrame& frame) {
    for (int failuresAtEnd = 0; failuresAtEnd < mostFailuresAtEnd; failuresAtEnd += isDraining_) {
        imaging::checkStop();
        const int code = avcodec_receive_frame(decoder_.get(), &frame);
        if (code >= 0) {
            isDamaged_ = isDamaged_ || frame.decode_error_flags != 0;
            return true;
        }
        if (code == AVERROR_EOF) return false;
        input_.requireRead(code);
        if (code != AVERROR(EAGAIN)) isDamaged_ = true;
        feed();   // where no packets are left, the frames that are still inside come next
    }
    return false;
}

void TrackDecoder::seek(double sec) {
    input_.seek(track_, sec);
    avcodec_flush_buffers(decoder_.get());
    isDraining_ = false;
}

bool TrackDecoder::nextAlone(AVFrame& frame) {
    feed();
    if (!isDraining_) avcodec_send_packet(decoder_.get(), nullptr);
    isDraining_ = true;
    return next(frame);
}

}   // namespace tavix::media
