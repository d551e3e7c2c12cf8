// Renders a film of headlines, without a recording.
#pragma once

#include "Engine/Console/Verb.h"
#include "Engine/Output/FilmRender.h"

#include <optional>
#include <string>

namespace tavix::engine {

class ProgressLines;

class TeaserVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    void make(Terminal& terminal, ProgressLines& lines);

    std::string spec_;
    std::optional<std::string> project_;
    FilmArguments film_;
    FilmRender render_;
};

}   // namespace tavix::engine
