// Prints a document, or a part of it, as it is written.
#pragma once

#include "Engine/Console/Verb.h"

#include <optional>
#include <string>

namespace tavix::engine {

class ReadVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string document_;
    std::optional<std::string> pointer_;
    std::optional<int> depth_;
};

}   // namespace tavix::engine
