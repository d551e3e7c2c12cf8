// Tells what a reel does, on the clock of the finished film, and draws it as a plot.
#pragma once

#include "Engine/Console/Verb.h"

#include <optional>
#include <string>

namespace tavix::engine {

class ReelDescribeVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string recording_;
    std::optional<std::string> effects_, plot_;
};

}   // namespace tavix::engine
