// Pieces of a reel's film that a render finds again: those that an edit does not touch, and no others.
#include "ReelTestKit.h"
#include "TavixBase/Failure.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixPlatform/Media/Tests/TestClip.h"
#include "TavixReelRender/Export/ReelExport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <functional>

namespace tavix {
namespace {

using namespace testing;
using ::testing::Contains;
using ::testing::HasSubstr;

namespace fs = std::filesystem;

std::string bytesOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

class ReelPieces : public ::testing::Test {
protected:
    ReelPieces() {
        record(240);
        config_.footage = {at("raw.mov"), smallSize, 8, 0, 8};
        config_.assetRoot = studio_.folder.path();
        config_.fps = 10;
        config_.file.output = at("film.mp4");
        config_.evaluation.threadCount = 1;
        config_.pieceStore = at("store");
        EffectsSpec& spec = config_.spec = bareSpec(10);
        spec.background.device.screen = {0, 0.5, 1, 0.5};   // above it there is room for what stands still
        spec.background.fill = RGBAColor{0.2, 0.2, 0.6, 1};
        spec.cameraTrack = {{0, 1, {32, 32}}, {6.5, 1.3, {20, 20}}};
        spec.cuts = {{.dropRange = {2, 3}}};
        spec.retimeTrack = {{{5, 6}, 2}};
        spec.cutDressing.emplace();
        Narration narration;
        for (const double sec : {0.5, 7.0}) {
            Caption caption;
            caption.text = "Here";
            caption.window = {sec, sec + 0.8};
            narration.captions.push_back(caption);
        }
        spec.narration = narration;
        TitleCard card;
        card.durationSec = 1.5;
        card.insertionSec = 4;
        card.headline.text = "Card";
        card.background = RGBAColor{0.5, 0, 0, 1};
        spec.titleCards = {card};
        ScreenTransition wipe;
        wipe.style = TransitionStyle::wipe;
        wipe.atSec = 6.6;
        wipe.revealSec = 6.9;
        spec.setTransitions({wipe});
    }
    fs::path at(const char* name) const { return studio_.folder.path() / name; }
    void record(int frames) {
        media::tests::makeClip({.path = at("raw.mov"), .times = media::tests::evenTimes(frames)});
    }
    static PieceRender::Report render(const ReelExport::Config& config) {
        return ReelExport::write(config, {});
    }
    std::string cold(ReelExport::Config config) const {
        config.pieceStore.reset();
        config.file.output = at("cold.mp4");
        render(config);
        return bytesOf(config.file.output);
    }

