#include "TavixPlatform/Media/FramesInTurn.h"

#include <algorithm>
#include <utility>

namespace tavix::media {

FramesInTurn::FramesInTurn(std::shared_ptr<DecoderRoom> room, double startSec, Open open, Hasten hasten)
    : room_(std::move(room)), startSec_(startSec), open_(std::move(open)), hasten_(std::move(hasten)) {
    reopen();
}

FramesInTurn::~FramesInTurn() { room_->leave(*this); }

void FramesInTurn::reopen() {
    Opened opened = open_(lastDecodedSec_.value_or(startSec_));
    room_->enter(*this, opened.decoderBytes);
    frameBytes_ = opened.frameBytes;
    frames_ = room_->isCrowded() ? std::move(opened.frames) : hasten_(std::move(opened.frames));
}

// From the decoder, past what it has given already.
std::optional<FramesInTurn::Ready> FramesInTurn::decoded() {
    for (;;) {
        auto frame = frames_->next();
        wasDamaged_ = wasDamaged_ || frames_->isDamaged();
        if (!frame) return std::nullopt;
        if (lastDecodedSec_ && frame->ptsSec() <= *lastDecodedSec_) continue;
        lastDecodedSec_ = frame->ptsSec();
        return Ready{std::move(*frame), wasDamaged_};
    }
}

// What was decoded is large, and what is shown of it small: nothing that was decoded stays outside the room.
void FramesInTurn::leave() {
    if (const auto given = given_.lock()) given->image();
    const std::size_t most = room_->bytesAhead() / std::max<std::size_t>(frameBytes_, 1);
    while (!hasEnded_ && ahead_.size() < most) {
        auto ready = decoded();
        hasEnded_ = !ready;
        if (!ready) break;
        ready->frame.image();
        ahead_.push_back(std::move(*ready));
    }
    frames_.reset();
}

std::optional<VideoFrame> FramesInTurn::next() {
    if (ahead_.empty() && !hasEnded_) {
        try {
            if (!frames_) reopen();
        } catch (const MediaError&) {
            wasDamaged_ = true;   // the file went away while it was shown
        }
        auto ready = frames_ ? decoded() : std::nullopt;
        hasEnded_ = !ready;
        if (ready) ahead_.push_back(std::move(*ready));
    }
    if (ahead_.empty()) {
        isDamaged_ = wasDamaged_;
        return std::nullopt;
    }
    isDamaged_ = ahead_.front().isDamaged;
    const auto frame = std::make_shared<VideoFrame>(std::move(ahead_.front().frame));
    ahead_.pop_front();
    given_ = frame;
    return VideoFrame(frame->ptsSec(), [frame] { return frame->image(); });
}

}   // namespace tavix::media
