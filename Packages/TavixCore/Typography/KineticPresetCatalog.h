// From the name of a text animation and three knobs to all of its numbers. Pure: no clock, no chance, no
// files.
#pragma once

#include "TavixCore/Typography/KineticSelector.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::KineticPresetCatalog {

struct Entry {
    std::string_view id, displayName;
};

// In the order of the gallery.
inline constexpr std::array<Entry, 13> presets{{{"word-pop", "Word Pop"}, {"line-rise", "Line Rise"},
    {"blur-in", "Blur In"}, {"char-cascade", "Char Cascade"}, {"tracking-in", "Tracking In"},
    {"slam", "Slam"}, {"fade-up", "Fade Up"}, {"karaoke-fill", "Karaoke Fill"}, {"slide-up", "Slide Up"},
    {"slide-down", "Slide Down"}, {"slide-left", "Slide Left"}, {"slide-right", "Slide Right"},
    {"none", "None"}}};

struct Resolution {
    KineticStyle style;
    std::vector<std::string> notes;   // what was changed, for the author
};

struct Request {
    KineticPresetRef preset;
    // A text too long for letters or words to move one by one makes larger pieces move. Absent: as they are.
    std::optional<std::string_view> text;
    std::int64_t seed = 0;
    std::optional<RGBAColor> accent;   // tints the entrance of some presets at high intensity
};

// Never fails: an unknown name becomes "fade-up", and a note says so.
Resolution resolve(const Request& request);

// What a preset has when no weight is asked for; that of "fade-up" for an unknown name.
KineticWeight defaultWeight(std::string_view presetID);

}   // namespace tavix::KineticPresetCatalog
