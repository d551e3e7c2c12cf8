#include "TavixPlatform/Media/MovieWriter.h"

#include "TavixPlatform/Media/AlphaPlanes.h"
#include "TavixPlatform/Media/HardwareFrames.h"
#include "TavixPlatform/Media/MovieEncoder.h"
#include "TavixPlatform/Media/MovieSlots.h"
#include "TavixPlatform/Media/PacketSink.h"

#include <deque>
#include <new>
#include <optional>
#include <thread>
#include <utility>

namespace tavix::media {
namespace {

// When packets are to be decoded. libx265 leaves these times undefined in movies of one or two frames, and
// libx264 sets them otherwise in those, which then do not go before another piece; here they are the
// presentation times in order, shifted by the two frames that both reorder at most.
class DecodingTimes {
public:
    explicit DecodingTimes(std::int64_t frameDuration) : frameDuration_(frameDuration) {}

    void add(std::int64_t presentationTime) {
        if (times_.empty())
            for (int i = shiftFrames; i > 0; --i) times_.push_back(presentationTime - i * frameDuration_);
        times_.push_back(presentationTime);
    }
    std::int64_t next() {
        const std::int64_t time = times_.front();
        times_.pop_front();
        return time;
    }

private:
    static constexpr int shiftFrames = 2;
    std::int64_t frameDuration_;
    std::deque<std::int64_t> times_;   // never empty once begun: the last ones are not taken
};

// Turns frames into packets and packets into the file. Lives on the encoder thread once it is built.
class MovieEncoding {
public:
    explicit MovieEncoding(const MovieSettings& settings)
        : failure_("Cannot encode the movie \"" + settings.path.string() + "\""),
          isHardware_(settings.hardware), frameDuration_(settings.frameDuration),
          decodingTimes_(frameDuration_), encoder_(openMovieEncoder(settings)),
          filter_(openMovieFilter(settings, *encoder_)), file_(openMovieFile(settings, *encoder_)),
          packet_(libav::owned<libav::Packet>(av_packet_alloc())) {}

    AVPixelFormat pixels() const {
        if (isHardware_) return AV_PIX_FMT_YUV420P;
        return encoder_->pix_fmt == AV_PIX_FMT_YUVA420P ? AV_PIX_FMT_YUVA444P10 : encoder_->pix_fmt;
    }

    // The planes may be written again as soon as the frame is gone.
    void encode(libav::Frame frame) {
        if (encoder_->pix_fmt == AV_PIX_FMT_YUVA420P) frame = withHalvedChroma(*frame);
        if (isHardware_)
            frame = HardwareFrames::copied(*frame, *encoder_, failure_);
        else if (encoder_->codec->capabilities & AV_CODEC_CAP_FRAME_THREADS)
            frame = copyOf(*frame);
        tag(*frame);
        decodingTimes_.add(frame->pts);
        send(frame.get());
    }

    void finish() {
        send(nullptr);
        file_->finish();
    }

private:
    // Null says that there are no more frames.
    void send(AVFrame* frame) {
        const libav::ErrorScope errors;
        libav::check(avcodec_send_frame(encoder_.get(), frame), errors, failure_);
        while (receive(errors, avcodec_receive_packet(encoder_.get(), packet_.get()))) {
            packet_->duration = frameDuration_;
            if (reordersFrames()) packet_->dts = decodingTimes_.next();
            writeFiltered(errors);
        }
    }

    bool reordersFrames() const {
        return encoder_->codec_id == AV_CODEC_ID_H264 || encoder_->codec_id == AV_CODEC_ID_HEVC;
    }

    // For encoders that read several frames at once: they would hold more slots than there are.
    static libav::Frame copyOf(const AVFrame& frame) {
        auto copy = libav::owned<libav::Frame>(av_frame_alloc());
        copy->format = frame.format;
        copy->width = frame.width;
        copy->height = frame.height;
        copy->pts = frame.pts;
        if (av_frame_get_buffer(copy.get(), 0) < 0 || av_frame_copy(copy.get(), &frame) < 0)
            throw std::bad_alloc();
        return copy;
    }

    bool receive(const libav::ErrorScope& errors, int code) const {
        if (code == AVERROR(EAGAIN) || code == AVERROR_EOF) return false;
        libav::check(code, errors, failure_);
        return true;
    }

    void writeFiltered(const libav::ErrorScope& errors) {
        if (!filter_) return file_->take(*packet_);
        libav::check(av_bsf_send_packet(filter_.get(), packet_.get()), errors, failure_);
        while (receive(errors, av_bsf_receive_packet(filter_.get(), packet_.get()))) file_->take(*packet_);
    }

    void tag(AVFrame& frame) const {
        frame.color_primaries = encoder_->color_primaries;
        frame.color_trc = encoder_->color_trc;
        frame.colorspace = encoder_->colorspace;
        frame.color_range = encoder_->color_range;
        frame.chroma_location = encoder_->chroma_sample_location;
    }

    std::string failure_;
    bool isHardware_;
    std::int64_t frameDuration_;
    DecodingTimes decodingTimes_;
    libav::CodecContext encoder_;
    libav::BitstreamFilter filter_;
    std::unique_ptr<PacketSink> file_;
    libav::Packet packet_;
};

}   // namespace

class MovieWriter::Session {
public:
    explicit Session(const MovieSettings& settings)
        : encoding_(std::make_unique<MovieEncoding>(settings)),
          slots_(settings.sizePx, planarFormatOf(settings.codec)), encoder_([this] { run(); }) {}

    ~Session() {
        slots_.abandon();
        if (encoder_.joinable()) encoder_.join();
        encoding_.reset();   // lets go of the last planes while the slots still stand
    }

    Slot& acquire() { return slots_.acquire(); }

    void submit(Slot& slot, std::int64_t presentationTime) {
        if (lastTime_ && presentationTime <= *lastTime_)
            throw MediaError("A movie's presentation times must rise, but " +
                             std::to_string(presentationTime) + " follows " + std::to_string(*lastTime_) +
                             ".");
        slots_.submit(slot, presentationTime);
        lastTime_ = presentationTime;
    }

    void finish() {
        if (!lastTime_) throw MediaError("A movie needs at least one frame.");
        slots_.end();
        if (encoder_.joinable()) encoder_.join();
        slots_.rethrowFault();
    }

private:
    void run() noexcept {
        try {
            while (libav::Frame frame = slots_.next(encoding_->pixels())) encoding_->encode(std::move(frame));
            if (!slots_.isAbandoned()) encoding_->finish();
        } catch (...) {
            slots_.fail(std::current_exception());
        }
    }

    std::unique_ptr<MovieEncoding> encoding_;
    MovieSlots slots_;
    std::optional<std::int64_t> lastTime_;
    std::thread encoder_;
};

MovieWriter::MovieWriter(const MovieSettings& settings) : session_(std::make_unique<Session>(settings)) {}
MovieWriter::~MovieWriter() = default;
MovieWriter::Slot& MovieWriter::acquire() { return session_->acquire(); }
void MovieWriter::submit(Slot& slot, std::int64_t presentationTime) {
    session_->submit(slot, presentationTime);
}
void MovieWriter::finish() { session_->finish(); }

}   // namespace tavix::media
