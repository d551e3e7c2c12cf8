// Any bytes are a film or none: every way to read one ends, and what it gives can be drawn.
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Media/MediaProbe.h"
#include "TavixPlatform/Media/VideoFile.h"
#include "TavixRender/Composition2D/SequentialClipReader.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include <sys/mman.h>
#include <unistd.h>

namespace {

// A file of these bytes that lies in memory alone.
class MemoryFile {
public:
    MemoryFile(const std::uint8_t* data, std::size_t size) : descriptor_(memfd_create("clip", 0)) {
        if (descriptor_ < 0 || write(descriptor_, data, size) != static_cast<ssize_t>(size)) std::abort();
    }
    ~MemoryFile() { close(descriptor_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

private:
    int descriptor_;
};

void drawSome(tavix::imaging::Evaluator& evaluator, const std::optional<tavix::imaging::Image>& image) {
    if (image) evaluator.draw(*image, {0, 0, 16, 16});
}

}   // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static tavix::imaging::Evaluator evaluator({.threadCount = 1});
    const MemoryFile file(data, size);
    try {
        tavix::media::probeMedia(file.path());
    } catch (const tavix::media::MediaError& error) {
        if (!std::string_view(error.what()).ends_with('.')) std::abort();
    }
    tavix::SequentialClipReader exact(file.path(), {file.path(), 0.1, 2.0, {}}, true, {});
    for (const double sec : {0.0, 0.1, 0.5, 0.2, 3.0}) drawSome(evaluator, exact.frame(sec));
    tavix::SequentialClipReader rough(file.path(), {file.path(), 0, {}, {}}, true, {});
    for (const double sec : {0.0, 1.0, 0.3, 0.4}) drawSome(evaluator, rough.frame(sec, true));
    return 0;
}
