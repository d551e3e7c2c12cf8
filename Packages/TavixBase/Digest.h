// 128 bits that stand for a structure: of two that differ, no one will ever see the same.
#pragma once

#include <cstdint>

namespace tavix {

struct Digest {
    std::uint64_t low = 0, high = 0;   // both 0: of nothing
    bool isNothing() const { return low == 0 && high == 0; }
    bool operator==(const Digest&) const = default;
};

}   // namespace tavix
