#include "TavixRender/Audio/CompositionAudioMuxer.h"

#include "TavixBase/Failure.h"
#include "TavixPlatform/Media/AudioMixer.h"
#include "TavixPlatform/Media/AudioReader.h"
#include "TavixPlatform/Media/AudioWriter.h"
#include "TavixPlatform/Media/Remux.h"
#include "TavixRender/Assets/BundledSounds.h"
#include "TavixRender/Assets/CompositionAssets.h"
#include "TavixRender/Encoding/FrameOutput.h"
#include "TavixRender/Encoding/HiddenFile.h"
#include "TavixRender/Encoding/RenderStopped.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <map>
#include <numeric>
#include <random>
#include <utility>

namespace tavix::CompositionAudioMuxer {

namespace {

namespace fs = std::filesystem;

// Shorter than this is not worth a clip or a fade.
constexpr double shortestMusicSec = 0.01, shortestFadeSec = 0.01, shortestCueSec = 0.001;
constexpr double movieTimescale = 600;   // in which the music's place in its file is told

double atMovieTime(double sec) { return std::round(sec * movieTimescale) / movieTimescale; }

// How long the sounds of files are. Each file is opened once, and one that cannot be heard is named once.
class Lengths {
public:
    explicit Lengths(const RenderLog& log) : log_(log) {}

    // In seconds; nothing when there is no sound. `path` is where the document asks for it.
    std::optional<double> of(const fs::path& file, const std::string& path) {
        const auto [known, isNew] = byFile_.try_emplace(file);
        if (isNew) known->second = probe(file, path);
        return known->second;
    }

private:
    std::optional<double> probe(const fs::path& file, const std::string& path) const {
        std::string fault = "There is no sound in \"" + file.string() + "\".";
        try {
            if (const auto info = media::probeAudio(file)) return info->durationSec;
        } catch (const media::MediaError& error) {
            fault = error.what();
        }
        tell(placedAt(path, log_),
            Finding::warning(RenderCode::soundMissing, std::move(fault), file.string()));
        return std::nullopt;
    }

