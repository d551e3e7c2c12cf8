// The pictures of a film whose decoder has a place in a room only now and then. Inside the library only.
#pragma once

#include "TavixPlatform/Media/DecoderRoom.h"
#include "TavixPlatform/Media/VideoSource.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <optional>

namespace tavix::media {

class FramesInTurn final : public VideoFrames, private DecoderRoom::Tenant {
public:
    // A film that was just opened, from the picture that is shown at a time on.
    struct Opened {
        std::unique_ptr<VideoFrames> frames;
        std::size_t decoderBytes;   // with what it decodes
        std::size_t frameBytes;     // of one picture as it is given
    };
    using Open = std::function<Opened(double startSec)>;
    // Gives the pictures decoded on a thread beside.
    using Hasten = std::function<std::unique_ptr<VideoFrames>(std::unique_ptr<VideoFrames>)>;

    // Opens the film. Throws MediaError.
    FramesInTurn(std::shared_ptr<DecoderRoom> room, double startSec, Open open, Hasten hasten);
    ~FramesInTurn() override;

    std::optional<VideoFrame> next() override;
    bool isDamaged() const override { return isDamaged_; }

private:
    struct Ready {
        VideoFrame frame;
        bool isDamaged;   // up to this one
    };
    void leave() override;
    void reopen();
    std::optional<Ready> decoded();

    std::shared_ptr<DecoderRoom> room_;
    double startSec_;
    Open open_;
    Hasten hasten_;
    std::unique_ptr<VideoFrames> frames_;
    std::size_t frameBytes_ = 0;
    std::deque<Ready> ahead_;
    std::weak_ptr<VideoFrame> given_;   // the last one
    std::optional<double> lastDecodedSec_;
    bool hasEnded_ = false, isDamaged_ = false, wasDamaged_ = false;
};

}   // namespace tavix::media
