// Prints what a shell needs to complete the words of the command.
#pragma once

#include "Engine/Console/Verb.h"

#include <string>

namespace tavix::engine {

class CompletionVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string shell_;
};

}   // namespace tavix::engine
