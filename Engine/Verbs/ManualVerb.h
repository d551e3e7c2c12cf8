// Prints a page of the manual, or writes all of them.
#pragma once

#include "Engine/Console/Verb.h"

#include <optional>
#include <string>

namespace tavix::engine {

class ManualVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string verb_, second_;
    std::optional<std::string> folder_;
};

}   // namespace tavix::engine
