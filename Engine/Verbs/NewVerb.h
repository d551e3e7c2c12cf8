// Writes a small document to start from.
#pragma once

#include "Engine/Verbs/Verb.h"

#include <string>

namespace tavix::engine {

class NewVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string bundle_;
};

}   // namespace tavix::engine
