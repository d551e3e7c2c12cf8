// Lists the words that documents may use.
#pragma once

#include "Engine/Verbs/Verb.h"

#include <string>

namespace tavix::engine {

class PresetsVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string family_;
};

}   // namespace tavix::engine
