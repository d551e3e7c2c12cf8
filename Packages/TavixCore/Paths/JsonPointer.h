// JSON Pointer (RFC 6901): the address of one value in a document, as in "/scenes/0/layers/2/opacity".
#pragma once

#include "TavixCore/Support/Json.h"
#include "TavixCore/Support/Type.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavix {

class JsonPointer {
public:
    JsonPointer() = default;   // the document itself
    // Throws a `Failure` for a text that is no pointer.
    static JsonPointer parse(std::string_view text);

    std::string text() const;
    const std::vector<std::string>& tokens() const { return tokens_; }
    bool isRoot() const { return tokens_.empty(); }
    JsonPointer parent() const;   // of a pointer that is not the root
    JsonPointer operator/(std::string_view key) const;
    JsonPointer operator/(std::size_t index) const;
    // Whether `other` lies in what this addresses, or is the same.
    bool holds(const JsonPointer& other) const;
    bool operator==(const JsonPointer&) const = default;

private:
    std::vector<std::string> tokens_;
};

// The index that a token means in a list: digits without a leading zero. Nothing for any other token.
std::optional<std::size_t> indexIn(std::string_view token);

// Nothing when there is no such value.
const Json* find(const Json& document, const JsonPointer& pointer);

// A value inside another one, with the type it has.
struct Located {
    const Type* type = nullptr;
    void* value = nullptr;

    explicit operator bool() const { return value != nullptr; }
};
// The value that stands at the pointer in the written form of `value`, found without writing it. Nothing when
// there is none, or when it is no value of its own (the tag of a union).
Located locate(const Type& type, void* value, const JsonPointer& pointer);

template <class T, class V> V* valueAt(T& document, const JsonPointer& pointer) {
    const Located found = locate(typeOf<T>(), &document, pointer);
    return found && found.type == &typeOf<V>() ? static_cast<V*>(found.value) : nullptr;
}

}   // namespace tavix
