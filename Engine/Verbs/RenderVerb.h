// Renders a document to a film.
#pragma once

#include "Engine/Console/Verb.h"
#include "Engine/Documents/DocumentFile.h"
#include "Engine/Output/FilmArguments.h"
#include "Engine/Output/PieceArguments.h"
#include "TavixRender/Export/CompositionExport.h"

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
    struct Made {
        PieceRender::Report pieces;
        std::optional<JsonObject> likeness;   // where it was verified
    };
    void render(Terminal& terminal, ProgressLines& lines);
    void requireAgreement(const CompositionRenderer::Config& config) const;
    DocumentFile judged(ProgressLines& lines) const;
    Made write(CompositionRenderer::Config& config, const OutputChoice& choice,
        const Interruption& interruption, Terminal& terminal, ProgressLines& lines) const;
    PieceRender::Report fit(CompositionRenderer::Config& config,
        const CompositionRenderer::Progress& onProgress, const Interruption& interruption,
        Terminal& terminal) const;

    std::string document_;
    FilmArguments film_;
    PieceArguments pieces_;
    std::optional<bool> hasLines_;
    std::optional<std::int64_t> mostBytes_;
    bool isUnjudged_ = false, isVerified_ = false, isPlanned_ = false;
    std::optional<int> segment_;
};

}   // namespace tavix::engine
