// Plays a film: shows its pictures by a clock, which is that of the sound where there is sound. It stands in
// no thread of its own: everything happens on the main executor, and what takes time happens elsewhere.
#pragma once

#include "TavixLive/Playback/RenderChain.h"
#include "TavixLive/Playback/SoundFeed.h"
#include "TavixPlatform/System/Continuation.h"
#include "TavixPlatform/System/Executor.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tavix {

// What a player plays.
struct PlayerItem {
    std::shared_ptr<RenderChain> pictures;
    std::optional<SoundFeed> sound;
    double totalSec = 0;
    double framesPerSec = 30;
};

class Player {
public:
    // `hasArrived`: false when another seek or item came in between.
    using Sought = std::function<void(bool hasArrived)>;
    struct Counts {
        std::int64_t due = 0;       // slots of pictures that went by while it was playing
        std::int64_t shown = 0;     // of them, those that showed their own picture in time
        double worstDriftSec = 0;   // of a shown picture against the clock
        double droppedShare() const { return due > 0 ? double(due - shown) / double(due) : 0; }
    };

    // Both outlive it; without an output films are silent.
    Player(system::SerialExecutor& main, media::AudioOutput* output) : main_(main), output_(output) {}
    ~Player();
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    // Paused at its start, without a picture until the first seek. None: nothing is shown any more.
    void setItem(std::optional<PlayerItem> item);
    const PlayerItem* item() const { return item_ ? &*item_ : nullptr; }
    void play();
    void pause();
    bool isPlaying() const { return isPlaying_; }
    bool isSeeking() const { return bool(seeking_); }   // somebody waits for an answer
    // Exact: the picture of that very frame is shown, then `done` is called, once in any case. Playing goes
    // on from there.
    void seek(double toSec, Sought done = {});
    // The picture once more, from a source that has changed.
    void redraw();
    double currentSec() const;
    std::int64_t slotCount() const;   // of the pictures of the item, at its rate

    // Where pictures go, and who is told: about every that many seconds while it plays, and when it has come
    // to the end, where it pauses.
    void setSink(std::function<void(const StagePicture&)> sink) { sink_ = std::move(sink); }
    void setTimeObserver(double everySec, std::function<void()> told);
    void setOnEnd(std::function<void()> told) { onEnd_ = std::move(told); }

    const Counts& counts() const { return counts_; }
    void clearCounts() { counts_ = {}; }

    // A picture that comes later than this after its time is not shown.
    static constexpr double latestSec = 0.02;

private:
    struct Ready {
        std::int64_t slot;
        StagePicture picture;
        bool isRough;
    };
    double secOf(std::int64_t slot) const { return double(slot) / item_->framesPerSec; }
    std::int64_t slotOf(double sec) const;   // whose picture is to be seen then
    void startClock();
    void stopClock();
    void tick();
    void askAhead();
    void prepareAhead();
    void request(std::int64_t slot, Sought done);
    void receive(std::int64_t slot, const StagePicture& picture, const FrameSource::Drawn& drawn);
    void showDue();
    void show(const Ready& ready);
    void countSlotsTo(double nowSec);
    void reachEnd();
    void forgetAhead();
    void noteCost(const FrameSource::Drawn& drawn);
    double costSec() const;   // of a picture, lately
    void giveUpLate();

    system::SerialExecutor& main_;
    media::AudioOutput* output_;
    std::optional<PlayerItem> item_;
    std::function<void(const StagePicture&)> sink_;
    std::function<void()> onEnd_, onTime_;
    double observedEverySec_ = 0, observedAtSec_ = 0;

    bool isPlaying_ = false, isShownRough_ = false;
    double positionSec_ = 0;    // while paused, and where playing began
    double startedAtSec_ = 0;   // of the main executor
    system::Timer nextTick_;

    system::Lifeline seekOrder_;   // what was asked for, until it counts no more
    std::deque<Ready> ready_;      // delivered before their time
    struct Asked {
        std::int64_t slot;
        std::shared_ptr<void> isWanted;
    };
    std::deque<Asked> asked_;   // ahead, and not delivered
    std::int64_t nextSlot_ = 0, countedSlot_ = 0;
    std::deque<double> costs_;   // of the last pictures that were drawn ahead, in seconds
    double shownAtSec_ = 0;      // of the main executor, as the next
    double preparedAtSec_ = 0;
    Sought seeking_;
    Counts counts_;
};

}   // namespace tavix
