// Inner loops, in pixels per second, over a row that stays in the processor's cache. One thread.
#include "TavixPlatform/Imaging/Kernels/Kernels.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace tavix::imaging {
namespace {

constexpr std::size_t rowPixels = 1920;

struct Rows {
    explicit Rows(std::uint32_t alpha) {
        for (std::size_t i = 0; i < rowPixels + 64; ++i)
            a.push_back(alpha << 24 | std::uint32_t(i * 2654435761u % (alpha + 1)));
        b = a;
    }
    FloatRow planes() {
        return {{floats.data(), floats.data() + rowPixels + 64, floats.data() + 2 * (rowPixels + 64),
            floats.data() + 3 * (rowPixels + 64)}};
    }
    std::vector<std::uint32_t> a, b;
    std::vector<float> floats = std::vector<float>((rowPixels + 64) * 4, 0.5f);
    std::vector<std::uint8_t> bytes = std::vector<std::uint8_t>(rowPixels * 4);
};

template <class Work> void perPixel(benchmark::State& state, std::size_t pixels, const Work& work) {
    for (auto _ : state) {
        work();
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(std::int64_t(state.iterations()) * std::int64_t(pixels));
}

void over(benchmark::State& state) {
    Rows rows(std::uint32_t(state.range(0)));
    perPixel(state, rowPixels,
        [&] { kernels().over(rows.b.data(), rows.a.data(), rowPixels, unsigned(state.range(1))); });
}
BENCHMARK(over)
    ->ArgNames({"alpha", "opacity"})
    ->Args({255, 255})
    ->Args({128, 255})
    ->Args({128, 128})
    ->Args({0, 255});

void sampleShifted(benchmark::State& state) {
    Rows rows(255);
    const std::int64_t one = std::int64_t(1) << 32;
    const SampleLine line{reinterpret_cast<const std::uint8_t*>(rows.a.data()), rowPixels * 4, rowPixels, 1,
        one / 3, 0, one, 0};
    perPixel(state, rowPixels, [&] { kernels().sample(rows.b.data(), line, 0, rowPixels); });
}
BENCHMARK(sampleShifted);

void sampleTurned(benchmark::State& state) {
    Rows rows(255);
    const std::int64_t one = std::int64_t(1) << 32;
    const SampleLine line{
        reinterpret_cast<const std::uint8_t*>(rows.a.data()), 160 * 4, 160, 12, 0, 0, one / 13, one / 170};
    perPixel(state, rowPixels, [&] { kernels().sample(rows.b.data(), line, 0, rowPixels); });
}
BENCHMARK(sampleTurned);

void unpackAndPack(benchmark::State& state) {
    Rows rows(200);
    perPixel(state, rowPixels, [&] {
        kernels().unpack(rows.planes(), rows.a.data(), rowPixels);
        kernels().pack(rows.b.data(), rows.planes(), nullptr, rowPixels);
    });
}
BENCHMARK(unpackAndPack);

void colorControls(benchmark::State& state) {
    Rows rows(200);
    perPixel(state, rowPixels, [&] {
        kernels().colorControls(rows.planes(), {0.1f, 1.2f, 0.8f}, rowPixels);
    });
}
BENCHMARK(colorControls);

void halve(benchmark::State& state) {
    Rows rows(255);
    std::vector<float> out(rowPixels * 2);
    perPixel(
        state, rowPixels / 2, [&] { kernels().halve(out.data(), rows.floats.data(), rowPixels / 2 - 2); });
}
BENCHMARK(halve);

void toYuv420(benchmark::State& state) {
    Rows rows(255);
    std::uint8_t* out = rows.bytes.data();
    const Yuv420Rows planes{out, out + rowPixels, out + 2 * rowPixels, out + 3 * rowPixels};
    const std::vector<std::uint8_t> nearest(rowPixels + 64, 128);
    const RoundingRows rounding{nearest.data(), nearest.data(), nearest.data()};
    perPixel(state, rowPixels * 2,
        [&] { kernels().toYuv420(planes, rows.a.data(), rows.b.data(), false, rounding, rowPixels); });
}
BENCHMARK(toYuv420);

void findRamps(benchmark::State& state) {
    Rows rows(255);
    const std::uint32_t* all[8];
    for (int i = 0; i < 8; ++i) all[i] = i % 2 ? rows.a.data() : rows.b.data();
    perPixel(state, rowPixels * 8, [&] { kernels().findRamps(rows.bytes.data(), all, 8, 8, rowPixels / 8); });
}
BENCHMARK(findRamps);

}   // namespace
}   // namespace tavix::imaging
