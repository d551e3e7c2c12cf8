#include "TavixLive/Playback/Player.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tavix {

namespace {

constexpr double sameMomentSec = 1e-6;
constexpr double nearTheEndSec = 0.001;   // sound ends at a whole frame of its own
constexpr double shortestTickSec = 0.001;
constexpr std::size_t mostAhead = 6;   // pictures that are asked for or wait, so that a dear one is no gap
constexpr double preparedEverySec = 0.2;
constexpr std::size_t costsKept = 5;   // their median tells what the next picture takes
constexpr double starvedSec = 0.25;    // after that long without a picture a late one is better than none

}   // namespace

Player::~Player() { setItem(std::nullopt); }

void Player::setItem(std::optional<PlayerItem> item) {
    isShownRough_ = false;
    pause();
    seekOrder_.cut();
    costs_.clear();
    auto done = std::exchange(seeking_, {});
    item_ = std::move(item);
    positionSec_ = 0;
    if (done) done(false);   // who asked may seek anew
}

void Player::setTimeObserver(double everySec, std::function<void()> told) {
    observedEverySec_ = everySec;
    onTime_ = std::move(told);
}

std::int64_t Player::slotCount() const {
    return std::max<std::int64_t>(
        std::int64_t(std::ceil(item_->totalSec * item_->framesPerSec - sameMomentSec)), 1);
}

std::int64_t Player::slotOf(double sec) const {
    const auto slot = std::int64_t(std::floor(sec * item_->framesPerSec + sameMomentSec));
    return std::clamp<std::int64_t>(slot, 0, slotCount() - 1);
}

double Player::currentSec() const {
    if (!isPlaying_ || !item_) return positionSec_;
    const bool hasSound = output_ != nullptr && item_->sound;
    const double playedSec = hasSound ? output_->heardFrames() / item_->sound->format().sampleRate
                                      : main_.nowSec() - startedAtSec_;
    return std::min(positionSec_ + playedSec, item_->totalSec);
}

void Player::play() {
    if (!item_ || isPlaying_) return;
    isPlaying_ = true;
    startClock();
}

void Player::pause() {
    if (!isPlaying_) return;
    stopClock();
    isPlaying_ = false;
    forgetAhead();
    if (isShownRough_) redraw();   // at rest it is a fine one
}

void Player::startClock() {
    startedAtSec_ = main_.nowSec();
    observedAtSec_ = startedAtSec_;
    nextSlot_ = slotOf(positionSec_) + 1;
    countedSlot_ = nextSlot_;
    if (output_ != nullptr && item_->sound) {
        const auto& format = item_->sound->format();
        output_->start(format, item_->sound->from(std::llround(positionSec_ * format.sampleRate)));
    }
    tick();
}

void Player::stopClock() {
    nextTick_.cancel();
    positionSec_ = currentSec();
    countSlotsTo(positionSec_);
    if (output_ != nullptr && item_->sound) output_->stop();
}

// Those that wait to be shown are of the old source; the next one to come is of the new.
void Player::redraw() {
    if (!item_) return;
    if (!isPlaying_) return request(slotOf(currentSec()), {});
    forgetAhead();
    nextSlot_ = slotOf(currentSec()) + 1;
    askAhead();
}

void Player::forgetAhead() {
    asked_.clear();
    ready_.clear();
}

void Player::seek(double toSec, Sought done) {
    if (!item_) {
        if (done) done(false);
        return;
    }
    if (isPlaying_) stopClock();
    forgetAhead();
    seekOrder_.cut();
    positionSec_ = std::clamp(toSec, 0.0, item_->totalSec);
    auto before = std::exchange(seeking_, std::move(done));
    request(slotOf(positionSec_), [this](bool hasArrived) {
        if (auto told = std::exchange(seeking_, {})) told(hasArrived);
    });
    if (isPlaying_) startClock();
    if (before) before(false);
}

// The picture of a position, shown as soon as it is there.
void Player::request(std::int64_t slot, Sought done) {
    item_->pictures->request(
        secOf(slot),
        [this, done = std::move(done)](const StagePicture& picture, const FrameSource::Drawn& drawn) {
            shownAtSec_ = main_.nowSec();
            isShownRough_ = drawn.isRough;
            if (sink_) sink_(picture);
            if (done) done(true);
        },
        seekOrder_.thread());
}

