#include "TavixLive/Gallery/PresetGalleryModel.h"
#include "FakeMaker.h"
#include "TavixCore/Theme/BackgroundCatalog.h"

#include <gtest/gtest.h>

#include <set>

namespace tavix {
namespace {

class PresetGalleryPlaying : public ::testing::Test {
protected:
    void select(std::size_t index) { model.select(PresetGalleryModel::items()[index]); }
    std::string screenOf(const CompositionSpec& spec) {
        const auto& device = std::get<DeviceContent>(spec.scenes[0].layers[0].content);
        return std::get<StillScreen>(device.screen).path;
    }

    bool hasArtwork = true;
    system::ManualTime time;
    system::ManualExecutor main{time}, render{time}, workers{time};
    std::shared_ptr<testing::FakeMaker> maker = std::make_shared<testing::FakeMaker>(time);
    PresetGalleryModel model{{main, render, workers}, maker,
        [this](const BundledBackground& background) -> std::optional<std::filesystem::path> {
            if (!hasArtwork) return std::nullopt;
            return "/pictures/" + std::string(background.id);
        }};
};

TEST_F(PresetGalleryPlaying, PlaysWhatIsSelectedAgainAndAgain) {
    maker->buildSec = 0.2;
    select(4);
    EXPECT_TRUE(model.isLoading());
    EXPECT_FALSE(model.isPlaying());
    time.advance(0.5);
    EXPECT_FALSE(model.isLoading());
    EXPECT_TRUE(model.isPlaying());
    EXPECT_EQ(model.selectedItem(), &PresetGalleryModel::items()[4]);
    ASSERT_EQ(maker->built.size(), 1u);
    EXPECT_EQ(maker->built[0].spec.output.widthPx, 360);
    EXPECT_EQ(maker->built[0].spec.output.heightPx, 640);
    const double totalSec = model.preview().totalSec();
    time.advance(3 * totalSec);
    EXPECT_TRUE(model.isPlaying()) << "it loops";
    EXPECT_LT(model.preview().player().currentSec(), totalSec);
    model.togglePlayback();
    EXPECT_FALSE(model.isPlaying());
    const double pausedSec = model.preview().player().currentSec();
    time.advance(1);
    EXPECT_EQ(model.preview().player().currentSec(), pausedSec);
    select(4);
    EXPECT_TRUE(model.isPlaying());
    EXPECT_EQ(maker->built.size(), 1u) << "it is built once";
    model.restart();
    EXPECT_NEAR(model.preview().player().currentSec(), 0, 1e-9);
    model.stop();
    EXPECT_FALSE(model.isPlaying());
    time.advance(1);
    EXPECT_EQ(model.preview().player().item(), nullptr);
}

TEST_F(PresetGalleryPlaying, ShowsOnlyTheLastOfThoseSelected) {
    maker->buildSec = 0.2;
    for (const std::size_t index : {0u, 1u, 2u}) {
        select(index);
        time.advance(0.1);
    }
    EXPECT_TRUE(model.isLoading());
    time.advance(2);
    EXPECT_EQ(model.selectedItem(), &PresetGalleryModel::items()[2]);
    EXPECT_EQ(model.preview().totalSec(), PresetGalleryModel::items()[2].durationSec);
    select(3);
    time.advance(0.1);
    model.stop();
    time.advance(2);
    EXPECT_EQ(model.preview().player().item(), nullptr);
    EXPECT_FALSE(model.isPlaying());
}

TEST_F(PresetGalleryPlaying, GivesNeighboursDifferentScreens) {
    std::set<std::string> screens;
    for (std::size_t i = 0; i < 12; ++i) {
        select(i);
        time.advance(1);
        const std::string screen = screenOf(maker->built.back().spec);
        screens.insert(screen);
        EXPECT_EQ(screen, "/pictures/" + std::string(BackgroundCatalog::all[1 + i % 6].id));
    }
    EXPECT_EQ(screens.size(), 6u);
}

TEST_F(PresetGalleryPlaying, TellsWhatIsMissing) {
    hasArtwork = false;
    select(0);
    EXPECT_EQ(model.errorMessage(), "The bundled preview artwork is missing.");
    EXPECT_FALSE(model.isLoading());
    hasArtwork = true;
    maker->fails = true;
    select(0);
    time.advance(1);
    EXPECT_EQ(model.errorMessage(), "Video preview failed: No.");
    EXPECT_FALSE(model.isLoading());
    maker->fails = false;
    select(0);
    time.advance(1);
    EXPECT_FALSE(model.errorMessage());
    EXPECT_TRUE(model.isPlaying());
}

TEST_F(PresetGalleryPlaying, ForgetsWhatWasWrongAndWhatWasShownWithTheNext) {
    maker->fails = true;
    select(0);
    time.advance(1);
    ASSERT_TRUE(model.errorMessage());
    maker->fails = false;
    maker->buildSec = 0.3;
    select(1);
    EXPECT_FALSE(model.errorMessage());
    EXPECT_EQ(model.preview().player().item(), nullptr);
    time.advance(1);
    std::vector<int> shown;
    model.setStageSink([&](const StagePicture& picture) { shown.push_back(testing::numberOf(picture)); });
    select(2);
    time.advance(0.2);
    EXPECT_TRUE(shown.empty()) << "the one before is not seen any more";
    EXPECT_FALSE(model.isPlaying());
    time.advance(1);
    for (const int number : shown) EXPECT_EQ(number, int(maker->built.size()));
    EXPECT_FALSE(shown.empty());
}

}   // namespace
}   // namespace tavix
