#include "TavixBase/ContentHash.h"

#include <cstdio>
#include <new>
#include <xxhash.h>

namespace tavix {

struct ContentHash::State {
    State() : hash(XXH3_createState()) {
        if (hash == nullptr) throw std::bad_alloc();
        XXH3_128bits_reset(hash);
    }
    ~State() { XXH3_freeState(hash); }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    XXH3_state_t* hash;
};

ContentHash::ContentHash() : state_(std::make_unique<State>()) {}
ContentHash::~ContentHash() = default;
ContentHash::ContentHash(ContentHash&&) noexcept = default;
ContentHash& ContentHash::operator=(ContentHash&&) noexcept = default;

ContentHash& ContentHash::add(std::span<const std::byte> bytes) {
    XXH3_128bits_update(state_->hash, bytes.data(), bytes.size());
    return *this;
}

Digest ContentHash::digest() const {
    const XXH128_hash_t hash = XXH3_128bits_digest(state_->hash);
    return {hash.low64, hash.high64};
}

Digest contentHash(std::string_view bytes) { return ContentHash().add(bytes).digest(); }

std::string nameOf(const Digest& digest) {
    char text[33];
    std::snprintf(text, sizeof text, "%016llx%016llx", static_cast<unsigned long long>(digest.high),
        static_cast<unsigned long long>(digest.low));
    return text;
}

}   // namespace tavix