void Player::tick() {
    const double nowSec = currentSec();
    if (nowSec >= item_->totalSec - nearTheEndSec) return reachEnd();
    showDue();
    askAhead();
    prepareAhead();
    if (onTime_ && main_.nowSec() - observedAtSec_ >= observedEverySec_ - sameMomentSec) {
        observedAtSec_ = main_.nowSec();
        onTime_();
        if (!isPlaying_) return;   // its watchers may have paused
    }
    const double untilNext = std::min(secOf(slotOf(nowSec) + 1), item_->totalSec) - nowSec;
    nextTick_ = main_.after(std::max(untilNext, shortestTickSec), [this] { tick(); });
}

// Asks for the pictures that will be there in time: where drawing is slower than playing, some are left out.
void Player::askAhead() {
    giveUpLate();
    while (asked_.size() + ready_.size() < mostAhead) {
        const double doneSec = currentSec() + double(asked_.size() + 1) * costSec() - latestSec;
        const auto inTime = std::int64_t(std::ceil(doneSec * item_->framesPerSec - sameMomentSec));
        const std::int64_t slot = std::max({nextSlot_, inTime, slotOf(currentSec()) + 1});
        if (slot >= slotCount()) return;
        nextSlot_ = slot + 1;
        asked_.push_back({slot, std::make_shared<int>()});
        item_->pictures->request(
            secOf(slot),
            [this, slot](const StagePicture& picture, const FrameSource::Drawn& drawn) {
                receive(slot, picture, drawn);
            },
            std::weak_ptr<void>(asked_.back().isWanted), RenderChain::Detail::asTimeAllows);
    }
}

// What is shown next is set up while pictures wait to be shown, so that it takes none of their time.
void Player::prepareAhead() {
    const double nowSec = main_.nowSec();
    if (ready_.size() + 1 < mostAhead || nowSec - preparedAtSec_ < preparedEverySec) return;
    preparedAtSec_ = nowSec;
    item_->pictures->prepare(currentSec(), [](bool) {});
}

void Player::receive(std::int64_t slot, const StagePicture& picture, const FrameSource::Drawn& drawn) {
    asked_.pop_front();
    noteCost(drawn);
    ready_.push_back({slot, picture, drawn.isRough});
    if (!isPlaying_) return;
    showDue();
    askAhead();
}

void Player::noteCost(const FrameSource::Drawn& drawn) {
    costs_.push_back(drawn.buildSec + drawn.paintSec);
    if (costs_.size() > costsKept) costs_.pop_front();
}

// One that took long, such as the first of a scene, says nothing of those that follow.
double Player::costSec() const {
    if (costs_.empty()) return 0;
    std::vector<double> sorted(costs_.begin(), costs_.end());
    std::ranges::sort(sorted);
    return sorted[(sorted.size() - 1) / 2];
}

// What would not be shown any more is not drawn; the first is being drawn.
void Player::giveUpLate() {
    const double nowSec = currentSec();
    while (asked_.size() > 1 && secOf(asked_[1].slot) + latestSec < nowSec) asked_.erase(asked_.begin() + 1);
}

void Player::showDue() {
    const double nowSec = currentSec();
    countSlotsTo(nowSec);
    std::optional<Ready> due;
    while (!ready_.empty() && secOf(ready_.front().slot) <= nowSec + sameMomentSec) {
        due = std::move(ready_.front());
        ready_.pop_front();
    }
    if (due) show(*due);
}

void Player::show(const Ready& ready) {
    const double lateSec = currentSec() - secOf(ready.slot);
    const bool isInTime = lateSec <= latestSec + sameMomentSec;
    if (!isInTime && main_.nowSec() - shownAtSec_ < starvedSec) return;
    shownAtSec_ = main_.nowSec();
    if (isInTime) {
        ++counts_.shown;
        counts_.worstDriftSec = std::max(counts_.worstDriftSec, lateSec);
    }
    isShownRough_ = ready.isRough;
    if (sink_) sink_(ready.picture);
}

// Slots that have begun while it was playing.
void Player::countSlotsTo(double nowSec) {
    const std::int64_t begun = slotOf(nowSec) + 1;
    if (begun <= countedSlot_) return;
    counts_.due += begun - countedSlot_;
    countedSlot_ = begun;
}

void Player::reachEnd() {
    showDue();
    pause();
    positionSec_ = item_->totalSec;
    if (onEnd_) onEnd_();
}

}   // namespace tavix
