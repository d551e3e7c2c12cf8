// Renders a reel to a film.
#pragma once

#include "Engine/Console/Verb.h"
#include "Engine/Output/FilmRender.h"

#include <optional>
#include <string>

namespace tavix::engine {

class ReelRenderVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string recording_;
    std::optional<std::string> effects_;
    FilmArguments film_;
    FilmRender render_;
};

}   // namespace tavix::engine