    const RenderLog& log_;
    std::map<fs::path, std::optional<double>> byFile_;
};

bool addMusic(const MusicBed& music, media::AudioTimeline& to, const fs::path& file, double totalSec,
    Lengths& lengths) {
    const std::optional<double> durationSec = lengths.of(file, "audio.music");
    if (!durationSec) return false;
    const double start = atMovieTime(music.startAtSec);
    const double length = atMovieTime(std::min(*durationSec - start, totalSec));
    if (!(length > shortestMusicSec)) return false;
    media::AudioTrack track;
    track.clips.push_back({file, to.frameAt(start), 0, to.frameAt(length)});
    if (music.fadeInSec > shortestFadeSec)
        track.volume.ramp(0, to.frameAt(music.fadeInSec), 0, music.gain);
    else
        track.volume.set(0, music.gain);
    const double fadeOut = std::min(music.fadeOutSec, length);
    if (fadeOut > shortestFadeSec) {
        const std::int64_t from = to.frameAt(length - fadeOut);
        track.volume.ramp(from, to.frameAt(length) - from, music.gain, 0);
    }
    to.tracks.push_back(std::move(track));
    return true;
}

std::optional<fs::path> fileOf(const SoundCue& cue, const AssetRoot& assetRoot) {
    if (const auto sound = cue.resolvedSound()) return BundledSounds::url(*sound);
    return CompositionAssets::resolved(cue.sound, assetRoot);
}

// A track that holds cues one after another without overlap.
struct Lane {
    std::size_t track;
    double freeAt;   // seconds
};

std::string uuid() {
    std::random_device random;
    std::array<unsigned, 4> words{};
    for (unsigned& word : words) word = random();
    char text[40];
    std::snprintf(text, sizeof text, "%08X-%04X-4%03X-%04X-%04X%08X", words[0], words[1] >> 16,
        words[1] & 0xFFF, 0x8000 | (words[2] >> 16 & 0x3FFF), words[2] & 0xFFFF, words[3]);
    return text;
}

void checkStop(const std::stop_token& stop) {
    if (stop.stop_requested()) throw RenderStopped();
}

double pictureLength(const fs::path& visual) try {
    if (const auto sec = media::pictureDurationSec(visual)) return *sec;
    throw Failure("The rendered visual file has no video track.");
} catch (const media::MediaError& error) {
    throw Failure(error.what());
}

}   // namespace

bool insertAudio(const CompositionAudio& audio, media::AudioTimeline& into, const AssetRoot& assetRoot,
    double totalSec, const RenderLog& log) {
    into.frames = std::max(into.frames, into.frameAt(totalSec));
    bool hasMusic = false;
    if (audio.music && !audio.music->path.empty()) {
        Lengths lengths(log);
        const fs::path file = CompositionAssets::resolved(audio.music->path, assetRoot);
        hasMusic = addMusic(*audio.music, into, file, totalSec, lengths);
    }
    return addCues(audio.cues, into, assetRoot, totalSec, log) || hasMusic;
}

bool addCues(const std::vector<SoundCue>& cues, media::AudioTimeline& to, const AssetRoot& assetRoot,
    double totalSec, const RenderLog& log) {
    std::vector<std::size_t> byTime(cues.size());
    std::iota(byTime.begin(), byTime.end(), std::size_t{0});
    std::ranges::stable_sort(byTime, {}, [&](std::size_t i) { return cues[i].atSec; });
    Lengths lengths(log);
    std::vector<Lane> lanes;
    for (const std::size_t i : byTime) {
        const SoundCue& cue = cues[i];
        if (!(cue.atSec >= 0 && cue.atSec < totalSec)) continue;
        const std::optional<fs::path> file = fileOf(cue, assetRoot);
        if (!file) continue;
        const std::optional<double> durationSec = lengths.of(*file, "audio.cues[" + std::to_string(i) + "]");
        if (!durationSec) continue;
        const double end = cue.atSec + std::min(*durationSec, totalSec - cue.atSec);
        if (!(end - cue.atSec > shortestCueSec)) continue;
        auto lane =
            std::find_if(lanes.begin(), lanes.end(), [&](const Lane& l) { return l.freeAt <= cue.atSec; });
        if (lane == lanes.end()) {
            lane = lanes.insert(lane, {to.tracks.size(), 0});
            to.tracks.emplace_back();
        }
        lane->freeAt = end;
        const std::int64_t at = to.frameAt(cue.atSec);
        media::AudioTrack& track = to.tracks[lane->track];
        track.clips.push_back({*file, 0, at, to.frameAt(end) - at});
        track.volume.set(at, cue.gain);
    }
    return !lanes.empty();
}

bool renderAudioMix(const Mix& mix, double lengthSec, const fs::path& file, const RenderLog& log,
    const std::stop_token& stop, ExportContainer container) {
    media::AudioTimeline timeline;
    if (!insertAudio(mix.audio, timeline, mix.assetRoot, mix.totalSec, log)) return false;
    timeline.frames = timeline.frameAt(lengthSec);
    const media::AudioFormat format = timeline.format;
    FrameOutput::makeRoomFor(file);
    try {
        const bool isOpus = container == ExportContainer::webm;
        media::AudioSettings settings{file, format};
        settings.codec = isOpus ? media::AudioCodec::opus : media::AudioCodec::aac;
        media::AudioWriter writer(settings);
        media::AudioMixer mixer(std::move(timeline), [&](const std::string& sentence) {
            tell(log, Finding::warning(RenderCode::soundDamaged, sentence));
        });
        std::vector<float> second(static_cast<std::size_t>(format.sampleRate * format.channels));
        for (std::size_t samples = second.size(); samples == second.size();) {
            checkStop(stop);
            samples = mixer.read(second) * static_cast<std::size_t>(format.channels);
            writer.append(std::span(second).first(samples));
        }
        writer.finish();
    } catch (const media::MediaError& error) {
        throw Failure(error.what());
    }
    return true;
}

void remux(const fs::path& visual, const fs::path& audio, const fs::path& output, ExportContainer container,
    const std::stop_token& stop) {
    pictureLength(visual);   // says when there is no picture
    constexpr media::MovieContainer containers[] = {
        media::MovieContainer::mp4, media::MovieContainer::mov, media::MovieContainer::webm};
    try {
        media::remux({visual, audio, output, containers[std::size_t(container)]}, [&] { checkStop(stop); });
    } catch (const media::MediaError& error) {
        throw Failure(error.what());
    }
}

void mux(const fs::path& visual, const Mix& mix, const fs::path& output, ExportContainer container,
    const RenderLog& log, const std::stop_token& stop) {
    const HiddenFile sound(output, ".tavix-audio-mix-" + uuid() + ".m4a");
    try {
        if (renderAudioMix(mix, pictureLength(visual), sound.path(), log, stop, container)) {
            remux(visual, sound.path(), output, container, stop);
            tell(log, Finding::note(RenderCode::soundAdded, "muxed music/cues under the visual track"));
            return;
        }
    } catch (const RenderStopped&) {
        throw;
    } catch (const Failure& failure) {
        throw Failure(sound.unnamed(failure.what()));
    }
    if (visual != output) {
        std::error_code error;
        fs::rename(visual, output, error);
        if (error) throw Failure("Could not write " + output.string() + ": " + error.message() + ".");
    }
    tell(log, Finding::note(RenderCode::soundAbsent, "no playable audio — output stays silent"));
}

}   // namespace tavix::CompositionAudioMuxer
