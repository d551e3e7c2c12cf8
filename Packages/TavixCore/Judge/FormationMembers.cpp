#include "TavixCore/Judge/FormationMembers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <string>
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

// What an id says of a layer's place in a formation: "hero-fan" and 12 of "hero-fan-12". A burst's phone
// comes before its cards.
struct Member {
    std::string family;
    int number = 0;
};

std::optional<Member> memberOf(const CompositionLayer& layer) {
    if (!layer.id) return std::nullopt;
    std::string_view name = *layer.id;
    if (name.ends_with(burstPhone))
        return Member{std::string(withoutSuffix(name, burstPhone)).append(burstCard), -1};
    const std::size_t dash = name.rfind('-');
    if (dash == std::string_view::npos) return std::nullopt;
    const std::string_view digits = name.substr(dash + 1);
    Member member;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), member.number);
    if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
    name = name.substr(0, dash);
    const bool isKnown = std::ranges::any_of(families, [&](std::string_view family) {
        return name.ends_with(family) &&
               (name.size() == family.size() || withoutSuffix(name, family).ends_with('-'));
    });
    if (!isKnown) return std::nullopt;
    member.family = name;
    return member;
}

bool isBakedFormation(const CompositionLayer& layer) {
    return layer.origin.baked == LayerOrigin::Baked::formation;
}

// Of neighbours.
bool belongTogether(const CompositionLayer& layer, const CompositionLayer& next) {
    if (isBakedFormation(layer) || isBakedFormation(next))
        return isBakedFormation(layer) && isBakedFormation(next) &&
               layer.origin.writtenAs == next.origin.writtenAs;
    const std::optional<Member> one = memberOf(layer), other = memberOf(next);
    return one && other && one->family == other->family && one->number + 1 == other->number;
}

}   // namespace

std::vector<std::size_t> formationOfEachLayer(const CompositionScene& scene) {
    std::vector<std::size_t> formations(scene.layers.size(), noFormation);
    for (std::size_t l = 1; l < scene.layers.size(); ++l) {
        if (!belongTogether(scene.layers[l - 1], scene.layers[l])) continue;
        if (formations[l - 1] == noFormation) formations[l - 1] = l - 1;   // one alone is none
        formations[l] = formations[l - 1];
    }
    return formations;
}

}   // namespace tavix
