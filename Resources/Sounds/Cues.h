// The three sounds that documents cue by name.
#pragma once

#include "Sounds/Sound.h"

#include <span>
#include <string_view>

namespace tavix::sounds {

// How loud each of them is at its loudest, so that one can stand for another at the same gain.
constexpr double cueLoudnessLufs = -20;

struct Cue {
    std::string_view name;
    Sound (*make)();
};

// whoosh: air that passes from left to right. whip: a rising swish and its crack. ding: a small bell.
std::span<const Cue> cues();

}   // namespace tavix::sounds
