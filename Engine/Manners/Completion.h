// What a shell needs to complete the words of a command.
#pragma once

#include "Engine/Manners/VerbTable.h"

#include <string>
#include <vector>

namespace tavix::engine {

std::string bashCompletion(const std::vector<VerbTable>& tables);
std::string zshCompletion(const std::vector<VerbTable>& tables);
std::string fishCompletion(const std::vector<VerbTable>& tables);

// In single quotes of a shell, where it ends and begins them anew around one of its own.
std::string inShellQuotes(std::string_view text);
// "a b c".
std::string spaced(const std::vector<std::string>& words);

}   // namespace tavix::engine
