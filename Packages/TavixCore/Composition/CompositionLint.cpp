#include "TavixCore/Composition/CompositionLint.h"

#include "TavixCore/Composition/Lint/LintRules.h"
#include "TavixCore/Support/TextTrimming.h"
#include "TavixCore/Typography/TextWords.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <utility>

namespace tavix::CompositionLint {
namespace {

// A background has no rules.
void checkContent(const LayerScope&, const BackgroundFill&, LintReport&) {}

void checkLayers(const SceneScope& scope, LintReport& report) {
    const KeyPath layersAt(scope.at, "layers");
    for (std::size_t l = 0; l < scope.scene().layers.size(); ++l) {
        const KeyPath at(layersAt, l);
        const LayerScope layer{scope, scope.scene().layers[l], at};
        checkWindow(layer, report);
        checkTracks(layer, report);
        checkEffects(layer, report);
        std::visit([&](const auto& content) { checkContent(layer, content, report); }, layer.layer.content);
    }
}

void checkScene(const SceneScope& scope, LintReport& report) {
    checkSceneLength(scope, report);
    checkTransition(scope, report);
    checkMarks(scope, report);
    checkBeats(scope, report);
    checkLayers(scope, report);
    checkSceneTotals(scope, report);
}

// Each byte is a character.
bool isPlain(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~'; });
}

template <class Characters> std::size_t distanceBetween(const Characters& a, const Characters& b) {
    std::vector<std::size_t> row(b.size() + 1);   // from the first i characters of `a` to each start of `b`
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t replaced = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

}   // namespace

std::vector<Finding> lint(const CompositionSpec& spec) {
    LintReport report;
    const KeyPath root, scenesAt(root, "scenes");
    checkOutput(spec, report);
    if (spec.scenes.empty()) {
        report.error(scenesAt, "A composition needs at least one scene.");
        return std::move(report).findings();
    }
    for (std::size_t i = 0; i < spec.scenes.size(); ++i) {
        const KeyPath at(scenesAt, i);
        checkScene({spec, i, at}, report);
    }
    const CompositionTimeline timeline(spec);
    checkAccents(spec, report);
    checkTotalLength(timeline, report);
    checkCutsOnBeat(spec, timeline, report);
    checkAudio(spec, timeline, report);
    return std::move(report).findings();
}

std::string fmt(double number) {
    constexpr double largestWhole = 9.0e18;   // what an integer holds
    if (std::abs(number) < largestWhole && number == std::trunc(number))
        return std::to_string(static_cast<std::int64_t>(number));
    std::array<char, 32> text{};   // not printf: its decimal point is the locale's
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::general, 3);
    return {text.data(), end.ptr};
}

std::size_t editDistance(std::string_view a, std::string_view b) {
    if (isPlain(a) && isPlain(b)) return distanceBetween(a, b);
    return distanceBetween(KineticMath::characters(a), KineticMath::characters(b));
}

std::optional<std::string> didYouMean(std::string_view word, std::span<const std::string_view> candidates) {
    constexpr std::size_t longestName = 200;   // bytes; what is longer is no slip of the fingers
    constexpr std::size_t shortWord = 6, shortWordLimit = 2;
    if (word.size() > longestName) return std::nullopt;
    const std::string typed = lowered(word);
    const std::size_t length = KineticMath::characters(typed).size();
    std::size_t nearest = (length < shortWord ? shortWordLimit : length / 3) + 1;
    std::optional<std::string> suggestion;
    for (const std::string_view candidate : candidates) {
        if (candidate.size() > longestName) continue;
        const std::size_t distance = editDistance(typed, lowered(candidate));
        if (distance >= nearest) continue;
        nearest = distance;
        suggestion = "Did you mean \"" + std::string(candidate) + "\"?";
    }
    return suggestion;
}

}   // namespace tavix::CompositionLint
