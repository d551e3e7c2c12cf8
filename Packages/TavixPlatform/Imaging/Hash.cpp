#include "TavixPlatform/Imaging/Hash.h"

#include <cstring>
#include <type_traits>

#include <xxhash.h>

namespace tavix::imaging {

template <class Field> Hash& Hash::put(char mark, const Field& field) {
    static_assert(std::has_unique_object_representations_v<Field> || std::is_same_v<Field, double> ||
                      std::is_same_v<Field, Rect> || std::is_same_v<Field, Affine>,
        "Padding has no value to count.");
    static_assert(1 + sizeof(Digest) + 1 + sizeof field <= sizeof bytes_);
    if (used_ + 1 + sizeof field > bytes_.size()) {
        const Digest before = digest();
        bytes_[0] = '+';
        std::memcpy(bytes_.data() + 1, &before, sizeof before);
        used_ = 1 + sizeof before;
    }
    bytes_[used_] = mark;
    std::memcpy(bytes_.data() + used_ + 1, &field, sizeof field);
    if (record_) record_->append(bytes_.data() + used_, 1 + sizeof field);
    used_ += 1 + sizeof field;
    return *this;
}

Hash& Hash::add(std::uint64_t word) { return put('w', word); }
Hash& Hash::add(double number) { return put('n', number); }
Hash& Hash::add(bool flag) { return put('f', flag); }
Hash& Hash::add(const Digest& part) { return put('d', part); }
Hash& Hash::add(const Rect& rect) { return put('r', rect); }
Hash& Hash::add(const PixelRegion& region) { return put('p', region); }
Hash& Hash::add(const Affine& transform) { return put('a', transform); }
Hash& Hash::addKind(std::uint64_t kind) { return put('k', kind); }

Digest Hash::digest() const {
    const XXH128_hash_t hash = XXH3_128bits(bytes_.data(), used_);
    return {hash.low64, hash.high64};
}

}   // namespace tavix::imaging
