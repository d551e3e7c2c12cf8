// Opens the films of a document and tells which end before the layer that plays them.
#pragma once

#include "Engine/Console/Verb.h"

#include <string>

namespace tavix::engine {

class AuditVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string document_;
};

}   // namespace tavix::engine
