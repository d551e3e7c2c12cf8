// Where a decode stands in its document: a linked list on the stack, which costs nothing until it is printed.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tavix {

class KeyPath {
public:
    KeyPath() = default;   // the document itself
    KeyPath(const KeyPath& parent, std::string_view key) : parent_(&parent), key_(key) {}
    KeyPath(const KeyPath& parent, std::size_t index) : parent_(&parent), index_(index), isIndex_(true) {}

    // As in "scenes[0].layers[2]".
    std::string text() const;
    // How a message begins: the quoted path, or "The document".
    std::string subject() const;

private:
    const KeyPath* parent_ = nullptr;
    std::string_view key_;
    std::size_t index_ = 0;
    bool isIndex_ = false;
};

}   // namespace tavix
