// Plays a flow on a web page and records it.
#pragma once

#include "Engine/Console/Verb.h"
#include "Engine/Reel/RecordingArguments.h"

#include <optional>
#include <string>

namespace tavix::engine {

class RunVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string flow_;
    RecordingArguments recording_;
    std::optional<std::string> output_;
    bool replaces_ = false;
};

}   // namespace tavix::engine
