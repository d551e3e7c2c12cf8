// Judges a document: what cannot be rendered, and what will not look right.
#pragma once

#include "Engine/Console/Verb.h"

#include <string>
#include <vector>

namespace tavix::engine {

class LintVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    void listCodes(Terminal& terminal) const;

    std::string document_;
    bool opensFootage_ = false, drawsFrames_ = false, listsCodes_ = false, isMarkdown_ = false;
    std::vector<std::string> muted_;
};

}   // namespace tavix::engine
