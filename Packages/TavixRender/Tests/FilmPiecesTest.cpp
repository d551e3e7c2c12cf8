#include "RenderTestKit.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixPlatform/Media/MovieJoin.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixPlatform/Media/VideoFile.h"
#include "TavixRender/Export/CompositionExport.h"
#include "TavixRender/Export/FilmCheck.h"
#include "TavixRender/Export/PieceKeys.h"
#include "TavixRender/Export/PieceStore.h"
#include "TavixRender/Export/RateFit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <random>
#include <set>

namespace tavix {
namespace {

using testing::fillLayer;
using testing::keyframe;
using testing::sceneOf;
using testing::shapeLayer;
using testing::specOf;
using testing::transitionOf;

namespace fs = std::filesystem;

constexpr imaging::Size size{64, 48};
constexpr RGBAColor red{1, 0, 0, 1}, green{0, 1, 0, 1}, blue{0, 0, 1, 1}, grey{0.5, 0.5, 0.5, 1};

std::string bytesOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

CompositionLayer word(const std::string& text) {
    CompositionLayer layer;
    TextContent content;
    content.text = text;
    content.sizeFraction = 0.3;
    layer.content = content;
    layer.position = {32, 24};
    return layer;
}

CompositionLayer picture(const fs::path& file) {
    CompositionLayer layer;
    ImageContent content;
    content.path = file.string();
    layer.content = content;
    layer.position = {32, 24};
    return layer;
}

// Four scenes of one second: a picture, words, words that go over into a shape, and that.
CompositionSpec film(const fs::path& folder) {
    imaging::Bitmap pixels(imaging::Size{20, 20});
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 80; ++x) pixels.view().row(y)[x] = x % 4 == 3 ? 255 : std::uint8_t(9 * y);
    media::writePng(folder / "a.png", pixels.view());
    CompositionSpec spec = specOf(size, 10,
        {sceneOf(1, {picture("a.png")}), sceneOf(1, {word("One")}), sceneOf(1, {word("Two")}),
            sceneOf(1, {fillLayer(green)})});
    spec.scenes[2].transition = transitionOf(TransitionStyle::fade, 0.3);
    spec.assetRoot = folder.string();
    return spec;
}

class Pieces : public ::testing::Test {
protected:
    CompositionRenderer::Config config(const CompositionSpec& spec, const std::string& name) {
        CompositionRenderer::Config config;
        config.spec = spec;
        config.output = folder.path() / name;
        config.pieceStore = folder.path() / "store";
        config.evaluation.threadCount = 1;
        return config;
    }
    PieceRender::Report render(const CompositionRenderer::Config& asked) {
        return CompositionExport::write(asked, {});
    }
    std::string cold(CompositionRenderer::Config asked) {
        asked.pieceStore.reset();
        asked.output = folder.path() / "cold.mp4";
        render(asked);
        return bytesOf(asked.output);
    }

    testsupport::TemporaryFolder folder;
};

// Whatever the lengths, every frame is in one piece, and no piece is longer than two seconds.
TEST(FilmPieces, HoldEveryFrameOnce) {
    std::mt19937 random(7);
    const auto upTo = [&](double most) { return most * double(random() % 1000 + 1) / 1000; };
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE(round);
        std::vector<CompositionScene> scenes;
        for (std::size_t i = 0; i < 1 + random() % 9; ++i) {
            scenes.push_back(sceneOf(upTo(7), {}));
            if (random() % 2 == 0) scenes.back().transition = transitionOf(TransitionStyle::fade, upTo(1));
        }
        CompositionSpec spec = specOf(size, 30, scenes);
        spec.output.fps = *FrameRate::ratio(std::int64_t(1 + random() % 60), std::int64_t(1 + random() % 2));
        std::int64_t next = 0;
        for (const FilmPiece& piece : filmPieces(spec)) {
            EXPECT_EQ(piece.firstFrame, next);
            EXPECT_GE(piece.frameCount, 1);
            EXPECT_LE(double(piece.frameCount), std::max(2 * double(spec.output.fps) + 0.5, 1.0));
            next += piece.frameCount;
        }
        EXPECT_EQ(next, CompositionRenderer::frameCount(spec));
    }
}

