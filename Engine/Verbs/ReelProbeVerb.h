// Tells what the pixels of a recording say of its times.
#pragma once

#include "Engine/Console/Verb.h"

#include <string>

namespace tavix::engine {

class ReelProbeVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string video_;
};

}   // namespace tavix::engine
