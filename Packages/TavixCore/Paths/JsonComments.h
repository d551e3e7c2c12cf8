// JSON as editors allow it in their own files, seen as the JSON that it holds.
#pragma once

#include <string>
#include <string_view>

namespace tavix {

enum class JsonDialect {
    strict,
    withComments   // of // and /* */, and a comma after the last element
};

// The same text, byte for byte as long, with its comments blanked.
std::string withoutComments(std::string_view text);
// The same without commas before a closing bracket, of a text without comments.
std::string withoutLastCommas(std::string text);

}   // namespace tavix
