#include "TavixBase/Hash.h"

#include <cstring>
#include <xxhash.h>

namespace tavix {

Hash& Hash::put(char mark, const void* field, std::size_t size) {
    if (used_ + 1 + size > bytes_.size()) {
        const Digest before = digest();
        bytes_[0] = '+';
        std::memcpy(bytes_.data() + 1, &before, sizeof before);
        used_ = 1 + sizeof before;
    }
    bytes_[used_] = mark;
    std::memcpy(bytes_.data() + used_ + 1, field, size);
    if (record_) record_->append(bytes_.data() + used_, 1 + size);
    used_ += 1 + size;
    return *this;
}

Digest Hash::digest() const {
    const XXH128_hash_t hash = XXH3_128bits(bytes_.data(), used_);
    return {hash.low64, hash.high64};
}

}   // namespace tavix
