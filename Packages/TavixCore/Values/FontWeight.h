// The weight of a font, from thin to heavy. An unknown word in a document reads as `regular`.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <type_traits>

namespace tavix {

enum class FontWeight { light, regular, medium, semibold, bold, heavy, black };

// The next case; `black` stays `black`.
FontWeight oneStepHeavier(FontWeight weight);
// On the scale of font traits, where 0 is regular and -1 and 1 are the lightest and heaviest there can be.
double coreTextWeight(FontWeight weight);

const Names<FontWeight>& namesOf(std::type_identity<FontWeight>);

}   // namespace tavix
