// A live preview at 540 x 960, in milliseconds of all threads together: frames of examples as they are
// played, one after another, and as they are drawn once they are in memory; and a light edit with its
// picture, on a stage that goes on from the document before and on one that begins anew.
#include "Cost.h"
#include "TavixCore/Judge/CompositionRoad.h"
#include "TavixCore/Project/CompositionProjectService.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixLive/Stage/Stage.h"
#include "TestSupport/SourceTree.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

namespace tavix {
namespace {

constexpr imaging::Size room{540, 960};

struct Film {
    explicit Film(const char* name)
        : bundle(testsupport::inSourceTree("Examples") / (std::string(name) + ".tavixcomp")),
          spec(CompositionRoad::judge(CompositionProjectService::load(bundle).spec, bundle).spec) {}
    std::filesystem::path bundle;
    CompositionSpec spec;
};

// The mean of a frame, and that of the dearest tenth of a second.
void play(benchmark::State& state, const char* name, FrameQuality quality, std::size_t storeBytes) {
    const Film film(name);
    Stage stage({.evaluation = {}, .storeBytes = storeBytes}, {});
    const FrameSourceRef source = stage.source(film.spec, film.bundle, room);
    const int frames = int(source->totalSec() * 30);
    double worstSec = 0;
    const auto whole = [&] {
        for (int i = 0; i < frames; i += 3)
            worstSec = std::max(worstSec, benchmarks::measured([&] {
                for (int j = i; j < std::min(i + 3, frames); ++j) source->draw(j / 30.0, quality);
            }).cpuSec / 3);
    };
    if (storeBytes > 0) whole();
    worstSec = 0;
    double cpuSec = 0;
    for (auto _ : state) cpuSec += benchmarks::measured(whole).cpuSec;
    state.counters["cpuMs"] = cpuSec * 1000 / (double(state.iterations()) * frames);
    state.counters["dearestCpuMs"] = worstSec * 1000;
}

// To and fro over the film, in steps that no frame before helps with.
void scrub(benchmark::State& state, const char* name) {
    const Film film(name);
    Stage stage({.evaluation = {}, .storeBytes = 0}, {});
    const FrameSourceRef source = stage.source(film.spec, film.bundle, room);
    std::vector<double> cpuSec;
    double part = 0.1;
    for (auto _ : state)
        for (int i = 0; i < 60; ++i, part = std::fmod(part + 0.618033988749895, 1))
            cpuSec.push_back(benchmarks::measured([&] {
                source->draw(part * source->totalSec(), FrameQuality::scrub);
            }).cpuSec);
    std::ranges::sort(cpuSec);
    state.counters["medianCpuMs"] = cpuSec[cpuSec.size() / 2] * 1000;
    state.counters["p95CpuMs"] = cpuSec[cpuSec.size() * 95 / 100] * 1000;
}

// From a document that has been read to its first picture; the first film of a program also loads what all
// films share.
void open(benchmark::State& state, const char* name) {
    const Film film(name);
    double cpuSec = 0;
    for (auto _ : state)
        cpuSec += benchmarks::measured([&] {
            Stage stage({}, {});
            stage.source(film.spec, film.bundle, room)->draw(0, FrameQuality::full);
        }).cpuSec;
    state.counters["cpuMs"] = cpuSec * 1000 / double(state.iterations());
}

void edit(benchmark::State& state, const char* name, bool takesOver) {
    Film film(name);
    Stage stage({.evaluation = {}, .takesOver = takesOver}, {});
    const CompositionTimeline timeline(film.spec);
    stage.source(film.spec, film.bundle, room)->draw(1, FrameQuality::full);
    double cpuSec = 0;
    int step = 0;
    for (auto _ : state) {
        for (CompositionLayer& layer : film.spec.scenes[0].layers) layer.opacity = 0.5 + 0.01 * (++step % 40);
        cpuSec += benchmarks::measured([&] {
            stage.source(film.spec, film.bundle, room)->draw(timeline.startSec[0] + 1, FrameQuality::full);
        }).cpuSec;
    }
    state.counters["cpuMs"] = cpuSec * 1000 / double(state.iterations());
}

const int registered = [] {
    for (const char* name : {"hero-phone", "phone-tour", "kinetic-type", "on-the-beat"}) {
        const auto named = [&](const char* what) { return std::string(what) + "/" + name; };
        const auto once = [](auto* made) { made->Iterations(1)->Unit(benchmark::kMillisecond); };
        once(benchmark::RegisterBenchmark(named("scrub").c_str(), scrub, name));
        once(benchmark::RegisterBenchmark(named("open").c_str(), open, name));
        once(benchmark::RegisterBenchmark(named("playFull").c_str(), play, name, FrameQuality::full, 0));
        once(benchmark::RegisterBenchmark(named("playRough").c_str(), play, name, FrameQuality::rough, 0));
        once(benchmark::RegisterBenchmark(
            named("playFromMemory").c_str(), play, name, FrameQuality::full, std::size_t(1) << 30));
        benchmark::RegisterBenchmark(named("editGoingOn").c_str(), edit, name, true)->Iterations(20);
        benchmark::RegisterBenchmark(named("editAnew").c_str(), edit, name, false)->Iterations(3);
    }
    return 0;
}();

}   // namespace
}   // namespace tavix
