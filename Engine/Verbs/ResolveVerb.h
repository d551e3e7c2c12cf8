// Prints the document as the renderer sees it: with beats and marks turned into seconds.
#pragma once

#include "Engine/Console/Verb.h"

#include <string>

namespace tavix::engine {

class ResolveVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string document_;
};

}   // namespace tavix::engine
