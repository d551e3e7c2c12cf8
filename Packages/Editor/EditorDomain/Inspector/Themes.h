// Ready-made backgrounds of the whole film, and other rules that controls of an inspector go by.
#pragma once

#include "TavixLive/Operations/EditState.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace tavix {

enum class BasicCompositionTheme { midnight, ocean, sunset, paper };

inline constexpr std::array allThemes{BasicCompositionTheme::midnight, BasicCompositionTheme::ocean,
    BasicCompositionTheme::sunset, BasicCompositionTheme::paper};

std::string_view label(BasicCompositionTheme theme);
const BackgroundFill& fillOf(BasicCompositionTheme theme);
// The theme that the film's background equals; nothing for one made by hand.
std::optional<BasicCompositionTheme> selectedTheme(const CompositionSpec& spec);

// Whether there is music that is not heard.
bool isMuted(const CompositionSpec& spec);
// The music's file; a bed is made where there is none.
void setTrack(EditState& state, const std::string& path);

}   // namespace tavix
