#include "TavixBase/NearestWord.h"

#include "TavixBase/Characters.h"
#include "TavixBase/TextTrimming.h"

#include <algorithm>
#include <numeric>
#include <span>
#include <utility>
#include <vector>

namespace tavix {
namespace {

// Each byte is a character.
bool isPlain(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~'; });
}

// A slip changes a word in a few places: what both begin and end with is passed over, so that only the middle
// is compared letter by letter.
template <class Letter> std::size_t distanceBetween(std::span<const Letter> a, std::span<const Letter> b) {
    const auto begin = std::ranges::mismatch(a, b);
    a = a.subspan(static_cast<std::size_t>(begin.in1 - a.begin()));
    b = b.subspan(static_cast<std::size_t>(begin.in2 - b.begin()));
    while (!a.empty() && !b.empty() && a.back() == b.back())
        a = a.first(a.size() - 1), b = b.first(b.size() - 1);
    constexpr std::size_t mostPairs = 4'000'000;   // beyond, they are not compared: nothing is near so much
    if (a.size() * b.size() > mostPairs) return std::max(a.size(), b.size());
    std::vector<std::size_t> row(b.size() + 1);   // from the first i letters of `a` to each start of `b`
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
    if (isPlain(a) && isPlain(b)) return distanceBetween(std::span<const char>(a), std::span<const char>(b));
    const std::vector<std::string_view> ours = characters(a), theirs = characters(b);
    return distanceBetween(
        std::span<const std::string_view>(ours), std::span<const std::string_view>(theirs));
}

std::optional<std::string_view> nearestWord(
    std::string_view word, std::span<const std::string_view> candidates) {
    constexpr std::size_t shortWord = 6, shortWordLimit = 2;
    const std::string typed = lowered(word);
    const std::size_t length = characters(typed).size();
    std::size_t nearest = (length < shortWord ? shortWordLimit : length / 3) + 1;
    std::optional<std::string_view> found;
    for (const std::string_view candidate : candidates) {
        const std::size_t other = characters(candidate).size();
        if (std::max(length, other) - std::min(length, other) >= nearest) continue;
        const std::size_t distance = editDistance(typed, lowered(candidate));
        if (distance >= nearest) continue;
        nearest = distance;
        found = candidate;
    }
    return found;
}

std::optional<std::string> didYouMean(std::string_view word, std::span<const std::string_view> candidates) {
    const auto nearest = nearestWord(word, candidates);
    return nearest ? std::optional("Did you mean \"" + std::string(*nearest) + "\"?") : std::nullopt;
}

}   // namespace tavix
