#include "TavixCore/Typography/KineticVocabulary.h"

#include "TavixCore/Support/Names.h"
#include "TavixCore/Typography/EmphasisSpan.h"

#include <algorithm>

namespace tavix::KineticVocabulary {

std::vector<std::string_view> speeds() { return allNames<KineticSpeed>(); }
std::vector<std::string_view> weights() { return allNames<KineticWeight>(); }
std::vector<std::string_view> intensities() { return allNames<KineticIntensity>(); }
std::vector<std::string_view> emphasisTokens() { return allNames<EmphasisToken>(); }

std::string_view defaultWeight(std::string_view preset) {
    return nameOf(KineticPresetCatalog::defaultWeight(preset));
}

double cardLengthSeconds(const std::optional<std::string>& length) {
    if (length == "short") return 1.6;
    if (length == "long") return 3.2;
    return 2.5;
}

std::optional<std::string> problem(
    std::string_view token, std::span<const std::string_view> allowed, std::string_view field) {
    if (std::ranges::find(allowed, token) != allowed.end()) return std::nullopt;
    std::string sentence(field);
    sentence.append(": unknown value \"").append(token).append("\" (use ");
    for (const std::string_view& word : allowed)
        sentence.append(&word == allowed.data() ? "" : ", ").append(word);
    return sentence + ")";
}

}   // namespace tavix::KineticVocabulary
