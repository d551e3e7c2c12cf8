// Serves agents over standard input and output.
#pragma once

#include "Engine/Console/Verb.h"

#include <optional>
#include <string>

namespace tavix::engine {

class McpServeVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::optional<std::string> root_;
};

}   // namespace tavix::engine
