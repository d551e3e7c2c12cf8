// Judges a flow before it is run.
#pragma once

#include "Engine/Console/Verb.h"

#include <string>

namespace tavix::engine {

class ReelLintVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string flow_;
};

}   // namespace tavix::engine
