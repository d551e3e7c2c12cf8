// A film in a file: any container and codec that FFmpeg reads, the first video track.
#pragma once

#include "TavixPlatform/Media/DecoderRoom.h"
#include "TavixPlatform/Media/VideoSource.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>

namespace tavix::imaging {
class BytePool;
}

namespace tavix::media {

// The largest frames that are shown. Larger ones are refused before memory is taken for them.
constexpr int mostFrameSidePx = 8192;
constexpr std::int64_t mostFramePixels = std::int64_t{8192} * 4608;

// How pictures are wanted.
struct VideoManner {
    std::shared_ptr<DecoderRoom> room = nullptr;   // that decoders of pictures in order share
    std::optional<ShownBox> shown = std::nullopt;
};

// Opening is left to the operations. May be shared by threads; what they give may not.
class VideoFile final : public VideoSource {
public:
    explicit VideoFile(std::filesystem::path path, VideoManner manner = {});

    std::unique_ptr<VideoFrames> framesFrom(double startSec, double endSec, Pace pace) override;
    std::unique_ptr<RandomAccessFrames> randomAccess() override;
    std::vector<VideoSample> samples() override;

private:
    std::filesystem::path path_;
    VideoManner manner_;
    std::shared_ptr<imaging::BytePool> pool_;   // pictures come back to it from wherever they were drawn
};

}   // namespace tavix::media
