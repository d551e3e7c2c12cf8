// Makes a bundle of a document and of every file that it refers to.
#pragma once

#include "Engine/Console/Verb.h"

#include <optional>
#include <string>

namespace tavix::engine {

class PackVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string document_;
    std::optional<std::string> output_;
    bool allowsOutside_ = false;
};

}   // namespace tavix::engine
