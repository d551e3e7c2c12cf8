// Joins the segments of a film that were rendered one by one, and puts the sound under them.
#pragma once

#include "Engine/Console/Verb.h"
#include "Engine/Output/FilmArguments.h"
#include "Engine/Output/PieceArguments.h"

#include <optional>
#include <string>

namespace tavix::engine {

class JoinVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string document_;
    std::optional<std::string> folder_;
    FilmArguments film_;
};

}   // namespace tavix::engine
