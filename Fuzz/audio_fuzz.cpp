// Any bytes give finite samples or a MediaError.
#include "TavixPlatform/Media/AudioReader.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr std::size_t blockFrames = 4096;
constexpr int mostBlocks = 100;   // damaged times can tell of hours of silence

void readThrough(tavix::media::AudioReader& reader) {
    std::vector<float> block(2 * blockFrames);
    for (int i = 0; i < mostBlocks; ++i) {
        const std::size_t frames = reader.read(block);
        for (std::size_t at = 0; at < 2 * frames; ++at)
            if (!std::isfinite(block[at])) std::abort();
        if (frames < blockFrames) return;
    }
}

}   // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const int file = ::memfd_create("sound", MFD_CLOEXEC);
    if (file < 0 || ::write(file, data, size) != static_cast<ssize_t>(size)) return ::close(file), 0;
    const std::string path = "/proc/self/fd/" + std::to_string(file);
    try {
        tavix::media::probeAudio(path);
        tavix::media::AudioReader reader(path, {48000, 2});
        readThrough(reader);
        reader.seek(size > 0 ? data[0] * 1000 : 0);
        readThrough(reader);
    } catch (const tavix::media::MediaError&) {}
    ::close(file);
    return 0;
}
