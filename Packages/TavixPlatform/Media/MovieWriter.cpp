#include "TavixPlatform/Media/MovieWriter.h"

#include "TavixPlatform/Media/MovieEncoder.h"
#include "TavixPlatform/Media/MovieSlots.h"
#include "TavixPlatform/Media/OutputFile.h"

#include <optional>
#include <thread>

namespace tavix::media {
namespace {

// Turns frames into packets and packets into the file. Lives on the encoder thread once it is built.
class MovieEncoding {
public:
    explicit MovieEncoding(const MovieSettings& settings)
        : failure_("Cannot encode the movie \"" + settings.path.string() + "\""),
          frameDuration_(frameDurationOf(settings)), encoder_(openMovieEncoder(settings)),
          filter_(openMovieFilter(settings, *encoder_)), file_(openMovieFile(settings, *encoder_)),
          packet_(libav::owned<libav::Packet>(av_packet_alloc())) {}

    AVPixelFormat pixels() const { return encoder_->pix_fmt; }

    // Null says that there are no more frames.
    void encode(AVFrame* frame) {
        const libav::ErrorScope errors;
        if (frame) tag(*frame);
        libav::check(avcodec_send_frame(encoder_.get(), frame), errors, failure_);
        while (receive(errors, avcodec_receive_packet(encoder_.get(), packet_.get()))) {
            packet_->duration = frameDuration_;
            writeFiltered(errors);
        }
    }

    void finish() {
        encode(nullptr);
        file_->finish();
    }

private:
    bool receive(const libav::ErrorScope& errors, int code) const {
        if (code == AVERROR(EAGAIN) || code == AVERROR_EOF) return false;
        libav::check(code, errors, failure_);
        return true;
    }

    void writeFiltered(const libav::ErrorScope& errors) {
        if (!filter_) return file_->write(*packet_);
        libav::check(av_bsf_send_packet(filter_.get(), packet_.get()), errors, failure_);
        while (receive(errors, av_bsf_receive_packet(filter_.get(), packet_.get()))) file_->write(*packet_);
    }

    void tag(AVFrame& frame) const {
        frame.color_primaries = encoder_->color_primaries;
        frame.color_trc = encoder_->color_trc;
        frame.colorspace = encoder_->colorspace;
        frame.color_range = encoder_->color_range;
        frame.chroma_location = encoder_->chroma_sample_location;
    }

    std::string failure_;
    std::int64_t frameDuration_;
    libav::CodecContext encoder_;
    libav::BitstreamFilter filter_;
    std::unique_ptr<OutputFile> file_;
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
            while (libav::Frame frame = slots_.next(encoding_->pixels())) encoding_->encode(frame.get());
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
