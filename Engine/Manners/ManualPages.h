// The manual: a page of the command, and one of every verb, in the language of man pages.
#pragma once

#include "Engine/Manners/VerbTable.h"

#include <string>
#include <vector>

namespace tavix::engine {

std::string manualPage(const std::vector<VerbTable>& tables);
std::string manualPage(const VerbTable& table);
// The name of a page, as "tavix-reel-author".
std::string pageName(const VerbTable& table);

}   // namespace tavix::engine
