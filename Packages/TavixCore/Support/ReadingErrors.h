// What a reader says of a value that is not what it should be.
#pragma once

#include "TavixCore/Support/DecodingError.h"
#include "TavixCore/Support/Json.h"
#include "TavixCore/Support/KeyPath.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tavix {

// "scenes[0].durationSec" must be a number, but is text.
[[noreturn]] void failWithType(const KeyPath& at, std::string_view expected, const Json& found);
[[noreturn]] void failWithMissing(const KeyPath& at, const Json* found);
[[noreturn]] void failWithData(const KeyPath& at, const std::string& message);
// Unknown layer kind "x" — must be one of text, device.
[[noreturn]] void failWithWord(const KeyPath& at, std::string_view noun, std::string_view word,
    const std::vector<std::string_view>& known);

const JsonObject& objectAt(const Json& json, const KeyPath& at);
const std::string& textAt(const Json& json, const KeyPath& at);
double numberAt(const Json& json, const KeyPath& at);
std::int64_t integerAt(const Json& json, const KeyPath& at);

}   // namespace tavix
