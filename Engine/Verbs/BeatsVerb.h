// Listens to a piece of music and tells its tempo, its first beat, its drop and its parts.
#pragma once

#include "Engine/Console/Verb.h"

#include <string>

namespace tavix::engine {

class BeatsVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string music_;
    bool writes_ = false;
};

}   // namespace tavix::engine
