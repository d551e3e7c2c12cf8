#include "Engine/Console/FindingForms.h"

#include "TavixRender/Assets/RenderLog.h"

namespace tavix::engine {

std::string markedLine(const Finding& finding) {
    const auto mark = [&] {
        switch (finding.level) {
        case Finding::Level::error:
        case Finding::Level::warning: return "⚠️ ";
        case Finding::Level::note: return finding.code == RenderCode::written ? "✓ " : "• ";
        case Finding::Level::progress: break;
        }
        return finding.code == RenderCode::rendered ? "  …" : "• ";
    };
    return mark() + finding.message;
}

}   // namespace tavix::engine
