// Single frames of a composition, for a preview.
#pragma once

#include "TavixRender/Composition2D/ResolvedComposition.h"

namespace tavix {

// Used by one thread at a time.
class CompositionFrameSource {
public:
    CompositionFrameSource(const CompositionSpec& spec, const std::optional<std::filesystem::path>& assetRoot,
        imaging::Evaluator& evaluator, const RenderLog& log,
        Composition3DRendererPool* rendererPool = nullptr, BuildMemory* memory = nullptr)
        : resolved_(spec, assetRoot, evaluator, log, rendererPool, memory) {}

    ResolvedComposition& resolved() { return resolved_; }
    double totalSec() const { return resolved_.timeline().totalSec; }
    FrameRate fps() const { return resolved_.spec().output.fps; }
    imaging::Size size() const { return canvasSize(resolved_.spec()); }
    bool hasDevicesInSpace() const { return resolved_.hasDevicesInSpace(); }
    imaging::Image frame(double globalSec) { return resolved_.frame(globalSec); }
    void setScrubQuality(bool isOn) { resolved_.setScrubQuality(isOn); }

private:
    ResolvedComposition resolved_;
};

}   // namespace tavix
