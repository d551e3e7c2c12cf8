// Any bytes are an ordinary film or none: what is told of one can be shown.
#include "TavixPlatform/Media/MovieHeader.h"
#include "TavixPlatform/Media/VideoFile.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include <sys/mman.h>
#include <unistd.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const int descriptor = memfd_create("movie", 0);
    if (descriptor < 0 || write(descriptor, data, size) != static_cast<ssize_t>(size)) std::abort();
    const auto header = tavix::media::readMovieHeader("/proc/self/fd/" + std::to_string(descriptor));
    close(descriptor);
    if (!header) return 0;
    const auto isSide = [](int side) { return side > 0 && side <= tavix::media::mostFrameSidePx; };
    if (!isSide(header->shownSize.width) || !isSide(header->shownSize.height)) std::abort();
    if (!std::isfinite(header->durationSec) || header->durationSec <= 0) std::abort();
    return 0;
}
