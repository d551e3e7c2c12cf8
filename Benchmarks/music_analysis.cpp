// Listening to music, as minutes of it a second.
#include "TavixCore/Values/SeededRandom.h"
#include "TavixRender/MusicAnalysis/MusicAnalyzer.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

namespace {

constexpr double rateHz = 22050, beatSec = 0.5;

// Bursts of noise on a beat.
std::vector<float> music(double minutes) {
    tavix::SeededRandom random(3);
    std::vector<float> samples(static_cast<std::size_t>(minutes * 60 * rateHz));
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double sec = std::fmod(static_cast<double>(i) / rateHz, beatSec);
        samples[i] = static_cast<float>(random.next(-0.5, 0.5) * std::exp(-sec / 0.08));
    }
    return samples;
}

void analyze(benchmark::State& state) {
    const auto minutes = static_cast<double>(state.range(0));
    const std::vector<float> samples = music(minutes);
    for (auto _ : state) benchmark::DoNotOptimize(tavix::MusicAnalyzer::analyze(samples, rateHz));
    state.counters["minutes/s"] = benchmark::Counter(minutes, benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(analyze)->Arg(1)->Arg(4)->Unit(benchmark::kMillisecond);

}   // namespace
