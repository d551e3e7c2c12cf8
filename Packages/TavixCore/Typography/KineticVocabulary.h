// The words of kinetic text that an author may use.
#pragma once

#include "TavixCore/Typography/KineticPresetCatalog.h"

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::KineticVocabulary {

inline constexpr auto presetIDs = [] {
    std::array<std::string_view, KineticPresetCatalog::presets.size()> ids;
    for (std::size_t i = 0; i < ids.size(); ++i) ids[i] = KineticPresetCatalog::presets[i].id;
    return ids;
}();
inline constexpr std::array<std::string_view, 5> zones{"lower", "upper", "center", "left", "right"};
inline constexpr std::array<std::string_view, 3> cardAnchors{"start", "afterStep", "end"};
inline constexpr std::array<std::string_view, 3> cardLengths{"short", "standard", "long"};
inline constexpr std::array<std::string_view, 4> phoneMoves{"center", "park-left", "park-right", "hero-zoom"};
inline constexpr std::array<std::string_view, 2> phoneChoreographyModes{"auto", "off"};

// The words of the enumerations, in their order.
std::vector<std::string_view> speeds();
std::vector<std::string_view> weights();
std::vector<std::string_view> intensities();
std::vector<std::string_view> emphasisTokens();

inline constexpr std::string_view defaultPreset = "fade-up", defaultSpeed = "smooth",
                                  defaultIntensity = "medium", defaultZone = "lower",
                                  defaultCardLength = "standard", defaultCardPreset = "line-rise";

std::string_view defaultWeight(std::string_view preset);
double cardLengthSeconds(const std::optional<std::string>& length);

// What is wrong with a word, or nothing: <field>: unknown value "<token>" (use a, b, c).
std::optional<std::string> problem(
    std::string_view token, std::span<const std::string_view> allowed, std::string_view field);

}   // namespace tavix::KineticVocabulary
