// Tells what renders have kept for the next ones, and removes it.
#pragma once

#include "Engine/Console/Verb.h"

namespace tavix::engine {

class CacheVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    bool isCleared_ = false;
};

}   // namespace tavix::engine
