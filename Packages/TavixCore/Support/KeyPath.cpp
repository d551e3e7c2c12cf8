#include "TavixCore/Support/KeyPath.h"

namespace tavix {

std::string KeyPath::text() const {
    if (!parent_) return {};
    std::string path = parent_->text();
    if (isIndex_) return path + "[" + std::to_string(index_) + "]";
    if (!path.empty()) path += ".";
    return path.append(key_);
}

std::string KeyPath::subject() const { return parent_ ? "\"" + text() + "\"" : "The document"; }

}   // namespace tavix
