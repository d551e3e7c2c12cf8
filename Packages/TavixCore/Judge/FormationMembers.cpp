#include "TavixCore/Judge/FormationMembers.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tavix {
namespace {

// What the formations call their layers, before the number.
constexpr std::array<std::string_view, 9> families{
    "fan", "burst-card", "orbit", "domino", "handoff", "tunnel", "cascade", "split", "wave"};
constexpr std::string_view burstPhone = "burst-phone", burstCard = "burst-card";

std::string_view withoutSuffix(std::string_view text, std::string_view suffix) {
    return text.substr(0, text.size() - suffix.size());
}

// "hero-fan" of "hero-fan-12"; empty for an id that no formation gives. A burst's phone goes with its cards.
std::string familyOf(const CompositionLayer& layer) {
    if (!layer.id) return {};
    std::string_view name = *layer.id;
    if (name.ends_with(burstPhone)) return std::string(withoutSuffix(name, burstPhone)).append(burstCard);
    const std::size_t end = name.find_last_not_of("0123456789");
    if (end == std::string_view::npos || end + 1 == name.size() || name[end] != '-') return {};
    name = name.substr(0, end);
    const bool isKnown = std::ranges::any_of(families, [&](std::string_view family) {
        return name.ends_with(family) &&
               (name.size() == family.size() || withoutSuffix(name, family).ends_with('-'));
    });
    return isKnown ? std::string(name) : std::string();
}

}   // namespace

std::vector<std::size_t> formationOfEachLayer(const CompositionScene& scene) {
    std::vector<std::size_t> formations(scene.layers.size(), noFormation);
    std::string previous;
    for (std::size_t l = 0; l < scene.layers.size(); ++l) {
        std::string family = familyOf(scene.layers[l]);
        if (!family.empty() && family == previous) {
            if (formations[l - 1] == noFormation) formations[l - 1] = l - 1;   // one alone is none
            formations[l] = formations[l - 1];
        }
        previous = std::move(family);
    }
    return formations;
}

}   // namespace tavix
