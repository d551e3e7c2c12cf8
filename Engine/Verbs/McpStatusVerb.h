// Tells which hosts there are, and in which of them the server is.
#pragma once

#include "Engine/Console/Verb.h"

#include <optional>
#include <string>

namespace tavix::engine {

class McpStatusVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::optional<std::string> repo_;
};

}   // namespace tavix::engine
