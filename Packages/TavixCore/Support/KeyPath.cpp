#include "TavixCore/Support/KeyPath.h"

namespace tavix {

std::string KeyPath::text() const {
    if (!parent_) return {};
    std::string path = parent_->text();
    if (isIndex_) return path.append("[").append(std::to_string(index_)).append("]");
    if (!path.empty()) path += '.';
    return path.append(key_);
}

std::string KeyPath::subject() const {
    if (!parent_) return "The document";
    return std::string("\"").append(text()).append("\"");
}

}   // namespace tavix
