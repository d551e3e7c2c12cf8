#include "TavixRender/Assets/RenderLog.h"

#include <memory>
#include <set>
#include <utility>

namespace tavix {

void tell(const RenderLog& log, const Finding& finding) {
    if (log) log(finding);
}

RenderLog onceEach(RenderLog log) {
    if (!log) return {};
    return [log = std::move(log), told = std::make_shared<std::set<std::string>>()](const Finding& finding) {
        if (told->insert(finding.message).second) log(finding);
    };
}

RenderLog placedAt(std::string path, RenderLog log) {
    if (!log) return {};
    return [path = std::move(path), log = std::move(log)](const Finding& finding) {
        if (!finding.path.empty()) return log(finding);
        Finding placed = finding;
        placed.path = path;
        log(placed);
    };
}

}   // namespace tavix
