// Renders a document to a film.
#pragma once

#include "Engine/DocumentFile.h"
#include "Engine/FilmArguments.h"
#include "Engine/Verbs/Verb.h"
#include "TavixRender/Export/CompositionRenderer.h"

#include <string>

namespace tavix::engine {

class ProgressLines;

class RenderVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    void render(Terminal& terminal, ProgressLines& lines);
    CompositionRenderer::Config config(const DocumentFile& document, const OutputChoice& choice) const;

    std::string document_;
    FilmArguments film_;
    std::optional<bool> hasLines_;
    bool isUnjudged_ = false;
};

}   // namespace tavix::engine
