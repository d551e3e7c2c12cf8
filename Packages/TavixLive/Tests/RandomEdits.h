// Documents and edits by chance.
#pragma once

#include "TavixLive/Operations/EditState.h"

#include <random>

namespace tavix::testing {

// A scene with a text and a device.
EditState firstState();
// Some edit of any kind; one that changes nothing is one, too.
void editAnything(EditState& state, std::mt19937& random);

}   // namespace tavix::testing
