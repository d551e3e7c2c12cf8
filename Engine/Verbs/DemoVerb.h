// From a flow to a film in one go: records, makes the document of the reel, and renders it.
#pragma once

#include "Engine/Console/Verb.h"
#include "Engine/Reel/RecordingArguments.h"

#include <optional>
#include <string>

namespace tavix::engine {

class DemoVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string flow_;
    RecordingArguments recording_;
    std::optional<std::string> output_, background_, typography_;
    bool replaces_ = false;
};

}   // namespace tavix::engine
