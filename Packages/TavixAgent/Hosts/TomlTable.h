// One table of a TOML file, changed in its text: as much of the language (TOML 1.0) as it takes to find where
// the table begins and ends.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::TomlTable {

// The text with a table of that name that has these rows; a row of the same key takes the old one's place,
// other rows of the table stay. A table that is not there is added at the end. Throws `Failure` where the
// same is written as dotted keys or in braces, which is left to its author.
std::string with(std::string_view text, const std::string& name, const std::vector<std::string>& rows);
// Without that table and the tables in it.
std::string without(std::string_view text, const std::string& name);
// A text that stands in the table.
std::optional<std::string> valueIn(std::string_view text, const std::string& name, std::string_view key);

std::string quoted(std::string_view text);   // as a basic string

}   // namespace tavix::TomlTable