    Studio studio_{smallSize};
    ReelExport::Config config_;
};

TEST_F(ReelPieces, ServeTheNextRenderOfWhatDoesNotShowAnEdit) {
    const auto first = render(config_);
    ASSERT_GE(first.pieces, 5u);
    EXPECT_EQ(first.reused, 0u);
    const std::string film = bytesOf(config_.file.output);
    EXPECT_EQ(film, cold(config_));
    EXPECT_EQ(render(config_).reused, first.pieces);
    EXPECT_EQ(bytesOf(config_.file.output), film);
    config_.spec.soundCues = {SoundCue::of(1, SFXCatalog::Sound::ding)};
    EXPECT_EQ(render(config_).reused, first.pieces);
}

// Each edit changes what some frame shows; how many pieces show it tells how much is found again.
TEST_F(ReelPieces, AreMissedByEveryEditThatShows) {
    using Edit = std::function<void(ReelExport::Config&)>;
    constexpr std::size_t any = 99;
    const struct {
        const char* name;
        std::size_t mostMissed;
        Edit edit;
    } cases[] = {
        {"a caption's text", 1, [](auto& c) { c.spec.narration->captions[0].text = "There"; }},
        {"a caption's time", 1, [](auto& c) { c.spec.narration->captions[1].window.startSec = 7.4; }},
        {"the captions' style", any, [](auto& c) { c.spec.narration->style.fontSizeFraction = 0.2; }},
        {"a card's text", 1, [](auto& c) { c.spec.titleCards[0].headline.text = "Cart"; }},
        {"a card's ground", 1,
            [](auto& c) {
                c.spec.titleCards[0].background = RGBAColor{0, 0, 1, 1};
            }},
        {"a card's length", any, [](auto& c) { c.spec.titleCards[0].durationSec = 1.3; }},
        {"the camera's end", 2, [](auto& c) { c.spec.cameraTrack[1].scale = 2; }},
        {"the camera's way", any, [](auto& c) { c.spec.motion = MotionModel(KeyframeEasing{}); }},
        {"a cut", any, [](auto& c) { c.spec.cuts[0].dropRange.endSec = 2.7; }},
        {"a pace", any, [](auto& c) { c.spec.retimeTrack[0].speedFactor = 1.5; }},
        {"how paces are shown", any, [](auto& c) { c.spec.retimeFrames = RetimeFrames::blend; }},
        {"light on cuts", any, [](auto& c) { c.spec.cutDressing->style = CutDressing::Style::lightLeak; }},
        {"a transition", 1,
            [](auto& c) {
                auto wipe = c.spec.transitions();
                wipe[0].style = TransitionStyle::push;
                c.spec.setTransitions(wipe);
            }},
        {"the ground", any,
            [](auto& c) {
                c.spec.background.fill = RGBAColor{0, 0.4, 0, 1};
            }},
        {"the room", any, [](auto& c) { c.spec.background.padding = 9; }},
        {"the device's place", any,
            [](auto& c) {
                DevicePlacementSpec placement;
                placement.track = {{.tSec = 0, .offset = {0.2, 0}}};
                c.spec.setDevicePlacement(placement);
            }},
        {"the trim", any, [](auto& c) { c.footage.trimStartSec = 0.5; }},
        {"the frame's size", any, [](auto& c) { c.spec.output.widthPx = 66; }},
        {"the rate", any, [](auto& c) { c.fps = 12; }},
        {"the codec", any, [](auto& c) { c.file.codec = VideoCodec::hevc; }},
        {"the quality", any, [](auto& c) { c.file.rate.quality = 20; }},
    };
    const auto first = render(config_);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ReelExport::Config asked = config_;
        asked.file.output = at("edited.mp4");
        c.edit(asked);
        const auto made = render(asked);
        EXPECT_LT(made.reused, made.pieces);
        if (c.mostMissed != any) {
            EXPECT_EQ(made.pieces, first.pieces);
            EXPECT_LE(made.pieces - made.reused, c.mostMissed);
        }
        EXPECT_EQ(bytesOf(asked.file.output), cold(asked));
    }
}

// The first frame of a piece is the same whether the film was drawn up to it or begins there, also where
// frames are mixed of several pictures, and whoever draws which piece.
TEST_F(ReelPieces, AreTheSameWhoeverDrawsThem) {
    for (const RetimeFrames frames : {RetimeFrames::pick, RetimeFrames::blend}) {
        config_.spec.retimeFrames = frames;
        config_.spec.retimeTrack = {{{3.2, 5}, 0.5}, {{5, 6.8}, 2.5}};
        const std::string film = cold(config_);
        const auto first = render(config_);
        EXPECT_EQ(bytesOf(config_.file.output), film);
        ReelExport::Config edited = config_;
        edited.spec.narration->captions[1].text = "There";
        const auto made = render(edited);
        EXPECT_EQ(made.pieces - made.reused, 1u) << "which begins in the midst of the film";
        EXPECT_EQ(bytesOf(edited.file.output), cold(edited));
        ReelExport::Config shared = config_;
        shared.pieceStore.reset();
        shared.evaluation.threadCount = 4;
        ASSERT_GT(PieceRender::workerCount(ReelExport::filmOf(shared), first.pieces), 1);
        render(shared);
        EXPECT_EQ(bytesOf(shared.file.output), film);
    }
}

// With the same names and times.
TEST_F(ReelPieces, AreMissedWhenTheRecordingOrAPictureHasAnotherContent) {
    render(config_);
    const auto changes = {std::pair("raw.mov", std::function<void()>([this] { record(239); })),
        std::pair("clear.png", std::function<void()>([this] {
            imaging::Bitmap white(smallSize);
            for (int y = 0; y < 20; ++y)
                for (int x = 0; x < 4 * smallSize.width; ++x) white.view().row(y)[x] = 255;
            media::writePng(at("clear.png"), white.view());
        }))};
    for (const auto& [name, change] : changes) {
        SCOPED_TRACE(name);
        const auto time = fs::last_write_time(at(name));
        change();
        fs::last_write_time(at(name), time);
        EXPECT_EQ(render(config_).reused, 0u);
        EXPECT_EQ(bytesOf(config_.file.output), cold(config_));
    }
}

// Somebody who renders again must be told again.
TEST_F(ReelPieces, ThatMissAPictureAreNotKept) {
    config_.spec.background.fill = BackgroundFill(BackgroundImage{.path = "absent.png"});
    for (int i = 0; i < 2; ++i) {
        std::vector<std::string> told;
        EXPECT_EQ(ReelExport::write(config_, messagesTo(told)).reused, 0u) << i;
        EXPECT_THAT(told, Contains(HasSubstr("absent.png"))) << i;
    }
}

TEST_F(ReelPieces, WithoutTheRecordingAreNoFilm) {
    fs::remove(at("raw.mov"));
    for (const auto format : {ExportFormat::video, ExportFormat::gif}) {
        config_.file.format = format;
        try {
            render(config_);
            ADD_FAILURE();
        } catch (const Failure& failure) {
            EXPECT_THAT(failure.message(), HasSubstr("Could not read raw recording: "));
            EXPECT_THAT(failure.message(), HasSubstr("raw.mov"));
        }
        EXPECT_FALSE(fs::exists(config_.file.output));
    }
}

}   // namespace
}   // namespace tavix
