// Clips that take turns at their decoders give the pictures that they would give alone.
#include "TavixPlatform/Media/VideoFile.h"

#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Media/FramesInTurn.h"
#include "TestClip.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <random>

namespace tavix::media::tests {
namespace {

constexpr double endless = std::numeric_limits<double>::infinity();

// Pictures 0, 1, 2 ... of a tenth of a second each, by a decoder that counts how many there are of its kind
// and what is converted.
class Numbered final : public VideoFrames {
public:
    Numbered(int first, int count, int& open, int& converted)
        : next_(first), count_(count), open_(open), converted_(converted) {
        ++open_;
    }
    ~Numbered() override { --open_; }
    std::optional<VideoFrame> next() override {
        if (next_ >= count_) return std::nullopt;
        const int number = next_++;
        return VideoFrame(number * 0.1, [number, &converted = converted_] {
            ++converted;
            return imaging::Image::solid({number / 255.0, 0, 0, 1});
        });
    }

private:
    int next_, count_;
    int &open_, &converted_;
};

struct Scripted {
    int open = 0, mostOpen = 0, converted = 0;
    std::unique_ptr<VideoFrames> film(const std::shared_ptr<DecoderRoom>& room, int count,
        std::size_t decoderBytes, std::size_t frameBytes) {
        const auto opened = [this, count, decoderBytes, frameBytes](double startSec) {
            auto frames = std::make_unique<Numbered>(int(std::lround(startSec * 10)), count, open, converted);
            mostOpen = std::max(mostOpen, open);
            return FramesInTurn::Opened{std::move(frames), decoderBytes, frameBytes};
        };
        return std::make_unique<FramesInTurn>(
            room, 0, opened, [](std::unique_ptr<VideoFrames> frames) { return frames; });
    }
};

// Whatever the room, the sizes and the order in which they are asked for.
TEST(FramesInTurn, GiveEveryPictureOnceInItsOrder) {
    std::mt19937 random(5);
    for (int round = 0; round < 200; ++round) {
        SCOPED_TRACE(round);
        Scripted script;
        const std::size_t decoderBytes = 1000, room = 1 + random() % 8'000;
        const auto shared = std::make_shared<DecoderRoom>(room);
        struct Film {
            std::unique_ptr<VideoFrames> frames;
            int count, given = 0;
        };
        std::vector<Film> films;
        for (std::size_t i = 0; i < 1 + random() % 12; ++i) {
            const int count = int(random() % 30);
            films.push_back({script.film(shared, count, decoderBytes, 1 + random() % 60), count});
        }
        for (int step = 0; step < 600; ++step) {
            Film& film = films[random() % films.size()];
            const auto frame = film.frames->next();
            ASSERT_EQ(frame.has_value(), film.given < film.count);
            if (!frame) continue;
            ASSERT_NEAR(frame->ptsSec(), film.given++ * 0.1, 1e-9);
        }
        // One that is being opened is there before another goes.
        EXPECT_LE(script.mostOpen, std::max<int>(int(room / decoderBytes), 1) + 1);
        films.clear();
        EXPECT_EQ(script.open, 0);
    }
}

TEST(FramesInTurn, DecodeAheadBeforeTheyLeave) {
    Scripted script;
    const auto room = std::make_shared<DecoderRoom>(6400);   // of which each keeps a hundred bytes
    const auto a = script.film(room, 50, 6000, 10), b = script.film(room, 50, 6000, 10);
    int opened = 0, before = 2;
    for (int i = 0; i < 40; ++i)
        for (const auto& film : {a.get(), b.get()}) {
            const int is = script.open;
            film->next();
            opened += script.open != is || before != script.open;
            before = script.open;
        }
    EXPECT_LE(script.open, 1);
    EXPECT_LT(opened, 20);   // eighty pictures, ten at a time
}

// On the way to the picture that is looked at, none is converted.
TEST(FramesInTurn, ConvertWhatIsLookedAt) {
    Scripted script;
    const auto film = script.film(std::make_shared<DecoderRoom>(100), 50, 10, 1);
    for (int i = 0; i < 20; ++i) film->next();
    auto shown = film->next();
    for (int look = 0; look < 2; ++look)
        EXPECT_EQ(shown->image().hash(), imaging::Image::solid({20 / 255.0, 0, 0, 1}).hash());
    EXPECT_EQ(script.converted, 1);
}

// A picture that somebody still holds then needs nothing of the decoder any more, nor do those that were
// decoded ahead; one that nobody holds is gone.
TEST(FramesInTurn, LeaveNothingThatIsNotConverted) {
    for (const bool isHeld : {false, true})
        for (const int ahead : {0, 3}) {
            SCOPED_TRACE(testing::Message() << isHeld << ", " << ahead);
            Scripted script;
            const auto room =
                std::make_shared<DecoderRoom>(64 * 3);   // for one decoder, and three bytes ahead
            const auto film = script.film(room, 50, 64 * 3, ahead ? 1 : 4);
            auto given = film->next();
            if (!isHeld) given.reset();
            const auto other = script.film(room, 50, 64 * 3, 1);
            EXPECT_EQ(script.open, 1);
            EXPECT_EQ(script.converted, ahead + isHeld);
            if (given) given->image();
            EXPECT_EQ(script.converted, ahead + isHeld);
        }
}

TEST(FramesInTurn, OfFilmsAreThoseThatTheyWouldBeAlone) {
    const testsupport::TemporaryFolder folder;
    std::vector<std::filesystem::path> paths;
    for (int i = 0; i < 4; ++i) {
        paths.push_back(folder / ("clip" + std::to_string(i) + (i % 2 ? ".mkv" : ".mp4")));
        makeClip({.path = paths.back(), .times = evenTimes(30, 15 + 5 * i), .gop = 7 + i});
    }
    const auto room = std::make_shared<DecoderRoom>(1);   // one at a time, and nothing ahead
    std::vector<std::unique_ptr<VideoFrames>> shared, alone;
    for (const auto& path : paths) {
        shared.push_back(VideoFile(path, {room}).framesFrom(0.1, 0.8, Pace::steady));
        alone.push_back(VideoFile(path).framesFrom(0.1, 0.8, Pace::steady));
    }
    for (int step = 0; step < 40; ++step)
        for (std::size_t i = 0; i < paths.size(); ++i) {
            auto is = shared[i]->next(), asked = alone[i]->next();
            ASSERT_EQ(is.has_value(), asked.has_value()) << i << " at " << step;
            if (!is) continue;
            EXPECT_EQ(is->ptsSec(), asked->ptsSec());
            EXPECT_EQ(numberIn(is->image()), numberIn(asked->image()));
            EXPECT_FALSE(shared[i]->isDamaged());
        }
}

// Of a film that is larger than it is drawn, each pixel is the mean of what it covers.
TEST(VideoFile, HalvesWhatIsDrawnSmallAndNothingElse) {
    const testsupport::TemporaryFolder folder;
    const imaging::Size large{2048, 1280};
    const auto paint = [](AVFrame& frame, int) {
        for (int plane = 0; plane < 3; ++plane)
            for (int y = 0; y < (plane ? 640 : 1280); ++y)
                for (int x = 0; x < (plane ? 1024 : 2048); ++x)
                    frame.data[plane][y * frame.linesize[plane] + x] =
                        std::uint8_t(60 + (x * (3 + plane) + y * 7 + x / 64 * 31) % 120);
    };
    const std::filesystem::path path = folder / "large.mp4";
    makeClip({.path = path, .size = large, .times = {0}, .clockwiseDeg = 90, .paint = paint});
    const auto picture = [&](VideoManner manner) {
        return VideoFile(path, std::move(manner)).framesFrom(0, endless, Pace::onDemand)->next()->image();
    };
    imaging::Evaluator evaluator;
    const auto drawn = [&](const imaging::Image& image, imaging::Size size) {
        return evaluator.draw(image, {0, 0, size.width, size.height});
    };
    const imaging::Image whole = picture({});
    const imaging::Bitmap full = drawn(whole, {1280, 2048});
    const struct {
        imaging::Size box;
        int side;
    } cases[] = {
        {{1280, 2048}, 1}, {{641, 100}, 1}, {{640, 100}, 2}, {{100, 1024}, 2}, {{320, 512}, 4}, {{1, 1}, 16}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.box.width) + " x " + std::to_string(c.box.height));
        const imaging::Image image = picture({nullptr, ShownBox{c.box}});
        EXPECT_EQ(image.extent(), whole.extent());
        const imaging::Size size{1280 / c.side, 2048 / c.side};
        const imaging::Bitmap small =
            drawn(image.transformed(imaging::Affine::scaling(1.0 / c.side, 1.0 / c.side)), size);
        int worst = 0;
        for (int y = 0; y < size.height; ++y)
            for (int x = 0; x < size.width * 4; ++x) {
                int sum = 0;
                for (int j = 0; j < c.side; ++j)
                    for (int i = 0; i < c.side; ++i)
                        sum += full.view().row(y * c.side + j)[(x / 4 * c.side + i) * 4 + x % 4];
                const int mean = (sum + c.side * c.side / 2) / (c.side * c.side);
                worst = std::max(worst, std::abs(mean - small.view().row(y)[x]));
            }
        EXPECT_EQ(worst, 0);
    }
}

}   // namespace
}   // namespace tavix::media::tests
