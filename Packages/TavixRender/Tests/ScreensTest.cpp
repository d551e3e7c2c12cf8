// What devices show: the clips behind their screens, and the textures on them.
#include "RenderTestKit.h"
#include "TavixRender/Composition2D/ScreenShelf.h"
#include "TavixRender/DeviceScene/DeviceDarkroom.h"
#include "TestAssets.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace tavix {
namespace {

class Shelf : public ::testing::Test {
protected:
    Shelf() {
        testing::writeTestAssets(folder.path(), 0, 2);
        build.screens = &shelf;
        build.window = {0, 2};
    }
    static VideoClip clip(int number, double trimStartSec = 0) {
        return {testing::clipName(number), trimStartSec, {}, {}};
    }

    testing::TemporaryFolder folder;
    imaging::Evaluator evaluator;
    StillImageCache images{RenderLog()};
    text::FontBook fonts;
    ScreenShelf shelf;
    LayerBuild build{{0, 0, 64, 64}, 30, folder.path(), evaluator, images, fonts};
};

TEST_F(Shelf, HasOneClipForAllWhoShowItAtTheSameTime) {
    const auto shown = screenFor(clip(0), build);
    EXPECT_EQ(screenFor(clip(0), build), shown);

    const auto other = [&](auto&& change, const ScreenSource& source = clip(0), bool holdsLastFrame = true) {
        LayerBuild changed = build;
        change(changed);
        return screenFor(source, changed, holdsLastFrame) != shown;
    };
    const auto nothing = [](LayerBuild&) {};
    EXPECT_FALSE(other(nothing));
    EXPECT_TRUE(other([](LayerBuild& it) { it.scene = 1; })) << "a transition shows both scenes";
    EXPECT_TRUE(other([](LayerBuild& it) { it.window.startSec = 0.1; }));
    EXPECT_TRUE(other([](LayerBuild& it) { it.window.endSec = 1.9; })) << "it may rest before";
    EXPECT_TRUE(other([](LayerBuild& it) { it.screens = nullptr; }));
    EXPECT_TRUE(other(nothing, clip(1)));
    EXPECT_TRUE(other(nothing, clip(0, 0.5)));
    EXPECT_TRUE(other(nothing, clip(0), false));
}

TEST_F(Shelf, LooksAtAFileAgainThatHasChanged) {
    const auto before = screenFor(clip(0), build);
    std::filesystem::copy_file(folder.path() / testing::clipName(1), folder.path() / testing::clipName(0),
        std::filesystem::copy_options::overwrite_existing);
    EXPECT_NE(screenFor(clip(0), build), before);
}

TEST_F(Shelf, KeepsNothingThatNobodyShows) {
    const std::weak_ptr<ScreenPictures> shown = screenFor(clip(0), build);
    EXPECT_TRUE(shown.expired());
    EXPECT_NE(screenFor(clip(0), build), nullptr);
}

imaging::BitmapPart pictureOf(int width) {
    return {std::make_shared<const imaging::Bitmap>(imaging::Size{width, 2}), {0, 0, width, 2}};
}

// Devices that come, go and change their pictures in any order: each shows its own, told by its size, and of
// equal ones there is one texture.
TEST(Darkroom, ShowsOnEachScreenItsOwnPicture) {
    DeviceDarkroom darkroom;
    std::mt19937 random(5);
    std::array<DeviceDarkroom::ScreenRef, 4> screens;
    std::array<int, 4> shown{};   // 0: nothing
    int drawn = 0;
    for (int step = 0; step < 400; ++step) {
        const std::size_t at = random() % screens.size();
        const int picture = int(random() % 6);
        const bool isThere = std::ranges::count(shown, picture) > 0;
        shown[at] = picture;
        if (picture == 0) {
            screens[at].reset();
        } else {
            const int before = drawn;
            darkroom.show(screens[at], Digest{std::uint64_t(picture), 0}, [&] {
                ++drawn;
                return pictureOf(picture);
            });
            EXPECT_FALSE(isThere && drawn > before) << "a picture that is on a screen is not drawn again";
        }
        for (std::size_t i = 0; i < screens.size(); ++i) {
            if (shown[i] == 0) continue;
            ASSERT_EQ(screens[i]->texture->size().width, shown[i]) << "step " << step << ", screen " << i;
            for (std::size_t j = 0; j < i; ++j) EXPECT_EQ(screens[i] == screens[j], shown[i] == shown[j]);
        }
    }
}

TEST(Darkroom, LeavesAScreenAsItWasWhenItsNextPictureCannotBeDrawn) {
    DeviceDarkroom darkroom;
    DeviceDarkroom::ScreenRef screen;
    darkroom.show(screen, Digest{1, 0}, [] { return pictureOf(1); });
    EXPECT_THROW(darkroom.show(
                     screen, Digest{2, 0}, []() -> imaging::BitmapPart { throw std::runtime_error("full"); }),
        std::runtime_error);
    EXPECT_EQ(screen->texture->size().width, 1);
    darkroom.show(screen, Digest{2, 0}, [] { return pictureOf(2); });
    EXPECT_EQ(screen->texture->size().width, 2);
}

}   // namespace
}   // namespace tavix
