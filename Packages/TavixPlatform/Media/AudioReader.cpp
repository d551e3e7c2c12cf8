#include "TavixPlatform/Media/AudioReader.h"

#include "TavixPlatform/Media/AudioConverter.h"
#include "TavixPlatform/Media/AudioTrackInput.h"

extern "C" {
#include <libavutil/mathematics.h>
}

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>
#include <vector>

namespace tavix::media {
namespace {

// What a decoder and a resampler must have heard before what they give is right.
constexpr double prerollSec = 0.5;
// Up to here decoding ahead is quicker than looking for a place.
constexpr double nearSec = 4;

// 60 dB above full scale. Files with float samples can hold anything.
constexpr float loudest = 1000;

void makeFinite(std::span<float> samples) {
    for (float& sample : samples)
        sample = std::isfinite(sample) ? std::clamp(sample, -loudest, loudest) : 0.0F;
}

std::unique_ptr<AudioTrackInput> openTrack(const std::filesystem::path& path) {
    auto track = AudioTrackInput::open(path);
    if (!track) throw MediaError("There is no sound in \"" + path.string() + "\".");
    return track;
}

}   // namespace

std::optional<AudioInfo> probeAudio(const std::filesystem::path& path) {
    const auto track = AudioTrackInput::open(path);
    if (!track) return std::nullopt;
    const AVCodecParameters& parameters = track->parameters();
    const int rate = parameters.sample_rate, channels = parameters.ch_layout.nb_channels;
    return AudioInfo{track->durationSec(), rate, channels};
}

// Output comes in runs: pieces of sound without a gap between them, through one converter. A run begins where
// an input sample and an output frame fall together, so that output frames lie on the file's clock exactly.
class AudioReader::Session {
public:
    Session(const std::filesystem::path& path, const AudioFormat& format)
        : path_(path), format_(format), input_(openTrack(path)) {}

    std::size_t read(std::span<float> out) {
        const std::size_t wanted = out.size() / channels();
        std::size_t done = 0;
        while (done < wanted) {
            if (readyAt_ == ready_.size() && silence_ == 0 && !produce()) break;
            done += take(out.subspan(done * channels(), (wanted - done) * channels()));
        }
        position_ += static_cast<std::int64_t>(done);
        return done;
    }

    void seek(std::int64_t frame) {
        frame = std::max(frame, std::int64_t{0});
        const auto near = static_cast<std::int64_t>(nearSec * format_.sampleRate);
        const bool isAhead = frame >= position_;
        if (!(isAhead && (frame - position_ < near || !input_->isExactlySeekable()))) restart(frame);
        skipTo(frame);
    }

    std::int64_t position() const { return position_; }
    bool isDamaged() const { return input_->isDamaged(); }

private:
    std::size_t channels() const { return static_cast<std::size_t>(format_.channels); }

    void restart(std::int64_t frame) {
        converter_.reset();
        ready_.clear();
        readyAt_ = 0;
        silence_ = 0;
        hasPiece_ = isAtEnd_ = false;
        if (input_->isExactlySeekable()) {
            // Before second 0 may lie what the coder put there, which the decoder needs.
            input_->seek(double(frame) / format_.sampleRate - prerollSec);
            position_ = end_ = frame;
        } else {
            input_ = openTrack(path_);
            position_ = end_ = 0;
        }
    }

    void skipTo(std::int64_t frame) {
        std::vector<float> dropped(channels() * 4096);
        while (position_ < frame) {
            const auto room = std::min<std::int64_t>(frame - position_, 4096);
            if (read(std::span(dropped).first(static_cast<std::size_t>(room) * channels())) == 0) break;
        }
        position_ = frame;   // past the end, too: then there is nothing to read
    }

    std::size_t take(std::span<float> out) {
        const std::size_t room = out.size() / channels();
        if (silence_ > 0) {
            const auto count =
                static_cast<std::size_t>(std::min<std::int64_t>(silence_, static_cast<std::int64_t>(room)));
            std::fill_n(out.begin(), count * channels(), 0.0F);
            silence_ -= static_cast<std::int64_t>(count);
            return count;
        }
        const std::size_t count = std::min(room, (ready_.size() - readyAt_) / channels());
        std::copy_n(ready_.begin() + std::ptrdiff_t(readyAt_), count * channels(), out.begin());
        makeFinite(out.first(count * channels()));
        readyAt_ += count * channels();
        return count;
    }

