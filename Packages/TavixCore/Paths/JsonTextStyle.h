// How an author lays out JSON, so that what is added looks like what is there.
#pragma once

#include "TavixCore/Support/Json.h"

#include <string>
#include <string_view>

namespace tavix {

struct JsonTextStyle {
    std::string lineBreak;       // empty: everything stands in one line
    std::string unit;            // one step of indentation
    std::string colon = ": ";    // between a key and its value
    std::string gap = " ";       // after a comma within a line
    bool mayShareLines = true;   // whether short lists and objects stand in one line
};

// Of a valid text; comments in it may have been blanked.
JsonTextStyle styleOf(std::string_view text);

// The value as text for a place whose line is indented so and already holds `columns` characters. No line
// break follows it. Throws a `Failure` for a number that is not finite.
std::string styledJson(
    const Json& value, const JsonTextStyle& style, std::string_view indent, std::size_t columns);

// A text of several lines moved to another indentation. Texts of JSON hold no line breaks of their own, so
// what follows one is always indentation.
std::string reindented(std::string_view text, std::string_view from, std::string_view to);

// A key or a text in quotation marks.
std::string quotedJson(std::string_view characters);

}   // namespace tavix
