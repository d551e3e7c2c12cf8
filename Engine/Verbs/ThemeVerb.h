// Dresses a reel in the colours and the font of an application.
#pragma once

#include "Engine/Console/Verb.h"
#include "Engine/Reel/BrandArguments.h"

#include <optional>
#include <string>

namespace tavix::engine {

class ThemeVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string recording_;
    BrandArguments brand_;
    std::optional<std::string> effects_, output_;
    bool replaces_ = false;
};

}   // namespace tavix::engine
