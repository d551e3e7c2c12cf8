// A 64-bit hash of a node's structure, built field by field. Not for untrusted keys.
#pragma once

#include "TavixPlatform/Imaging/Geometry.h"

#include <bit>
#include <cstdint>

namespace tavix::imaging {

class Hash {
public:
    explicit constexpr Hash(std::uint64_t kind) : value_(kind) {}
    // The finishing steps of SplitMix64 (Steele, Lea and Flood, 2014) over the value so far and the next
    // word.
    Hash& add(std::uint64_t word) {
        std::uint64_t z = (value_ ^ word) + 0x9e3779b97f4a7c15u;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
        value_ = z ^ (z >> 31);
        return *this;
    }
    Hash& add(double number) { return add(std::bit_cast<std::uint64_t>(number)); }
    Hash& add(const Rect& r) { return add(r.x).add(r.y).add(r.width).add(r.height); }
    Hash& add(const PixelRegion& r) {
        return add(std::uint64_t(std::uint32_t(r.x0)) << 32 | std::uint32_t(r.y0))
            .add(std::uint64_t(std::uint32_t(r.x1)) << 32 | std::uint32_t(r.y1));
    }
    Hash& add(const Affine& t) { return add(t.a).add(t.b).add(t.c).add(t.d).add(t.tx).add(t.ty); }
    std::uint64_t value() const { return value_; }

private:
    std::uint64_t value_;
};

}   // namespace tavix::imaging
