// Digests of structures, built field by field: XXH3 (Collet) over all fields in their order. A field is
// preceded by the mark of its type, and a list by its length, so fields that are swapped, shifted or repeated
// give other digests. Not for untrusted keys.
#pragma once

#include "TavixBase/Digest.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>

namespace tavix {

class Hash {
public:
    // The fields are written to `record` too, when there is one; it must outlive the hash.
    explicit Hash(std::string* record = nullptr) : record_(record) {}

    Hash& add(std::uint64_t word) { return put('w', word); }
    Hash& add(double number) { return put('n', number); }
    Hash& add(bool flag) { return put('f', flag); }
    Hash& add(const Digest& part) { return put('d', part); }
    // A value of a type that says by which mark it is told from others, and that its bytes are all of it:
    // `char hashMarkOf(const Value&)`, found beside the type.
    template <class Value> Hash& add(const Value& value) requires requires { hashMarkOf(value); }
    { return put(hashMarkOf(value), value); }
    // What the fields after it are fields of.
    template <class Enumeration> Hash& kind(Enumeration value) { return put('k', std::uint64_t(value)); }

    Digest digest() const;

private:
    template <class Field> Hash& put(char mark, const Field& field) {
        static_assert(std::is_trivially_copyable_v<Field>);
        static_assert(1 + sizeof(Digest) + 1 + sizeof field <= mostBytes);
        return put(mark, &field, sizeof field);
    }
    Hash& put(char mark, const void* field, std::size_t size);

    static constexpr std::size_t mostBytes = 256;
    std::array<char, mostBytes> bytes_;   // the fields so far; what went before is one of them, as a digest
    std::size_t used_ = 0;
    std::string* record_;
};

}   // namespace tavix
