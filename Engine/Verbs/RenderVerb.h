// Renders a document to a film.
#pragma once

#include "Engine/DocumentFile.h"
#include "Engine/OutputChoice.h"
#include "Engine/Verbs/Verb.h"
#include "TavixRender/Export/CompositionRenderer.h"

#include <optional>
#include <string>

namespace tavix::engine {

class RenderVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    CompositionSpec scaledSpec(const DocumentFile& document, ExportFormat format) const;
    CompositionRenderer::Config config(const DocumentFile& document, const OutputChoice& choice) const;

    std::string document_;
    OutputRequest request_;
    std::optional<media::EncodingEffort> effort_;
    std::optional<ResolutionPreset> resolution_;
    std::optional<FrameRate> fps_;
    bool isUnjudged_ = false;
};

}   // namespace tavix::engine
