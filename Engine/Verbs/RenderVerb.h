// Renders a document to a film.
#pragma once

#include "Engine/Console/Verb.h"
#include "Engine/Documents/DocumentFile.h"
#include "Engine/Output/FilmArguments.h"
#include "Engine/Output/FilmRender.h"

#include <optional>
#include <string>

namespace tavix::engine {

class Interruption;
class ProgressLines;

class RenderVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    void render(Terminal& terminal, ProgressLines& lines);
    DocumentFile judged(ProgressLines& lines) const;

    std::string document_;
    FilmArguments film_;
    FilmRender render_;
    bool isUnjudged_ = false, isPlanned_ = false;
    std::optional<int> segment_;
};

}   // namespace tavix::engine
