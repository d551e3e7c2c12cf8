// A workload that is none of the product's: what other benchmarks take is told in multiples of it, so that
// figures of one machine may be compared with those of another. It hashes, sorts and adds, in and out of the
// caches.
#include <benchmark/benchmark.h>
#include <xxhash.h>

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <vector>

namespace {

std::vector<std::uint32_t> noise(std::size_t count) {
    std::vector<std::uint32_t> values(count);
    std::uint32_t state = 1;
    for (std::uint32_t& value : values) value = state = state * 1664525u + 1013904223u;
    return values;
}

void reference(benchmark::State& state) {
    const std::vector<std::uint32_t> large = noise(std::size_t{4} << 20),
                                     small = noise(std::size_t{64} << 10);
    std::vector<float> sums(large.size());
    for (auto _ : state) {
        benchmark::DoNotOptimize(XXH3_64bits(large.data(), large.size() * sizeof large[0]));
        std::vector<std::uint32_t> sorted = small;
        std::ranges::sort(sorted);
        benchmark::DoNotOptimize(sorted.data());
        std::ranges::transform(large, sums.begin(), [](std::uint32_t v) { return float(v) * 0.5f; });
        benchmark::DoNotOptimize(std::accumulate(sums.begin(), sums.end(), 0.0f));
    }
}
BENCHMARK(reference)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

}   // namespace
