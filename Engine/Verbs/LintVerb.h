// Judges a document: what cannot be rendered, and what will not look right.
#pragma once

#include "Engine/Verbs/Verb.h"

#include <string>

namespace tavix::engine {

class LintVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string document_;
    bool opensFootage_ = false;
};

}   // namespace tavix::engine
