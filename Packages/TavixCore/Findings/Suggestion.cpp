#include "TavixCore/Findings/Suggestion.h"

#include "TavixCore/Support/TextTrimming.h"
#include "TavixCore/Values/TextWords.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace tavix::CompositionLint {
namespace {

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

std::size_t editDistance(std::string_view a, std::string_view b) {
    if (isPlain(a) && isPlain(b)) return distanceBetween(a, b);
    return distanceBetween(KineticMath::characters(a), KineticMath::characters(b));
}

std::optional<std::string_view> nearestOf(
    std::string_view word, std::span<const std::string_view> candidates) {
    constexpr std::size_t longestName = 200;   // bytes; what is longer is no slip of the fingers
    constexpr std::size_t shortWord = 6, shortWordLimit = 2;
    if (word.size() > longestName) return std::nullopt;
    const std::string typed = lowered(word);
    const std::size_t length = KineticMath::characters(typed).size();
    std::size_t nearest = (length < shortWord ? shortWordLimit : length / 3) + 1;
    std::optional<std::string_view> found;
    for (const std::string_view candidate : candidates) {
        if (candidate.size() > longestName) continue;
        const std::size_t distance = editDistance(typed, lowered(candidate));
        if (distance >= nearest) continue;
        nearest = distance;
        found = candidate;
    }
    return found;
}

std::optional<std::string> didYouMean(std::string_view word, std::span<const std::string_view> candidates) {
    const auto nearest = nearestOf(word, candidates);
    return nearest ? std::optional("Did you mean \"" + std::string(*nearest) + "\"?") : std::nullopt;
}

}   // namespace tavix::CompositionLint
