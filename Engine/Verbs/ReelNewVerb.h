// Makes a bundle of a recording and what lies beside it.
#pragma once

#include "Engine/Console/Verb.h"

#include <optional>
#include <string>

namespace tavix::engine {

class ReelNewVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string bundle_;
    std::optional<std::string> video_, sidecar_, flow_;
};

}   // namespace tavix::engine
