// Setting and drawing text: per block, per element of a layout, and per letter of a long text.
#include "TavixPlatform/Text/FontBook.h"
#include "TavixRender/KineticText/KineticTextLayout.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

using namespace tavix;

const text::FontBook& book() {
    static const text::FontBook fonts;
    return fonts;
}

KineticTextLayout::Request requestOf(std::string text, AnimationScope scope) {
    KineticTextLayout::Request request;
    request.text = std::move(text);
    request.scope = scope;
    request.width = 1080;
    request.height = 1920;
    request.position = NormalizedPoint{0.5, 0.5};
    request.style.fontSizeFraction = 0.045;
    request.style.fontWeight = FontWeight::semibold;
    return request;
}

std::string words(std::string_view word, std::int64_t count) {
    std::string text;
    for (std::int64_t i = 0; i < count; ++i) text.append(word).append(" ");
    return text;
}

constexpr const char* wordsOfScripts[] = {"kinetic", "عربي", "हिन्दी", "日本語", "🎉"};

// 48 elements, the most there are; the argument chooses the script.
void layout(benchmark::State& state) {
    const auto request = requestOf(words(wordsOfScripts[state.range(0)], 48), AnimationScope::word);
    std::size_t elements = 0;
    for (auto _ : state) {
        const auto result = KineticTextLayout::build(request, book());
        elements += result->elements.size();
    }
    state.counters["perElement"] =
        benchmark::Counter(double(elements), benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(layout)->DenseRange(0, 4)->Unit(benchmark::kMicrosecond);

// The bitmaps of all 48, each drawn alone at a scale.
void draw(benchmark::State& state) {
    const auto result =
        KineticTextLayout::build(requestOf(words("kinetic", 48), AnimationScope::word), book()).value();
    const double scale = double(state.range(0));
    std::size_t elements = 0;
    for (auto _ : state)
        for (const auto& element : result.elements) {
            for (const auto& fragment : element.fragments) {
                const auto region = inkRegion(fragment.line, fragment.origin(), fragment.part(), scale);
                benchmark::DoNotOptimize(
                    drawn(fragment.line, fragment.origin(), fragment.part(), scale, region).view().pixels);
            }
            ++elements;
        }
    state.counters["perElement"] =
        benchmark::Counter(double(elements), benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(draw)->Arg(1)->Arg(3)->Unit(benchmark::kMicrosecond);

// The time of a long text grows with its length alone.
void longText(benchmark::State& state) {
    const text::StyledText text{words("lorem ipsum", state.range(0) / 12), book().interfaceFont(40)};
    for (auto _ : state) benchmark::DoNotOptimize(text::wrappedLines(text, 800).size());
    state.SetComplexityN(state.range(0));
}
BENCHMARK(longText)->RangeMultiplier(4)->Range(1000, 256000)->Complexity()->Unit(benchmark::kMillisecond);

}   // namespace
