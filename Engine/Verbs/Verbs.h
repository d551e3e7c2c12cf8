// Every verb, in the order of the help.
#pragma once

#include "Engine/Console/Verb.h"

#include <span>

namespace tavix::engine {

std::span<const VerbEntry> verbs();

}   // namespace tavix::engine
