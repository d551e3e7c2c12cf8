// The whole command: from its words to its exit status.
#pragma once

#include <span>
#include <string>

namespace tavix::engine {

// `words` without the program's own name.
int runCommand(std::span<const std::string> words);

}   // namespace tavix::engine
