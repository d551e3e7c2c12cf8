// Pictures that are decoded ahead are those that would be decoded in turn, and a still has none of them.
#include "TavixPlatform/Media/ReadAhead.h"

#include "TavixPlatform/Media/MediaFault.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

namespace tavix::media::tests {
namespace {

struct Counts {
    std::atomic<int> decoded = 0, converted = 0;
};

// Pictures 0, 1, 2 ... of a second each. The film is damaged from a picture on, and may end by a fault.
class Counted final : public VideoFrames {
public:
    struct Film {
        int count, damagedFrom;
        bool endsByFault;
    };
    Counted(Film film, Counts& counts) : film_(film), counts_(counts) {}
    std::optional<VideoFrame> next() override {
        const int number = next_++;
        isDamaged_ = number >= film_.damagedFrom;
        if (number >= film_.count && film_.endsByFault) throw MediaFault("The disk is gone.");
        if (number >= film_.count) return std::nullopt;
        ++counts_.decoded;
        return VideoFrame(number, [&counts = counts_, number] {
            ++counts.converted;
            return imaging::Image::solid({number / 255.0, 0, 0, 1});
        });
    }
    bool isDamaged() const override { return isDamaged_; }

private:
    Film film_;
    Counts& counts_;
    int next_ = 0;
    bool isDamaged_ = false;
};

// Whichever of them are looked at.
TEST(ReadAhead, GivesWhatIsDecodedInTurn) {
    constexpr int count = 12;
    for (const bool endsByFault : {false, true})
        for (const int damagedFrom : {0, 1, 7, count, count + 1})
            for (const int lookedAtEvery : {1, 2, 5, 100}) {
                SCOPED_TRACE(
                    testing::Message() << endsByFault << ", " << damagedFrom << ", " << lookedAtEvery);
                Counts counts;
                ReadAhead ahead(
                    std::make_unique<Counted>(Counted::Film{count, damagedFrom, endsByFault}, counts));
                for (int i = 0; i < count; ++i) {
                    auto frame = ahead.next();
                    ASSERT_TRUE(frame);
                    EXPECT_EQ(frame->ptsSec(), i);
                    EXPECT_EQ(ahead.isDamaged(), i >= damagedFrom) << i;
                    if (i % lookedAtEvery) continue;
                    EXPECT_EQ(frame->image().hash(), imaging::Image::solid({i / 255.0, 0, 0, 1}).hash());
                }
                if (endsByFault) {
                    EXPECT_THROW(ahead.next(), MediaFault);
                    continue;
                }
                for (int again = 0; again < 2; ++again) EXPECT_FALSE(ahead.next());
                EXPECT_EQ(ahead.isDamaged(), count >= damagedFrom);
            }
}

TEST(ReadAhead, DecodesNothingThatAStillDoesNotAskFor) {
    Counts counts;
    ReadAhead ahead(std::make_unique<Counted>(Counted::Film{100, 100, false}, counts));
    for (int i = 0; i < 7; ++i) ahead.next();
    auto shown = ahead.next();
    shown->image();
    ahead.next();   // tells that the one before is still shown
    EXPECT_EQ(counts.decoded, 9);
    EXPECT_EQ(counts.converted, 1);
}

// The second look starts it; it waits with one picture, and one more is made meanwhile.
TEST(ReadAhead, ConvertsAheadInAFilm) {
    Counts counts;
    {
        ReadAhead ahead(std::make_unique<Counted>(Counted::Film{100, 100, false}, counts));
        for (int i = 0; i < 3; ++i) ahead.next()->image();
        ahead.next();
        const auto longEnough = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (counts.converted < 5 && std::chrono::steady_clock::now() < longEnough)
            std::this_thread::yield();
        EXPECT_EQ(counts.converted, 5);
    }
    EXPECT_LE(counts.decoded, 5);
}

}   // namespace
}   // namespace tavix::media::tests
