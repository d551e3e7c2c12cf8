#include "TavixPlatform/Media/AudioMixer.h"

#include "TavixPlatform/Imaging/StopScope.h"
#include "TavixPlatform/Media/AudioReader.h"
#include "TavixPlatform/Media/PeakLimiter.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

namespace tavix::media {
namespace {

constexpr double mostMissingSec = 0.25;     // files round how long they are
constexpr std::size_t blockFrames = 2048;   // mixed at a time; small enough to stay in the nearest cache

class Complaints {
public:
    explicit Complaints(AudioMixer::Complaint told) : told_(std::move(told)) {}
    void add(const std::filesystem::path& file, const std::string& sentence) {
        if (files_.insert(file).second && told_) told_(sentence);
    }

private:
    AudioMixer::Complaint told_;
    std::set<std::filesystem::path> files_;
};

// Plays the clips of one track after each other. At most one file is open.
class TrackPlayer {
public:
    TrackPlayer(const AudioTrack& track, const AudioFormat& format) : track_(track), format_(format) {}

    void reset() {
        clip_ = 0;
        reader_.reset();
        isOpen_ = false;
        missing_ = 0;
    }

    // Adds the frames from `start` on to `mix`. Starts rise from call to call, without gaps.
    void addTo(std::span<float> mix, std::int64_t start, Complaints& complaints) {
        const std::int64_t end = start + std::ssize(mix) / format_.channels;
        for (; clip_ < track_.clips.size(); ++clip_, close(complaints)) {
            const AudioClip& clip = track_.clips[clip_];
            if (clip.at >= end) return;
            const std::int64_t from = std::max(start, clip.at), to = std::min(end, clip.at + clip.frames);
            if (from < to)
                add(clip, mix.subspan(samples(from - start), samples(to - from)), from, complaints);
            if (clip.at + clip.frames > end) return;
        }
    }

private:
    std::size_t samples(std::int64_t frames) const {
        return static_cast<std::size_t>(frames) * static_cast<std::size_t>(format_.channels);
    }

    void add(const AudioClip& clip, std::span<float> mix, std::int64_t from, Complaints& complaints) {
        if (!std::exchange(isOpen_, true)) open(clip, from, complaints);
        if (!reader_) return;
        sound_.resize(mix.size());
        const std::size_t frames = read(clip, complaints);
        missing_ += mix.size() / static_cast<std::size_t>(format_.channels) - frames;
        volumes_.resize(frames);
        track_.volume.fill(from, volumes_);
        const auto channels = static_cast<std::size_t>(format_.channels);
        for (std::size_t frame = 0; frame < frames; ++frame)
            for (std::size_t i = 0; i < channels; ++i)
                mix[frame * channels + i] += sound_[frame * channels + i] * volumes_[frame];
    }

    void open(const AudioClip& clip, std::int64_t from, Complaints& complaints) {
        try {
            reader_.emplace(clip.file, format_);
            reader_->seek(clip.fileStart + from - clip.at);
        } catch (const MediaError& error) {
            reader_.reset();
            complaints.add(clip.file, error.what());
        }
    }

    std::size_t read(const AudioClip& clip, Complaints& complaints) {
        try {
            return reader_->read(sound_);
        } catch (const MediaError& error) {
            reader_.reset();
            complaints.add(clip.file, error.what());
            return 0;
        }
    }

    void close(Complaints& complaints) {
        const AudioClip& clip = track_.clips[clip_ - 1];
        const std::string sound = "the sound \"" + clip.file.string() + "\"";
        if (reader_ && reader_->isDamaged())
            complaints.add(clip.file, "Parts of " + sound + " are damaged; they are silent.");
        else if (reader_ && double(missing_) > mostMissingSec * format_.sampleRate)
            complaints.add(clip.file, "The end of " + sound + " is missing; it is silent from there on.");
        reader_.reset();
        isOpen_ = false;
        missing_ = 0;
    }

    const AudioTrack& track_;
    const AudioFormat& format_;
    std::size_t clip_ = 0;
    bool isOpen_ = false;                 // whether the clip's file was tried
    std::size_t missing_ = 0;             // frames that the clip should have had
    std::optional<AudioReader> reader_;   // of the clip that plays, when its file can be read
    std::vector<float> sound_, volumes_;
};

}   // namespace

class AudioMixer::Session {
public:
    Session(AudioTimeline timeline, Complaint complain)
        : timeline_(std::move(timeline)), complaints_(std::move(complain)), limiter_(timeline_.format) {
        for (const AudioTrack& track : timeline_.tracks) players_.emplace_back(track, timeline_.format);
        seek(0);
    }

    void seek(std::int64_t frame) {
        for (TrackPlayer& player : players_) player.reset();
        limiter_.reset();
        position_ = mixed_ = std::clamp(frame, std::int64_t{0}, timeline_.frames);
        std::vector<float> silence(static_cast<std::size_t>(limiter_.latencyFrames()) * channels());
        mix(silence);   // the limiter is late by as much
    }

    std::size_t read(std::span<float> out) {
        const auto left = static_cast<std::size_t>(timeline_.frames - position_);
        const std::size_t frames = std::min(out.size() / channels(), left);
        for (std::size_t done = 0; done < frames; done += blockFrames)
            mix(out.subspan(done * channels(), std::min(blockFrames, frames - done) * channels()));
        position_ += static_cast<std::int64_t>(frames);
        return frames;
    }

    std::int64_t position() const { return position_; }

private:
    std::size_t channels() const { return static_cast<std::size_t>(timeline_.format.channels); }

    void mix(std::span<float> out) {
        imaging::checkStop();
        std::fill(out.begin(), out.end(), 0.0F);
        const auto left = static_cast<std::size_t>(timeline_.frames - mixed_) * channels();
        const std::span<float> heard = out.first(std::min(out.size(), left));
        for (TrackPlayer& player : players_) player.addTo(heard, mixed_, complaints_);
        mixed_ += static_cast<std::int64_t>(heard.size() / channels());
        limiter_.process(out);
    }

    const AudioTimeline timeline_;
    Complaints complaints_;
    PeakLimiter limiter_;
    std::vector<TrackPlayer> players_;
    std::int64_t position_ = 0;   // of the reader
    std::int64_t mixed_ = 0;      // what went into the limiter
};

AudioMixer::AudioMixer(AudioTimeline timeline, Complaint complain)
    : session_(std::make_unique<Session>(std::move(timeline), std::move(complain))) {}
AudioMixer::~AudioMixer() = default;
std::size_t AudioMixer::read(std::span<float> interleaved) { return session_->read(interleaved); }
void AudioMixer::seek(std::int64_t frame) { session_->seek(frame); }
std::int64_t AudioMixer::position() const { return session_->position(); }

}   // namespace tavix::media
