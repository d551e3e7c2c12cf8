#include "Engine/FrameFindings.h"

#include "Engine/DocumentFile.h"
#include "Engine/Interruption.h"
#include "Engine/Terminal.h"
#include "TavixRender/Export/CompositionRenderer.h"
#include "TavixRender/Judge/FrameJudge.h"

namespace tavix::engine {

std::vector<CompositionLint::Finding> frameFindings(const DocumentFile& document, Terminal& terminal) {
    const Interruption interruption;
    try {
        return FrameJudge::findings({.spec = document.spec,
            .assetRoot = document.assetRoot,
            .onProgress = [&](double fraction) { terminal.progress(fraction); },
            .stop = interruption.token()});
    } catch (const RenderStopped&) {
        interruption.check();
        throw;
    }
}

}   // namespace tavix::engine
