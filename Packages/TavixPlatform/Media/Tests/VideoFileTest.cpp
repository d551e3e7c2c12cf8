// Films of many kinds come back frame by frame, at the times they had.
#include "TavixPlatform/Media/VideoFile.h"

#include "DecodedMovie.h"
#include "TavixPlatform/Media/VideoTrack.h"
#include "TestClip.h"

#include <cstring>
#include <fstream>
#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavix::media::tests {
namespace {

constexpr double endless = std::numeric_limits<double>::infinity();

class VideoFileTest : public ::testing::Test {
protected:
    TemporaryFolder folder_;
};

// Every now and then a frame stays for longer.
std::vector<std::int64_t> unevenTimes(int count) {
    std::vector<std::int64_t> times{0};
    for (int i = 1; i < count; ++i) times.push_back(times.back() + (i % 5 == 0 ? 70 : i % 3 == 0 ? 10 : 20));
    return times;
}

struct Kind {
    const char *file, *encoder;
    AVPixelFormat pixels = AV_PIX_FMT_YUV420P;
    std::vector<std::int64_t> times = evenTimes(40);
    AVRational tick{1, 600};
    int gop = 12, bFrames = 2;
};
const Kind kinds[] = {
    {"even.mp4", "libx264"},
    {"uneven.mp4", "libx264", AV_PIX_FMT_YUV420P, unevenTimes(40)},
    {"one-sync.mov", "libx264", AV_PIX_FMT_YUV420P, unevenTimes(40), {1, 600}, 1000},
    {"late.mp4", "libx264", AV_PIX_FMT_YUV420P, {300, 320, 340, 400, 900, 910, 2000}},
    {"milliseconds.mkv", "libx264"},
    {"broadcast.ts", "libx264", AV_PIX_FMT_YUV420P, evenTimes(40), {1, 600}},
    {"ten-bit.mp4", "libx265", AV_PIX_FMT_YUV420P10},
    {"small.webm", "libvpx-vp9"},
    {"edit.mov", "prores_ks", AV_PIX_FMT_YUV422P10},
    {"old.avi", "mpeg4", AV_PIX_FMT_YUV420P, evenTimes(40, 1), {1, 30}, 12, 0},
    {"photos.mov", "mjpeg", AV_PIX_FMT_YUVJ420P},
    {"tape.ts", "mpeg2video", AV_PIX_FMT_YUV420P, evenTimes(40, 1), {1, 30}},
};

ClipRecipe recipeOf(const Kind& kind, const std::filesystem::path& path) {
    ClipRecipe recipe{.path = path, .encoder = kind.encoder, .pixels = kind.pixels};
    recipe.times = kind.times;
    recipe.tick = kind.tick;
    recipe.gop = kind.gop;
    recipe.bFrames = kind.bFrames;
    if (kind.pixels == AV_PIX_FMT_YUVJ420P) recipe.range = AVCOL_RANGE_JPEG;
    if (std::string_view(kind.encoder) == "libx265") recipe.options = {{"x265-params", "log-level=none"}};
    if (std::string_view(kind.encoder) == "libvpx-vp9")
        recipe.options = {{"cpu-used", "8"}, {"deadline", "realtime"}};
    return recipe;
}

VideoFile filmOf(const Kind& kind, const std::filesystem::path& path) {
    makeClip(recipeOf(kind, path));
    return VideoFile(path);
}

// When a frame of it is shown.
double secondsOf(const Kind& kind, std::size_t frame) {
    return double(kind.times[frame]) * kind.tick.num / kind.tick.den;
}

TEST_F(VideoFileTest, GivesEveryFrameAtItsTime) {
    for (const Kind& kind : kinds) {
        SCOPED_TRACE(kind.file);
        VideoFile film = filmOf(kind, folder_ / kind.file);
        for (const Pace pace : {Pace::steady, Pace::onDemand}) {
            const auto frames = film.framesFrom(0, endless, pace);
            for (std::size_t i = 0; i < kind.times.size(); ++i) {
                auto frame = frames->next();
                ASSERT_TRUE(frame) << i;
                ASSERT_EQ(numberIn(frame->image()), int(i));
                ASSERT_NEAR(frame->ptsSec(), secondsOf(kind, i), 0.0006);
            }
            EXPECT_FALSE(frames->next());
        }
        const std::vector<VideoSample> samples = film.samples();
        ASSERT_EQ(samples.size(), kind.times.size());
        for (std::size_t i = 0; i < samples.size(); ++i)
            EXPECT_NEAR(samples[i].ptsSec, secondsOf(kind, i), 0.0006);
        EXPECT_TRUE(samples.front().isSync);
    }
}

TEST_F(VideoFileTest, StartsWithTheFrameThatIsShownThen) {
    for (const Kind& kind : kinds) {
        SCOPED_TRACE(kind.file);
        VideoFile film = filmOf(kind, folder_ / kind.file);
        for (std::size_t i = 0; i < kind.times.size(); i += 3) {
            const double own = secondsOf(kind, i);
            const double next = i + 1 < kind.times.size() ? secondsOf(kind, i + 1) : own + 0.1;
            for (const double start : {own, (own + next) / 2}) {
                auto frame = film.framesFrom(start, endless, Pace::onDemand)->next();
                ASSERT_TRUE(frame) << i;
                ASSERT_EQ(numberIn(frame->image()), int(i)) << "from " << start;
            }
        }
    }
}

TEST_F(VideoFileTest, EndsBeforeTheEndOfTheRange) {
    makeClip(recipeOf(kinds[0], folder_ / "a.mp4"));
    for (const Pace pace : {Pace::steady, Pace::onDemand}) {
        const auto frames = VideoFile(folder_ / "a.mp4").framesFrom(0.31, 0.5, pace);
        for (int number = 9; number < 15; ++number) EXPECT_EQ(numberIn(frames->next()->image()), number);
        EXPECT_FALSE(frames->next());
    }
}

TEST_F(VideoFileTest, ReachesSyncFramesInAnyOrder) {
    for (const Kind& kind : kinds) {
        SCOPED_TRACE(kind.file);
        VideoFile film = filmOf(kind, folder_ / kind.file);
        const auto samples = film.samples();
        const auto access = film.randomAccess();
        for (std::size_t n = 0; n < samples.size(); ++n) {
            const std::size_t i = n * 17 % samples.size();
            if (!samples[i].isSync) continue;
            auto frame = access->frame(samples[i].ptsSec, 0.01);
            ASSERT_TRUE(frame) << i;
            EXPECT_EQ(numberIn(frame->image()), int(i));
        }
        EXPECT_FALSE(access->hasFailed());
    }
}

// What an edit list cuts away before second 0 is not shown, though it is decoded.
TEST_F(VideoFileTest, FollowsEditLists) {
    ClipRecipe recipe{.path = folder_ / "cut.mp4"};
    for (int i = 0; i < 30; ++i) recipe.times.push_back((i - 7) * 20);
    makeClip(recipe);
    VideoFile film(recipe.path);
    const auto frames = film.framesFrom(0, endless, Pace::onDemand);
    for (int number = 7; number < 30; ++number) {
        auto frame = frames->next();
        ASSERT_TRUE(frame);
        EXPECT_EQ(numberIn(frame->image()), number);
        EXPECT_NEAR(frame->ptsSec(), (number - 7) / 30.0, 1e-3);
    }
    EXPECT_NEAR(film.samples().front().ptsSec, 0, 1e-3);
}

TEST_F(VideoFileTest, ThreadsChangeNoPixel) {
    makeClip(recipeOf(kinds[1], folder_ / "a.mp4"));
    VideoTrack alone(folder_ / "a.mp4", 1), together(folder_ / "a.mp4", 4);
    for (int i = 0; i < 40; ++i) {
        const auto a = alone.next(), b = together.next();
        ASSERT_TRUE(a && b);
        EXPECT_EQ(a->ptsSec, b->ptsSec);
        for (int plane = 0; plane < 3; ++plane)
            for (int y = 0; y < (plane ? 32 : 64); ++y)
                ASSERT_EQ(std::memcmp(a->frame->data[plane] + y * a->frame->linesize[plane],
                              b->frame->data[plane] + y * b->frame->linesize[plane], plane ? 32 : 64),
                    0);
    }
}

// Damage may cost pictures, but not the program, and time goes on.
TEST_F(VideoFileTest, SurvivesDamage) {
    for (const Kind& kind : kinds) {
        SCOPED_TRACE(kind.file);
        const auto whole = folder_ / kind.file, hurt = folder_ / (std::string("hurt-") + kind.file);
        makeClip(recipeOf(kind, whole));
        std::string bytes = bytesOf(whole);
        const auto numbers = [&] {
            std::ofstream(hurt, std::ios::binary) << bytes;
            std::vector<std::pair<double, Rgba>> seen;
            try {
                const auto frames = VideoFile(hurt).framesFrom(0.2, endless, Pace::steady);
                while (auto frame = frames->next())
                    seen.emplace_back(frame->ptsSec(), pixelAt(frame->image(), 40, 40));
            } catch (const MediaError& error) {
                EXPECT_THAT(error.what(), ::testing::EndsWith("."));
            }
            return seen;
        };
        for (std::size_t at = bytes.size() / 3; at < bytes.size() * 2 / 3; at += 97)
            bytes[at] = char(bytes[at] ^ 0x55);
        const auto seen = numbers();
        EXPECT_LE(seen.size(), kind.times.size());
        for (std::size_t i = 1; i < seen.size(); ++i) EXPECT_GT(seen[i].first, seen[i - 1].first);
        bytes.resize(bytes.size() / 2);
        EXPECT_LE(numbers().size(), kind.times.size());
    }
}

TEST_F(VideoFileTest, RefusesWhatIsNoFilmWithASentence) {
    const auto write = [&](const char* name, const std::string& text) {
        std::ofstream(folder_ / name) << text;
    };
    makeClip(recipeOf(kinds[0], folder_ / "secret.mp4"));
    write("empty.mp4", "");
    write("letter.mov",
        "Dear Sir or Madam, this is not a film, though it is called one. Yours, a text file.\n");
    write("list.m3u8", "#EXTM3U\n#EXT-X-TARGETDURATION:2\n#EXTINF:2,\nsecret.mp4\n#EXT-X-ENDLIST\n");
    write("list.ffconcat", "ffconcat version 1.0\nfile 'secret.mp4'\n");
    write("far.sdp",
        "v=0\no=- 0 0 IN IP4 127.0.0.1\nc=IN IP4 127.0.0.1\nt=0 0\nm=video 5004 RTP/AVP 96\na=rtpmap:96 H264/90000\n");
    const std::string wave(
        "RIFF\x24\x01\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x40\x1f\0\0\x40\x1f\0\0\1\0\x08\0data\0\1\0\0", 44);
    write("sound.wav", wave + std::string(256, '\x80'));
    makeClip({.path = folder_ / "wide.avi",
        .encoder = "mjpeg",
        .pixels = AV_PIX_FMT_YUVJ420P,
        .size = {16384, 16},
        .times = {0},
        .range = AVCOL_RANGE_JPEG,
        .paint = [](AVFrame& frame, int) { fillPlane(frame, 0, 9); }});
    write("cut.mp4", bytesOf(folder_ / "secret.mp4").substr(0, 700));
    std::filesystem::create_directory(folder_ / "folder.mov");
    const struct {
        const char *name, *part;
    } cases[] = {{"absent.mp4", "There is no such file."}, {"empty.mp4", "It is empty."},
        {"folder.mov", "It is not a file."}, {"letter.mov", "letter.mov"}, {"list.m3u8", "list.m3u8"},
        {"list.ffconcat", "list.ffconcat"}, {"far.sdp", "far.sdp"},
        {"sound.wav", "No video track in sound.wav."}, {"wide.avi", "16384 × 16"}, {"cut.mp4", "cut.mp4"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        VideoFile film(folder_ / c.name);
        try {
            film.framesFrom(0, endless, Pace::steady);
            ADD_FAILURE() << "was opened";
        } catch (const MediaError& error) {
            EXPECT_THAT(error.what(), ::testing::HasSubstr(c.part));
            EXPECT_THAT(error.what(), ::testing::EndsWith("."));
        }
    }
}

}   // namespace
}   // namespace tavix::media::tests
