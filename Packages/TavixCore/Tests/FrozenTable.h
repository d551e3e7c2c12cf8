// The numbers of the design, frozen in files: what the tables of the program are held against, row by row.
#pragma once

#include "TavixCore/Support/Json.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavix::frozen {

// One of the files in Tests/Data/Tables, by its name without the ending.
Json table(std::string_view name);

// A member of an object; throws `std::out_of_range` with the key where it is missing.
const Json& member(const Json& object, std::string_view key);
double number(const Json& object, std::string_view key);
const std::string& text(const Json& object, std::string_view key);
const JsonArray& list(const Json& object, std::string_view key);

// A line for each place where two values differ: where, what was expected and what was found. What only one
// of them holds is such a place too. Rows, that is objects with a "name", are matched by it and keep their
// order. Numbers are equal within a billionth, which is more than the files' twelve digits lose.
std::vector<std::string> departures(const Json& expected, const Json& found);

// The object `row` with what it leaves out as in `usual`.
Json withUsual(const Json& row, const Json& usual);

}   // namespace tavix::frozen
