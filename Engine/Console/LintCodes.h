// The rules of lint, listed for people and machines.
#pragma once

#include "TavixCore/Support/Json.h"

#include <string>
#include <vector>

namespace tavix::engine {

std::string lintCodesAsText();
std::vector<std::string> lintCodeNames();
Json lintCodesAsJson();
std::string lintCodesPage();   // in Markdown, with an example of each

}   // namespace tavix::engine
