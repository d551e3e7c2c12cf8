// Tells how two documents differ, and draws it.
#pragma once

#include "Engine/Console/Verb.h"

#include <optional>
#include <string>

namespace tavix::engine {

class DiffVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string before_, after_;
    std::optional<std::string> sheet_;
};

}   // namespace tavix::engine
