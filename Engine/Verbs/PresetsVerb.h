// Lists the words that documents may use, or shows what one of them becomes.
#pragma once

#include "Engine/Console/Verb.h"
#include "Engine/Presets/PlayArguments.h"

#include <optional>
#include <string>

namespace tavix::engine {

class PresetsVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string family_, name_;
    std::optional<std::string> preview_;
    PlayArguments play_;
};

}   // namespace tavix::engine
