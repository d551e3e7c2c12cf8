// Tells the look of an application: its colours and its fonts.
#pragma once

#include "Engine/Console/Verb.h"

#include <string>

namespace tavix::engine {

class BrandVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string bundle_;
};

}   // namespace tavix::engine