TEST_F(Pieces, MakeTheSameFilmFoundOrMadeAloneOrSideBySide) {
    const CompositionSpec spec = film(folder.path());
    auto asked = config(spec, "a.mp4");
    const auto first = render(asked);
    EXPECT_GE(first.pieces, 4u);
    EXPECT_EQ(first.reused, 0u);
    const std::string bytes = bytesOf(asked.output);
    EXPECT_EQ(bytes, cold(asked));
    asked.output = folder.path() / "b.mp4";
    EXPECT_EQ(render(asked).reused, first.pieces);
    EXPECT_EQ(bytesOf(asked.output), bytes);
    asked.evaluation.threadCount = 8;   // four at once
    EXPECT_EQ(cold(asked), bytes);
    for (const auto& entry : fs::directory_iterator(folder.path()))
        EXPECT_FALSE(entry.path().filename().string().starts_with(".tavix")) << entry.path();
}

TEST_F(Pieces, OfOneChangedWordAloneAreMadeAgain) {
    CompositionSpec spec = film(folder.path());
    const auto before = render(config(spec, "a.mp4"));
    std::get<TextContent>(spec.scenes[1].layers[0].content).text = "Ten";
    const auto asked = config(spec, "b.mp4");
    const auto after = render(asked);
    EXPECT_EQ(after.reused, before.pieces - 1);
    EXPECT_EQ(bytesOf(asked.output), cold(asked));
}

TEST_F(Pieces, AreNotTouchedByTheSound) {
    CompositionSpec spec = film(folder.path());
    const auto before = render(config(spec, "a.mp4"));
    spec.audio.emplace();
    SoundCue cue;
    cue.atSec = 0.2;
    spec.audio->cues.push_back(cue);
    EXPECT_EQ(render(config(spec, "b.mp4")).reused, before.pieces);
}

