#include "TavixAgent/Edit/Revision.h"

#include <xxhash.h>

namespace tavix {

std::string revisionOf(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    XXH128_canonical_t canonical;
    XXH128_canonicalFromHash(&canonical, XXH3_128bits(bytes.data(), bytes.size()));
    std::string text;
    for (const unsigned char byte : canonical.digest) {
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}

}   // namespace tavix
