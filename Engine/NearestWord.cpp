#include "Engine/NearestWord.h"

#include "TavixCore/Support/TextTrimming.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace tavix::engine {

namespace {

// Letters added, dropped or replaced, and neighbours swapped (optimal string alignment).
std::size_t slips(std::string_view a, std::string_view b) {
    std::vector<std::size_t> before(b.size() + 1), previous(b.size() + 1), current(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) previous[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        current[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const bool same = a[i - 1] == b[j - 1];
            current[j] = std::min({previous[j] + 1, current[j - 1] + 1, previous[j - 1] + (same ? 0 : 1)});
            const bool swapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
            if (swapped) current[j] = std::min(current[j], before[j - 2] + 1);
        }
        before.swap(previous);
        previous.swap(current);
    }
    return previous[b.size()];
}

}   // namespace

std::string_view nearestWord(std::string_view word, std::span<const std::string_view> known) {
    const std::string typed = lowered(word);
    std::string_view nearest;
    std::size_t fewest = 1 + std::max<std::size_t>(word.size() / 3, 1);   // more is another word
    for (const std::string_view candidate : known) {
        const std::string name = lowered(candidate);
        const bool begins = typed.size() >= 2 && name.starts_with(typed);
        const std::size_t count = begins ? 1 : slips(typed, name);
        if (count < fewest) nearest = candidate, fewest = count;
    }
    return nearest;
}

std::string suggestion(std::string_view word, std::span<const std::string_view> known) {
    const std::string_view nearest = nearestWord(word, known);
    return nearest.empty() ? std::string() : " Did you mean " + std::string(nearest) + "?";
}

std::string listed(std::span<const std::string_view> words) {
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i)
        text.append(i == 0 ? "" : i + 1 == words.size() ? " or " : ", ").append(words[i]);
    return text;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) { return lowered(a) == lowered(b); }

}   // namespace tavix::engine
