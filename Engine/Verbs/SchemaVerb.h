// Prints the JSON Schema of documents, or their reference as a page.
#pragma once

#include "Engine/Console/Verb.h"

#include <string>

namespace tavix::engine {

class SchemaVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string type_;
    bool isMarkdown_ = false;
};

}   // namespace tavix::engine
