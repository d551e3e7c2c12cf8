// The background pictures that come with the product.
#pragma once

#include "Backgrounds/Recipe.h"

#include <span>

namespace tavix::backgrounds {

std::span<const Recipe> recipes();

// Nothing for a name that is not among them.
const Recipe* recipeNamed(std::string_view resourceName);

}   // namespace tavix::backgrounds
