// Makes the sidecar of a recording from what its driver reported.
#pragma once

#include "Engine/Console/Verb.h"

#include <optional>
#include <string>

namespace tavix::engine {

class ReelSidecarVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string recording_;
    std::optional<std::string> report_, output_;
    bool replaces_ = false;
};

}   // namespace tavix::engine
