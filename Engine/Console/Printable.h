// Text from documents and files, made safe to show: nothing in it moves a cursor, colours a terminal or ends
// a sentence.
#pragma once

#include <string>
#include <string_view>

namespace tavix::engine {

// With control characters (ISO 6429, C0 and C1) shown by their symbols, or by U+FFFD where they have none,
// and bytes that are no UTF-8 by U+FFFD. Line ends and tabs stay.
std::string printable(std::string_view text);
// The same for one line: line ends and tabs go too, and of a very long one the middle is left out.
std::string printableLine(std::string_view text);

}   // namespace tavix::engine
