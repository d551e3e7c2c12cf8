// Findings as people and as machines read them.
#pragma once

#include "TavixBase/Finding.h"
#include "TavixCore/Support/Json.h"

#include <span>
#include <string>

namespace tavix::engine {

// "error", "warning", "note" or "progress".
const char* wordOf(Finding::Level level);

// "level", "code", "path", "message" and, where there are any, "suggestion" and "file".
JsonObject jsonOf(const Finding& finding);
Json jsonOf(std::span<const Finding> findings);

// A line of the log of a render, with the mark of its level.
std::string markedLine(const Finding& finding);

}   // namespace tavix::engine
