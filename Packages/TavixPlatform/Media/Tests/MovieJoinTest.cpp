#include "TavixPlatform/Media/MovieJoin.h"

#include "TavixPlatform/Media/AudioReader.h"
#include "TavixPlatform/Media/AudioWriter.h"
#include "TavixPlatform/Media/Tests/PaintedMovie.h"
#include "TavixPlatform/Media/Tests/SoundFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavix::media::tests {
namespace {

// Frames first ... first + frames - 1 of the pattern, as a piece.
std::filesystem::path writePiece(const TemporaryFolder& folder, MovieCodec codec, int first, int frames) {
    MovieSettings settings = settingsFor(folder / ("piece-" + std::to_string(first)), codec);
    settings.container = MovieContainer::piece;
    MovieWriter writer(settings);
    for (int i = 0; i < frames; ++i) {
        MovieWriter::Slot& slot = writer.acquire();
        paint(slot.planes, first + i);
        writer.submit(slot, i * settings.frameDuration);
    }
    writer.finish();
    return settings.path;
}

std::vector<std::filesystem::path> writePieces(
    const TemporaryFolder& folder, MovieCodec codec, const std::vector<int>& lengths) {
    std::vector<std::filesystem::path> pieces;
    int first = 0;
    for (const int frames : lengths) {
        pieces.push_back(writePiece(folder, codec, first, frames));
        first += frames;
    }
    return pieces;
}

class JoinedPieces : public testing::TestWithParam<CodecCase> {};
INSTANTIATE_TEST_SUITE_P(MovieJoin, JoinedPieces, testing::ValuesIn(codecCases),
    [](const auto& codec) { return codec.param.name; });

TEST_P(JoinedPieces, AreOneFilmWithoutAGap) {
    const TemporaryFolder folder;
    const MovieCodec codec = GetParam().codec;
    const auto pieces = writePieces(folder, codec, {9, 1, 30, 2});
    EXPECT_EQ(pieceFrameCount(pieces[2]), 30);
    const bool isProRes = codec == MovieCodec::proRes422HQ || codec == MovieCodec::proRes4444;
    const MovieContainer container = isProRes ? MovieContainer::mov : MovieContainer::mp4;
    joinPieces({pieces, std::nullopt, folder / "film", container});
    const DecodedMovie film = decodeMovie(folder / "film");
    ASSERT_EQ(film.frames.size(), 42U);
    EXPECT_EQ(film.durationUnits, 42 * 20);
    EXPECT_EQ(film.tag, GetParam().tag);
    EXPECT_GE(film.keyPackets, 4);
    const imaging::PlanarFormat format = planarFormatOf(codec);
    for (int i = 0; i < 42; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(film.presentationTimes[std::size_t(i)], i * 20);
        for (int plane = 0; plane < planeCount(format); ++plane)
            EXPECT_LT(meanError(*film.frames[std::size_t(i)], format, plane, i), GetParam().meanErrorLimit);
    }
}

// Letters that drift over a slope, in the brightness alone: hard edges, as films of texts and screens have.
void paintLetters(const PlanarView& view, int frame) {
    forEachSample(view, [&](int plane, int x, int y, std::uint8_t* sample) {
        const unsigned cell = unsigned((x + frame / 8) / 4) * 73856093u ^ unsigned(y / 6) * 19349663u;
        const bool isLetter = plane == 0 && y % 24 < 12 && (cell >> 7) % 3 == 0;
        *sample = plane > 0 ? 128 : isLetter ? 230 : std::uint8_t(20 + (x + 2 * y) / 5);
    });
}

struct Worth {
    double bytes = 0, meanSquare = 0;   // of how far the brightness lies from what was written
};

Worth worthOf(const std::filesystem::path& film) {
    const DecodedMovie movie = decodeMovie(film);
    Worth worth{double(std::filesystem::file_size(film)), 0};
    MovieWriter::Slot drawn;
    const imaging::Size size{movie.frames.front()->width, movie.frames.front()->height};
    std::vector<std::uint8_t> room(std::size_t(size.width) * size.height * 3);
    drawn.planes = {imaging::PlanarFormat::yuv420p8, size,
        {room.data(), room.data() + size.width * size.height, room.data() + size.width * size.height * 2},
        {size.width, size.width, size.width}};
    for (std::size_t i = 0; i < movie.frames.size(); ++i) {
        paintLetters(drawn.planes, int(i));
        for (int y = 0; y < size.height; ++y)
            for (int x = 0; x < size.width; ++x) {
                const double off = double(movie.frames[i]->data[0][y * movie.frames[i]->linesize[0] + x]) -
                                   drawn.planes.planes[0][y * size.width + x];
                worth.meanSquare +=
                    off * off / (double(size.width) * size.height * double(movie.frames.size()));
            }
    }
    return worth;
}

// Whatever way its rate is told, a film of pieces is worth its bytes as much as one that was encoded in one
// go: at most two more key frames than that has, and no beginning that is coarser, or dearer, than the rest.
TEST(MovieJoin, FilmsAreWorthTheirBytes) {
    constexpr int count = 240, pieceFrames = 48;
    const struct {
        const char* name;
        std::int64_t bitsPerSec;
        std::optional<int> quality;
    } cases[] = {{"low rate", 100'000, {}}, {"high rate", 500'000, {}}, {"quality", 0, 60}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const TemporaryFolder folder;
        const auto write = [&](const std::filesystem::path& path, MovieContainer container, int first,
                               int frames) {
            MovieSettings settings = settingsFor(path, MovieCodec::h264);
            settings.sizePx = {320, 240};
            settings.container = container;
            settings.bitsPerSec = c.bitsPerSec;
            settings.quality = c.quality;
            MovieWriter writer(settings);
            for (int i = 0; i < frames; ++i) {
                MovieWriter::Slot& slot = writer.acquire();
                paintLetters(slot.planes, first + i);
                writer.submit(slot, i * settings.frameDuration);
            }
            writer.finish();
            return path;
        };
        std::vector<std::filesystem::path> pieces;
        for (int first = 0; first < count; first += pieceFrames)
            pieces.push_back(
                write(folder / std::to_string(first), MovieContainer::piece, first, pieceFrames));
        joinPieces({pieces, std::nullopt, folder / "joined.mp4"});
        const Worth one = worthOf(write(folder / "one.mp4", MovieContainer::mp4, 0, count));
        const Worth joined = worthOf(folder / "joined.mp4");
        // Six decibels cost about a bit for each one that there is, more at low rates: a bit is the kinder.
        const double db = 10 * std::log10(joined.meanSquare / one.meanSquare);
        EXPECT_LT(joined.bytes / one.bytes * std::exp2(db / 6), 1.15)
            << joined.bytes << " bytes for " << one.bytes << ", " << db << " dB worse";
    }
}

TEST(MovieJoin, PutsTheSoundUnderAllOfIt) {
    const TemporaryFolder folder;
    const AudioFormat format{48000, 2};
    AudioWriter writer({folder / "sound.m4a", format});
    writer.append(tone(3 * 48'000, format, 440, 0.5));   // longer than the film
    writer.finish();
    const auto pieces = writePieces(folder, MovieCodec::h264, {20, 10});
    joinPieces({pieces, folder / "sound.m4a", folder / "film.mp4"});
    EXPECT_NEAR(probeAudio(folder / "film.mp4")->durationSec, 1, 0.001);
    EXPECT_EQ(decodeMovie(folder / "film.mp4").frames.size(), 30U);
}

TEST(MovieJoin, GivesTheSameBytesAsAnotherJoin) {
    const TemporaryFolder folder;
    const auto pieces = writePieces(folder, MovieCodec::hevc, {5, 5});
    for (const char* name : {"a.mp4", "b.mp4"}) joinPieces({pieces, std::nullopt, folder / name});
    EXPECT_EQ(bytesOf(folder / "a.mp4"), bytesOf(folder / "b.mp4"));
}

// One byte anywhere, and every way of being cut short.
TEST(MovieJoin, FindsEveryDamage) {
    const TemporaryFolder folder;
    const std::filesystem::path piece = writePiece(folder, MovieCodec::h264, 0, 3);
    const std::string whole = bytesOf(piece);
    const auto failureWith = [&](const std::string& bytes) {
        std::ofstream(piece, std::ios::binary | std::ios::trunc) << bytes;
        return failureOf([&] { joinPieces({{piece}, std::nullopt, folder / "film.mp4"}); });
    };
    EXPECT_EQ(failureWith(whole), "no failure");
    for (std::size_t at = 0; at < whole.size(); at += 1 + at / 16) {
        std::string damaged = whole;
        damaged[at] = static_cast<char>(damaged[at] ^ 0x10);
        EXPECT_THAT(failureWith(damaged), testing::StartsWith("Cannot read the piece \"")) << at;
    }
    for (std::size_t length = 0; length < whole.size(); length += 1 + length / 4)
        EXPECT_THAT(failureWith(whole.substr(0, length)), testing::StartsWith("Cannot read the piece \""))
            << length;
}

TEST(MovieJoin, RefusesPiecesThatDoNotGoTogether) {
    const TemporaryFolder folder;
    const auto h264 = writePiece(folder, MovieCodec::h264, 0, 3);
    const auto hevc = writePiece(folder, MovieCodec::hevc, 3, 3);
    EXPECT_THAT(failureOf([&] {
        joinPieces({{h264, hevc}, std::nullopt, folder / "film.mp4"});
    }),
        testing::HasSubstr("does not go with the first one"));
    EXPECT_FALSE(std::filesystem::exists(folder / "film.mp4"));
    EXPECT_THAT(failureOf([&] {
        joinPieces({{}, std::nullopt, folder / "film.mp4"});
    }),
        testing::HasSubstr("at least one piece"));
}

}   // namespace
}   // namespace tavix::media::tests
