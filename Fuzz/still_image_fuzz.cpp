// Any bytes give an image or a MediaError.
#include "TavixPlatform/Media/StillImages.h"

#include <cstddef>
#include <cstdint>
#include <span>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        tavix::media::decodeStillImage(std::as_bytes(std::span(data, size)));
    } catch (const tavix::media::MediaError&) {}
    return 0;
}
