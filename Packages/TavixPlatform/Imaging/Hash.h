// Digests of structures, built field by field: XXH3 (Collet) over all fields in their order. A field is
// preceded by the mark of its type, and a list by its length, so fields that are swapped, shifted or repeated
// give other digests. Not for untrusted keys.
#pragma once

#include "TavixPlatform/Imaging/Digest.h"
#include "TavixPlatform/Imaging/Geometry.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace tavix::imaging {

class Hash {
public:
    // The fields are written to `record` too, when there is one; it must outlive the hash.
    explicit Hash(std::string* record = nullptr) : record_(record) {}

    Hash& add(std::uint64_t word);
    Hash& add(double number);
    Hash& add(bool flag);
    Hash& add(const Digest& part);
    Hash& add(const Rect& rect);
    Hash& add(const PixelRegion& region);
    Hash& add(const Affine& transform);
    // What the fields after it are fields of.
    template <class Enumeration> Hash& kind(Enumeration value) { return addKind(std::uint64_t(value)); }

    Digest digest() const;

private:
    Hash& addKind(std::uint64_t kind);
    template <class Field> Hash& put(char mark, const Field& field);

    std::array<char, 256> bytes_;   // the fields so far; what went before is one of them, as a digest
    std::size_t used_ = 0;
    std::string* record_;
};

}   // namespace tavix::imaging
