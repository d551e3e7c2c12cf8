#include "Engine/Console/Words.h"

#include "TavixBase/NearestWord.h"
#include "TavixBase/TextTrimming.h"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace tavix::engine {

namespace {

constexpr std::size_t shortestBeginning = 2;   // bytes; one letter begins too many words

std::optional<std::string_view> meantBy(std::string_view word, std::span<const std::string_view> known) {
    const std::string typed = lowered(word);
    const auto begun =
        std::ranges::find_if(known, [&](std::string_view name) { return lowered(name).starts_with(typed); });
    if (typed.size() >= shortestBeginning && begun != known.end()) return *begun;
    return nearestWord(word, known);
}

}   // namespace

std::string suggestion(std::string_view word, std::span<const std::string_view> known) {
    const std::optional<std::string_view> meant = meantBy(word, known);
    return meant ? " Did you mean " + std::string(*meant) + "?" : std::string();
}

std::string listed(std::span<const std::string_view> words) {
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i)
        text.append(i == 0 ? "" : i + 1 == words.size() ? " or " : ", ").append(words[i]);
    return text;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) { return lowered(a) == lowered(b); }

}   // namespace tavix::engine
