// While nothing else happens, sets up what the scenes around the playhead are drawn with, and draws frames
// into memory: those around the playhead, then those of the loop. Knows which frames of the film are there.
#pragma once

#include "TavixLive/Playback/Player.h"
#include "TavixPlatform/System/Continuation.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace tavix {

// A part of the film, in seconds; its end is not in it.
struct FilmRange {
    double startSec = 0, endSec = 0;
    bool operator==(const FilmRange&) const = default;
};

// Used on the main executor. Whoever does something with the player says so (`disturb`): then nothing is
// drawn ahead until it has been quiet for a while.
class DrawAhead {
public:
    using Told = std::function<void(const std::vector<FilmRange>& cached)>;

    // Both outlive it.
    DrawAhead(system::SerialExecutor& main, Player& player) : main_(main), player_(player) {}

    void disturb();
    // What it shows is another film, or none: nothing of it is known to be in memory.
    void start();
    void setLoop(std::optional<FilmRange> loop);
    // A picture was drawn, or found, and is in memory.
    void noteStored(double atSec);

    // The parts whose frames are in memory, in order and apart. After an edit they are looked for when it is
    // quiet again.
    const std::vector<FilmRange>& cached() const { return cached_; }
    void setOnCached(Told told) { onCached_ = std::move(told); }

    static constexpr double quietSec = 0.5;
    static constexpr double behindSec = 1, aheadSec = 4;   // of the playhead
    static constexpr double longestLoopSec = 20;           // of which frames are drawn ahead

private:
    enum class Frame : std::uint8_t { unknown, missing, stored, refused };

    std::int64_t slotCount() const { return std::int64_t(frames_.size()); }
    std::int64_t slotOf(double sec) const;
    double secOf(std::int64_t slot) const { return double(slot) / player_.item()->framesPerSec; }
    void begin();
    void lookFor(std::int64_t from);
    void prepareNext();
    void drawNext();
    bool isQuiet() const;
    std::optional<std::int64_t> nextMissing() const;
    std::optional<std::int64_t> missingIn(double startSec, double endSec) const;
    void tell();

    system::SerialExecutor& main_;
    Player& player_;
    Told onCached_;
    std::optional<FilmRange> loop_;
    std::vector<Frame> frames_;   // by slots of the player
    std::vector<FilmRange> cached_;
    system::Timer timer_;
    system::Lifeline order_;   // what is asked for, until it is disturbed
};

}   // namespace tavix
