// Tells what a film or sound file holds.
#pragma once

#include "Engine/Console/Verb.h"

#include <string>

namespace tavix::engine {

class ProbeVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string media_;
};

}   // namespace tavix::engine
