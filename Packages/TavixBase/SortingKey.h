// In which order people look for names.
#pragma once

#include <string>
#include <string_view>

namespace tavix {

// Names whose keys compare as less come first: whatever their case and their accents, so that "Äther" stands
// among those with A. Those that differ in nothing else have equal keys. Text that is not UTF-8 is its own
// key.
std::string sortingKey(std::string_view name);

}   // namespace tavix
