// Renders one moment of a finished reel to a picture.
#pragma once

#include "Engine/Console/Verb.h"

#include <optional>
#include <string>

namespace tavix::engine {

class ReelStillVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string recording_;
    std::optional<std::string> effects_, output_;
    std::optional<double> atSec_;
};

}   // namespace tavix::engine
