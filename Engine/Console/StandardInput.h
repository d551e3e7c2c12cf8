// What is piped into the command.
#pragma once

#include <cstddef>
#include <string>

namespace tavix::engine {

// All of it. Throws `Failure` when it cannot be read or is longer.
std::string readStandardInput(std::size_t mostBytes);

}   // namespace tavix::engine
