#include "Engine/FindingForms.h"

#include "TavixRender/Assets/RenderLog.h"

namespace tavix::engine {

const char* wordOf(Finding::Level level) {
    switch (level) {
    case Finding::Level::error: return "error";
    case Finding::Level::warning: return "warning";
    case Finding::Level::note: return "note";
    case Finding::Level::progress: break;
    }
    return "progress";
}

JsonObject jsonOf(const Finding& finding) {
    JsonObject one{{"level", wordOf(finding.level)}, {"code", finding.code}, {"path", finding.path},
        {"message", finding.message}};
    if (finding.suggestion) one.set("suggestion", *finding.suggestion);
    if (!finding.file.empty()) one.set("file", finding.file);
    return one;
}

Json jsonOf(std::span<const Finding> findings) {
    JsonArray all;
    for (const Finding& finding : findings) all.emplace_back(jsonOf(finding));
    return all;
}

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