    // Makes more output ready, silence and then sound; false at the end.
    bool produce() {
        ready_.clear();
        readyAt_ = 0;
        while (ready_.empty() && silence_ == 0) {
            if (!hasPiece_ && !isAtEnd_) {
                hasPiece_ = input_->next(piece_);
                isAtEnd_ = !hasPiece_;
            }
            const bool goesOn =
                hasPiece_ && converter_ && piece_.at == runEnd_ && converter_->takes(*piece_.frame);
            if (converter_ && !goesOn) {
                endRun();
                continue;
            }
            if (!hasPiece_) return false;
            if (!converter_) beginRun();
            converter_->convert(*piece_.frame, piece_.first, piece_.count, ready_);
            runEnd_ = piece_.at + piece_.count;
            hasPiece_ = false;
            place();
        }
        return true;
    }

    void beginRun() {
        converter_ = std::make_unique<AudioConverter>(*piece_.frame, format_);
        const std::int64_t inputRate = converter_->inputRate(), outputRate = format_.sampleRate;
        const std::int64_t shared = std::gcd(inputRate, outputRate);
        const std::int64_t period = piece_.at / (inputRate / shared);
        converter_->beginWithSilence(static_cast<int>(piece_.at - period * (inputRate / shared)));
        convertedTo_ = period * (outputRate / shared);
        silence_ = std::max(convertedTo_ - end_, std::int64_t{0});
        end_ += silence_;
    }

    void endRun() {
        converter_->finish(ready_);
        const std::int64_t runEnd =
            av_rescale(runEnd_, format_.sampleRate, converter_->inputRate()) - convertedTo_;
        converter_.reset();
        const auto most = static_cast<std::size_t>(std::max(runEnd, std::int64_t{0})) * channels();
        if (ready_.size() > most) ready_.resize(most);
        place();
    }

    // Counts what was made, without what lies before the frame that is wanted next.
    void place() {
        const std::int64_t early = std::max(end_ - convertedTo_, std::int64_t{0});
        convertedTo_ += static_cast<std::int64_t>(ready_.size() / channels());
        readyAt_ = std::min(static_cast<std::size_t>(early) * channels(), ready_.size());
        end_ = std::max(end_, convertedTo_);
        if (readyAt_ == ready_.size()) ready_.clear(), readyAt_ = 0;
    }

    std::filesystem::path path_;
    AudioFormat format_;
    std::unique_ptr<AudioTrackInput> input_;
    AudioPiece piece_;   // decoded and not yet converted, while `hasPiece_`
    bool hasPiece_ = false, isAtEnd_ = false;

    std::unique_ptr<AudioConverter> converter_;   // of the run that goes on
    std::int64_t runEnd_ = 0;                     // in samples of the file
    std::int64_t convertedTo_ = 0;                // the frame that the converter gives next

    std::int64_t silence_ = 0;   // frames before those that are ready
    std::vector<float> ready_;
    std::size_t readyAt_ = 0;
    std::int64_t end_ = 0;        // the frame after all that was made
    std::int64_t position_ = 0;   // the frame that is read next
};

AudioReader::AudioReader(const std::filesystem::path& path, const AudioFormat& format)
    : session_(std::make_unique<Session>(path, format)) {}
AudioReader::~AudioReader() = default;
AudioReader::AudioReader(AudioReader&&) noexcept = default;
AudioReader& AudioReader::operator=(AudioReader&&) noexcept = default;
std::size_t AudioReader::read(std::span<float> interleaved) { return session_->read(interleaved); }
void AudioReader::seek(std::int64_t frame) { session_->seek(frame); }
std::int64_t AudioReader::position() const { return session_->position(); }
bool AudioReader::isDamaged() const { return session_->isDamaged(); }

}   // namespace tavix::media
