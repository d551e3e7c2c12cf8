// The words of kinetic text that a document may use.
#pragma once

#include <array>
#include <string_view>

namespace tavix::KineticVocabulary {

// In the order of the gallery.
inline constexpr std::array<std::string_view, 13> presetIDs{"word-pop", "line-rise", "blur-in",
    "char-cascade", "tracking-in", "slam", "fade-up", "karaoke-fill", "slide-up", "slide-down", "slide-left",
    "slide-right", "none"};

}   // namespace tavix::KineticVocabulary
