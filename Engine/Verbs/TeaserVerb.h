// Renders a film of headlines, without a recording.
#pragma once

#include "Engine/Console/Verb.h"
#include "Engine/Output/FilmArguments.h"

#include <optional>
#include <string>

namespace tavix::engine {

class TeaserVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string spec_;
    std::optional<std::string> project_;
    FilmArguments film_;
};

}   // namespace tavix::engine
