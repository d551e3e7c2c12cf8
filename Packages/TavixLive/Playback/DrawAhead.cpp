#include "TavixLive/Playback/DrawAhead.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tavix {

namespace {

constexpr std::int64_t lookedForTogether =
    48;   // frames; what is asked meanwhile waits no longer than for them
constexpr double sameMomentSec = 1e-6;

}   // namespace

std::int64_t DrawAhead::slotOf(double sec) const {
    const auto slot = std::int64_t(std::floor(sec * player_.item()->framesPerSec + sameMomentSec));
    return std::clamp<std::int64_t>(slot, 0, std::max<std::int64_t>(slotCount() - 1, 0));
}

void DrawAhead::disturb() {
    order_.cut();
    timer_ = main_.after(quietSec, [this] { begin(); });
}

void DrawAhead::start() {
    frames_.clear();
    if (player_.item()) frames_.resize(std::size_t(player_.slotCount()));
    tell();
    disturb();
}

void DrawAhead::setLoop(std::optional<FilmRange> loop) {
    loop_ = loop;
    disturb();
}

void DrawAhead::noteStored(double atSec) {
    if (frames_.empty() || !player_.item()) return;
    Frame& frame = frames_[std::size_t(slotOf(atSec))];
    if (std::exchange(frame, Frame::stored) != Frame::stored) tell();
}

void DrawAhead::begin() {
    timer_.cancel();
    if (!player_.item() || frames_.empty()) return;
    if (!isQuiet()) return disturb();
    lookFor(0);
}

bool DrawAhead::isQuiet() const { return !player_.isPlaying() && player_.item()->pictures->isIdle(); }

// Frames come and go by the edits that were made and by what was drawn since.
void DrawAhead::lookFor(std::int64_t from) {
    const std::int64_t end = std::min(from + lookedForTogether, slotCount());
    std::vector<double> secs;
    for (std::int64_t slot = from; slot < end; ++slot) secs.push_back(secOf(slot));
    player_.item()->pictures->findStored(
        std::move(secs), order_.guard([this, from, end](const std::vector<bool>& found) {
            for (std::size_t i = 0; i < found.size(); ++i)
                frames_[std::size_t(from) + i] = found[i] ? Frame::stored : Frame::missing;
            if (end < slotCount()) return lookFor(end);
            tell();
            prepareNext();
        }));
}

void DrawAhead::prepareNext() {
    if (!isQuiet()) return disturb();
    RenderChain& pictures = *player_.item()->pictures;
    pictures.prepare(player_.currentSec(), order_.guard([this, &pictures](bool hasMore) {
        if (hasMore) return prepareNext();
        pictures.rest();   // so that what is drawn now takes the place of what was built from
        drawNext();
    }));
}

void DrawAhead::drawNext() {
    if (!isQuiet()) return disturb();
    const auto slot = nextMissing();
    if (!slot) return;
    player_.item()->pictures->fillStore(
        secOf(*slot), order_.guard([this, slot = *slot](FrameSource::Filled filled) {
            if (filled == FrameSource::Filled::hasNoRoom) return;
            frames_[std::size_t(slot)] =
                filled == FrameSource::Filled::refused ? Frame::refused : Frame::stored;
            tell();
            drawNext();
        }));
}

std::optional<std::int64_t> DrawAhead::nextMissing() const {
    const double nowSec = player_.currentSec();
    if (const auto ahead = missingIn(nowSec, nowSec + aheadSec)) return ahead;
    if (const auto behind = missingIn(nowSec - behindSec, nowSec)) return behind;
    if (!loop_) return std::nullopt;
    return missingIn(loop_->startSec, std::min(loop_->endSec, loop_->startSec + longestLoopSec));
}

std::optional<std::int64_t> DrawAhead::missingIn(double startSec, double endSec) const {
    if (endSec < 0) return std::nullopt;
    for (std::int64_t slot = slotOf(startSec); slot < slotCount() && secOf(slot) < endSec; ++slot)
        if (frames_[std::size_t(slot)] == Frame::missing) return slot;
    return std::nullopt;
}

void DrawAhead::tell() {
    std::vector<FilmRange> ranges;
    for (std::int64_t slot = 0; slot < slotCount(); ++slot) {
        if (frames_[std::size_t(slot)] != Frame::stored) continue;
        if (slot == 0 || frames_[std::size_t(slot - 1)] != Frame::stored) ranges.push_back({secOf(slot), 0});
        ranges.back().endSec = std::min(secOf(slot + 1), player_.item()->totalSec);
    }
    if (ranges == cached_) return;
    cached_ = std::move(ranges);
    if (onCached_) onCached_(cached_);
}

}   // namespace tavix
