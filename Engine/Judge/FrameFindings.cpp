#include "Engine/Judge/FrameFindings.h"

#include "Engine/Console/Terminal.h"
#include "Engine/Documents/DocumentFile.h"
#include "Engine/System/Interruption.h"
#include "TavixRender/Export/CompositionRenderer.h"
#include "TavixRender/Judge/FrameJudge.h"

#include <algorithm>
#include <iterator>

namespace tavix::engine {

std::vector<CompositionLint::Finding> frameFindings(const DocumentFile& document, Terminal& terminal) {
    const Interruption interruption;
    try {
        std::vector<Finding> undrawn;   // beside what lint finds without drawing
        const auto note = [&](const Finding& finding) {
            if (finding.level == Finding::Level::warning && !CompositionLint::ruleOf(finding.code))
                undrawn.push_back(finding);
        };
        std::vector<Finding> found = FrameJudge::findings({.spec = document.spec,
            .assetRoot = document.assetRoot,
            .log = note,
            .onProgress = [&](double fraction) { terminal.progress(fraction); },
            .stop = interruption.token()});
        std::ranges::move(undrawn, std::back_inserter(found));
        return found;
    } catch (const RenderStopped&) {
        interruption.check();
        throw;
    }
}

}   // namespace tavix::engine
