// Changes a document by a JSON Patch, whole or not at all.
#pragma once

#include "Engine/Console/Verb.h"
#include "TavixCore/Paths/JsonPatch.h"

#include <optional>
#include <string>

namespace tavix::engine {

class EditVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    JsonPatch wantedPatch() const;

    std::string document_;
    std::optional<std::string> patch_, pointer_, value_, ifRevision_;
};

}   // namespace tavix::engine
