// Minutes of sound per second of one core: decoding alone, mixing, coding.
#include "TavixPlatform/Media/AudioMixer.h"
#include "TavixPlatform/Media/AudioReader.h"
#include "TavixPlatform/Media/AudioWriter.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace {

using namespace tavix::media;

constexpr AudioFormat studio{48000, 2};
constexpr int musicSec = 120;

// Chords that swell and fade: as hard to code as music is. Files of the same content, made once.
class Sounds {
public:
    Sounds() {
        std::string name = (std::filesystem::temp_directory_path() / "tavix-bench-XXXXXX").string();
        folder_ = ::mkdtemp(name.data());
        write(studioMusic(), studio);
        write(cdMusic(), {44100, 2});
    }
    ~Sounds() { std::filesystem::remove_all(folder_); }
    std::filesystem::path studioMusic() const { return folder_ / "studio.m4a"; }
    std::filesystem::path cdMusic() const { return folder_ / "cd.m4a"; }
    std::filesystem::path scratch() const { return folder_ / "scratch.m4a"; }

    static std::vector<float> second(int index, const AudioFormat& format) {
        std::vector<float> samples;
        for (int i = 0; i < format.sampleRate; ++i) {
            const double t = index + double(i) / format.sampleRate;
            double sum = 0;
            for (const double hz : {110.0, 277.2, 329.6, 1318.5, 5274.0})
                sum += 0.15 * std::sin(6.2831853 * hz * t) * (0.6 + 0.4 * std::sin(t * hz / 50));
            for (int channel = 0; channel < format.channels; ++channel)
                samples.push_back(static_cast<float>(sum));
        }
        return samples;
    }

private:
    static void write(const std::filesystem::path& path, const AudioFormat& format) {
        AudioWriter writer({path, format});
        for (int i = 0; i < musicSec; ++i) writer.append(second(i, format));
        writer.finish();
    }
    std::filesystem::path folder_;
};

const Sounds& sounds() {
    static const Sounds made;
    return made;
}

template <class Source> std::int64_t readAll(Source& source) {
    std::vector<float> block(2 * 4096);
    std::int64_t frames = 0;
    for (std::size_t got = 1; got > 0; frames += static_cast<std::int64_t>(got)) got = source.read(block);
    return frames;
}

void countMinutes(benchmark::State& state, std::int64_t frames) {
    if (frames != std::int64_t{musicSec} * studio.sampleRate) state.SkipWithError("wrong length");
    state.counters["minutesPerSec"] =
        benchmark::Counter(double(state.iterations()) * musicSec / 60, benchmark::Counter::kIsRate);
}

void decode(benchmark::State& state) {
    std::int64_t frames = 0;
    const auto file = sounds().studioMusic();
    for (auto _ : state) {
        AudioReader reader(file, studio);
        frames = readAll(reader);
    }
    countMinutes(state, frames);
}
BENCHMARK(decode)->Unit(benchmark::kMillisecond);

void decodeAndResample(benchmark::State& state) {
    std::int64_t frames = 0;
    const auto file = sounds().cdMusic();
    for (auto _ : state) {
        AudioReader reader(file, studio);
        frames = readAll(reader);
    }
    countMinutes(state, frames);
}
BENCHMARK(decodeAndResample)->Unit(benchmark::kMillisecond);

// Music with fades under as many lanes of short cues as the argument says.
AudioTimeline timelineOf(std::int64_t lanes, double gain) {
    AudioTimeline timeline{studio, {}, std::int64_t{musicSec} * studio.sampleRate};
    AudioTrack music{{{sounds().studioMusic(), 0, 0, timeline.frames}}, {}};
    music.volume.ramp(0, studio.sampleRate, 0, gain);
    music.volume.ramp(timeline.frames - 2 * studio.sampleRate, 2 * studio.sampleRate, gain, 0);
    timeline.tracks.push_back(music);
    for (std::int64_t lane = 0; lane < lanes; ++lane) {
        AudioTrack track;
        for (std::int64_t at = lane * 5000; at + 48'000 < timeline.frames; at += 4 * 48'000)
            track.clips.push_back({sounds().studioMusic(), 0, at, 24'000});
        timeline.tracks.push_back(track);
    }
    return timeline;
}

void mix(benchmark::State& state) {
    std::int64_t frames = 0;
    const AudioTimeline timeline = timelineOf(state.range(0), 0.5);
    for (auto _ : state) {
        AudioMixer mixer(timeline);
        frames = readAll(mixer);
    }
    countMinutes(state, frames);
}
BENCHMARK(mix)->Arg(0)->Arg(4)->Unit(benchmark::kMillisecond);

// Twice as loud as full scale.
void mixAndLimit(benchmark::State& state) {
    std::int64_t frames = 0;
    const AudioTimeline timeline = timelineOf(0, 3);
    for (auto _ : state) {
        AudioMixer mixer(timeline);
        frames = readAll(mixer);
    }
    countMinutes(state, frames);
}
BENCHMARK(mixAndLimit)->Unit(benchmark::kMillisecond);

void encode(benchmark::State& state) {
    std::vector<std::vector<float>> seconds;
    for (int i = 0; i < 10; ++i) seconds.push_back(Sounds::second(i, studio));
    for (auto _ : state) {
        AudioWriter writer({sounds().scratch(), studio});
        for (int i = 0; i < musicSec; ++i) writer.append(seconds[static_cast<std::size_t>(i % 10)]);
        writer.finish();
    }
    countMinutes(state, std::int64_t{musicSec} * studio.sampleRate);
}
BENCHMARK(encode)->Unit(benchmark::kMillisecond);

}   // namespace
