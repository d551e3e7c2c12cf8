// Writes the cuts of a film for editing programs.
#pragma once

#include "Engine/Console/Verb.h"

#include <optional>
#include <string>

namespace tavix::engine {

class TimelineVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string document_;
    std::optional<std::string> output_;
};

}   // namespace tavix::engine
