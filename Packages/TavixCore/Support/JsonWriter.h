// The standard writer of every stored document: indented by two spaces, keys sorted, slashes as they are,
// numbers in the shortest form that reads back to the same 64 bits. Equal values give the same bytes.
#pragma once

#include "TavixCore/Support/Json.h"

#include <string>

namespace tavix {

// Throws a `Failure` for NaN or an infinity. Bytes of a text that are no UTF-8 are written as U+FFFD. There
// is no line feed at the end.
std::string writeJson(const Json& json);

}   // namespace tavix