// Each edit changes what some frame shows, so at least one key must change, and the film must be the one that
// a render without a store makes.
TEST_F(Pieces, AreMissedByEveryEditThatShows) {
    const CompositionSpec spec = film(folder.path());
    render(config(spec, "a.mp4"));
    using Edit = std::function<void(CompositionRenderer::Config&)>;
    const std::pair<const char*, Edit> edits[] = {
        {"a background", [](auto& c) { c.spec.background = blue; }},
        {"the background of one scene", [](auto& c) { c.spec.scenes[0].background = grey; }},
        {"a colour", [](auto& c) { c.spec.scenes[3].layers[0].content = BackgroundFill(red); }},
        {"a place", [](auto& c) { c.spec.scenes[1].layers[0].position.x += 3; }},
        {"a beginning", [](auto& c) { c.spec.scenes[1].layers[0].fromSec = 0.5; }},
        {"a keyframe",
            [](auto& c) {
                c.spec.scenes[0].layers[0].tracks.push_back(
                    {AnimProperty::opacity, {keyframe(0, 0.2), keyframe(1, 1)}});
            }},
        {"a length", [](auto& c) { c.spec.scenes[0].durationSec = 1.2; }},
        {"a transition", [](auto& c) { c.spec.scenes[2].transition->durationSec = 0.5; }},
        {"its style", [](auto& c) { c.spec.scenes[2].transition->style = TransitionStyle::push; }},
        {"an effect", [](auto& c) { c.spec.scenes[1].layers[0].effects = {BlurEffect{0.05}}; }},
        {"one more layer", [](auto& c) { c.spec.scenes[2].layers.push_back(fillLayer(blue)); }},
        {"the order of scenes", [](auto& c) { std::swap(c.spec.scenes[0], c.spec.scenes[1]); }},
        {"the frame's size", [](auto& c) { c.spec.output.widthPx = 66; }},
        {"the rate", [](auto& c) { c.spec.output.fps = 12; }},
        {"the codec", [](auto& c) { c.videoCodec = VideoCodec::hevc; }},
        {"the effort", [](auto& c) { c.effort = media::EncodingEffort::best; }},
        {"the quality", [](auto& c) { c.rate.quality = 20; }},
        {"the bits", [](auto& c) { c.rate.bitsPerSec = 50'000; }},
    };
    for (const auto& [name, edit] : edits) {
        SCOPED_TRACE(name);
        auto asked = config(spec, "b.mp4");
        edit(asked);
        const auto made = render(asked);
        EXPECT_LT(made.reused, made.pieces);
        EXPECT_EQ(bytesOf(asked.output), cold(asked));
    }
}

// The same name and time, and another content.
TEST_F(Pieces, AreMissedWhenAFileHasAnotherContent) {
    const CompositionSpec spec = film(folder.path());
    const auto before = render(config(spec, "a.mp4"));
    imaging::Bitmap other(imaging::Size{20, 20});
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 80; ++x) other.view().row(y)[x] = 255;
    const auto time = fs::last_write_time(folder.path() / "a.png");
    media::writePng(folder.path() / "a.png", other.view());
    fs::last_write_time(folder.path() / "a.png", time);
    auto asked = config(spec, "b.mp4");
    EXPECT_EQ(render(asked).reused, before.pieces - 1);
    EXPECT_EQ(bytesOf(asked.output), cold(asked));
    fs::remove(folder.path() / "a.png");
    asked.output = folder.path() / "c.mp4";
    EXPECT_EQ(render(asked).reused, before.pieces - 1);
    EXPECT_EQ(bytesOf(asked.output), cold(asked));
}

// The store has pieces of the document at every rate that it was made at, and none is taken for another.
TEST_F(Pieces, OfAFilmUnderASizeAreNotTakenForOthers) {
    CompositionSpec spec = specOf({320, 240}, 10, {sceneOf(1, {word("One")}), sceneOf(1, {word("Two")})});
    for (CompositionScene& scene : spec.scenes)
        scene.layers[0].tracks.push_back({AnimProperty::rotationDeg, {keyframe(0, 0), keyframe(1, 200)}});
    const auto asked = config(spec, "a.mp4");
    const std::string usual = cold(asked);
    for (const char* order : {"the small one first", "the usual one first"}) {
        SCOPED_TRACE(order);
        PiecedFilm film = CompositionExport::filmOf(asked);
        const auto mostBytes = std::int64_t(double(usual.size()) * 0.6);
        RateFit::write(film, mostBytes, {}, {});
        EXPECT_LE(std::int64_t(bytesOf(asked.output).size()), mostBytes);
        render(asked);
        EXPECT_EQ(bytesOf(asked.output), usual);
    }
}

// Somebody who renders again must be told again.
TEST_F(Pieces, ThatMissAFileAreNotKept) {
    CompositionSpec spec = film(folder.path());
    spec.scenes[0].layers.push_back(picture("absent.png"));
    for (int i = 0; i < 2; ++i) {
        std::vector<std::string> told;
        CompositionExport::write(config(spec, "a.mp4"), testing::messagesTo(told));
        EXPECT_THAT(told, ::testing::Contains(::testing::HasSubstr("absent.png"))) << i;
    }
}

TEST_F(Pieces, ThatAreDamagedAreMadeAgain) {
    const CompositionSpec spec = film(folder.path());
    auto asked = config(spec, "a.mp4");
    const auto before = render(asked);
    const std::string bytes = bytesOf(asked.output);
    const auto kept = *fs::directory_iterator(folder.path() / "store");
    {
        std::fstream file(kept.path(), std::ios::binary | std::ios::in | std::ios::out);
        file.seekp(std::streamoff(kept.file_size() / 2));
        file.put('\x55').put('\xAA');
    }
    asked.output = folder.path() / "b.mp4";
    EXPECT_EQ(render(asked).reused, before.pieces - 1);
    EXPECT_EQ(bytesOf(asked.output), bytes);
    EXPECT_EQ(render(asked).reused, before.pieces);   // the damaged one was replaced
}

TEST_F(Pieces, OfAStoppedRenderServeTheNextOne) {
    const CompositionSpec spec = film(folder.path());
    auto asked = config(spec, "a.mp4");
    std::stop_source stop;
    EXPECT_THROW(CompositionExport::write(
                     asked, {},
                     [&](double done) {
                         if (done > 0.4) stop.request_stop();
                     },
                     stop.get_token()),
        RenderStopped);
    EXPECT_FALSE(fs::exists(asked.output));
    const auto resumed = render(asked);
    EXPECT_GT(resumed.reused, 0u);
    EXPECT_LT(resumed.reused, resumed.pieces);
    EXPECT_EQ(bytesOf(asked.output), cold(asked));
}

// What is kept must be all there is: a document that is written and read again has the same keys, since the
// keys are made of what is written.
TEST_F(Pieces, HaveKeysOfAllThatADocumentSays) {
    const CompositionSpec spec = film(folder.path());
    const CompositionSpec again = decodeJson<CompositionSpec>(encodedJson(spec));
    const auto asked = config(spec, "a.mp4"), askedAgain = config(again, "a.mp4");
    const PieceKeys keys(asked), keysAgain(askedAgain);
    std::set<std::pair<std::uint64_t, std::uint64_t>> different;
    const auto pieces = filmPieces(spec);
    for (const FilmPiece& piece : pieces) {
        ASSERT_TRUE(keys.of(piece));
        EXPECT_EQ(keys.of(piece), keysAgain.of(piece));
        different.emplace(keys.of(piece)->low, keys.of(piece)->high);
        EXPECT_NE(keys.of(piece), keys.ofDocument(piece));
    }
    EXPECT_EQ(different.size(), pieces.size());
}

TEST_F(Pieces, LeaveTheStoreLeastRecentlyUsedFirst) {
    const auto asked = config(film(folder.path()), "a.mp4");
    render(asked);
    const PieceStore store(*asked.pieceStore);
    const PieceStore::Usage all = store.usage();
    const PieceKeys keys(asked);
    const auto pieces = filmPieces(asked.spec);
    for (const auto& entry : fs::directory_iterator(*asked.pieceStore))
        fs::last_write_time(entry.path(), fs::file_time_type::clock::now() - std::chrono::hours(1));
    ASSERT_TRUE(store.fetch(*keys.of(pieces[1]), pieces[1].frameCount, folder.path() / "x"));
    store.trim(std::int64_t(fs::file_size(folder.path() / "x")));
    EXPECT_EQ(store.usage().pieces, 1);
    EXPECT_TRUE(store.fetch(*keys.of(pieces[1]), pieces[1].frameCount, folder.path() / "x"));
    EXPECT_EQ(store.clear().pieces, 1);
    EXPECT_EQ(store.usage().bytes, 0);
    EXPECT_GT(all.pieces, 1);
}

TEST_F(Pieces, AreCheckedAsAFilm) {
    const CompositionSpec spec = film(folder.path());
    auto asked = config(spec, "a.mp4");
    render(asked);
    FilmCheck::probe(CompositionExport::filmOf(asked), asked.output);
    const FilmCheck::Likeness likeness = FilmCheck::verify(CompositionExport::filmOf(asked), asked.output);
    EXPECT_EQ(likeness.framesDecoded, CompositionRenderer::frameCount(spec));
    EXPECT_GT(likeness.leastSimilarity, 0.9);
    EXPECT_LT(likeness.mostColorError, 4);
    // Another film of the same length and size is found out, and so is one that lacks a frame.
    auto other = asked;
    other.spec.scenes[3].layers[0] = fillLayer(red);
    EXPECT_THROW(FilmCheck::verify(CompositionExport::filmOf(other), asked.output), Failure);
    other.spec.scenes[3].durationSec += 0.1;
    EXPECT_THROW(FilmCheck::probe(CompositionExport::filmOf(other), asked.output), Failure);
}

}   // namespace
}   // namespace tavix
