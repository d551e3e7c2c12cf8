// The digest of bytes that come piece by piece: XXH3 (Collet), the same however they are cut. For telling
// contents apart and for finding damage, not for anything that somebody may want to forge.
#pragma once

#include "TavixBase/Digest.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace tavix {

class ContentHash {
public:
    ContentHash();   // throws std::bad_alloc
    ~ContentHash();
    ContentHash(ContentHash&&) noexcept;
    ContentHash& operator=(ContentHash&&) noexcept;

    ContentHash& add(std::span<const std::byte> bytes);
    ContentHash& add(std::string_view text) { return add(std::as_bytes(std::span(text))); }
    Digest digest() const;   // of all that was added so far

private:
    struct State;
    std::unique_ptr<State> state_;
};

Digest contentHash(std::string_view bytes);

// 32 digits and letters from a to f.
std::string nameOf(const Digest& digest);

}   // namespace tavix
