#include "TavixRender/Assets/RenderLog.h"

#include <memory>
#include <set>
#include <utility>

namespace tavix {

RenderLog onceEach(RenderLog log) {
    if (!log) return {};
    return [log = std::move(log), told = std::make_shared<std::set<std::string>>()](const std::string& line) {
        if (told->insert(line).second) log(line);
    };
}

}   // namespace tavix
