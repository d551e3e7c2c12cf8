// A part of a document as its author wrote it, cut to what one wants to read.
#pragma once

#include "TavixCore/Paths/JsonPointer.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tavix {

// The text of the value that a pointer addresses, as it is written. Nothing is cut where the depth is 0;
// otherwise lists and objects below that many levels are told by their size, as in "[3 elements]". Throws
// `Failure` for a pointer to nothing.
std::string partOf(std::string_view text, const JsonPointer& pointer, std::size_t depth);

}   // namespace tavix
