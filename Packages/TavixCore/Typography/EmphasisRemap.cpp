#include "TavixCore/Typography/EmphasisRemap.h"

#include "TavixCore/Values/TextWords.h"

#include <map>
#include <optional>
#include <string>

namespace tavix::EmphasisRemap {

namespace {

using Places = std::map<std::string, std::vector<std::int64_t>, std::less<>>;

Places placesOf(const std::vector<KineticMath::Word>& words) {
    Places places;
    for (std::size_t i = 0; i < words.size(); ++i) places[words[i].text].push_back(std::int64_t(i));
    return places;
}

// Where each old word stands now.
std::vector<std::optional<std::int64_t>> newPlaces(std::string_view oldText, std::string_view newText) {
    const Places places = placesOf(KineticMath::words(newText));
    std::map<std::string, std::size_t, std::less<>> seen;
    std::vector<std::optional<std::int64_t>> result;
    for (const KineticMath::Word& word : KineticMath::words(oldText)) {
        const std::size_t ordinal = seen[word.text]++;
        const auto found = places.find(word.text);
        result.push_back(found != places.end() && ordinal < found->second.size()
                             ? std::optional(found->second[ordinal])
                             : std::nullopt);
    }
    return result;
}

}   // namespace

std::vector<EmphasisSpan> remap(
    const std::vector<EmphasisSpan>& spans, std::string_view oldText, std::string_view newText) {
    const auto places = newPlaces(oldText, newText);
    std::vector<EmphasisSpan> kept;
    for (const EmphasisSpan& span : spans) {
        EmphasisSpan moved{{}, span.token, span.style};
        for (const std::int64_t index : span.wordIndices)
            if (index >= 0 && index < std::int64_t(places.size()) && places[std::size_t(index)])
                moved.wordIndices.push_back(*places[std::size_t(index)]);
        if (!moved.wordIndices.empty()) kept.push_back(std::move(moved));
    }
    return kept;
}

}   // namespace tavix::EmphasisRemap
