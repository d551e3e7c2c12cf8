// What frames of retimed footage show, for recordings whose pictures are plain greys, so that a mix can be
// read.
#include "ReelTestKit.h"
#include "TavixPlatform/Media/MovieWriter.h"
#include "TavixReelRender/Film/ReelFilm.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace tavix {
namespace {

using namespace testing;

constexpr double noiseLevels = 2;   // of coding, and of mixing in 8 bits

class PacedFilms : public ::testing::Test {
protected:
    struct Grey {
        int tick;    // of 1/600 second
        int level;   // of the picture, 0 to 255
    };

    ReelFootage record(const std::vector<Grey>& greys, double endSec) {
        const std::filesystem::path video = studio_.folder.path() / "grey.mov";
        media::MovieWriter writer({.path = video, .sizePx = smallSize, .bitsPerSec = 4'000'000});
        for (const Grey& grey : greys) {
            media::MovieWriter::Slot& slot = writer.acquire();
            const imaging::PlanarView& to = slot.planes;
            const int luma = int(std::lround(16 + grey.level * 219 / 255.0));   // ITU-R BT.709, limited range
            for (int row = 0; row < smallSize.height; ++row)
                std::fill_n(to.planes[0] + row * to.strideBytes[0], smallSize.width, std::uint8_t(luma));
            for (int plane = 1; plane < 3; ++plane)
                for (int row = 0; row < smallSize.height / 2; ++row)
                    std::fill_n(to.planes[plane] + row * to.strideBytes[plane], smallSize.width / 2, 128);
            writer.submit(slot, grey.tick);
        }
        writer.finish();
        return {video, smallSize, endSec, 0, endSec};
    }
    // Pictures at 30 a second, each lighter than the one before.
    ReelFootage ramp(int count, int step) {
        std::vector<Grey> greys;
        for (int i = 0; i < count; ++i) greys.push_back({i * 20, i * step});
        return record(greys, count / 30.0);
    }
    EffectsSpec blending(double startSec, double endSec, double speed) {
        EffectsSpec spec = bareSpec();
        spec.retimeTrack = {{{startSec, endSec}, speed}};
        spec.retimeFrames = RetimeFrames::blend;
        return spec;
    }
    std::vector<int> levels(const EffectsSpec& spec, const ReelFootage& footage) {
        ReelFilm film(spec, footage, studio_.folder.path(), studio_.evaluator, {});
        std::vector<int> levels;
        for (int i = 0; i < std::lround(film.durationSec() * 30); ++i)
            levels.push_back(Picture(film.frame(i / 30.0), smallSize).at(20, 20).g);
        return levels;
    }
    void expectLevels(const std::vector<int>& found, const std::vector<double>& wanted) {
        ASSERT_EQ(found.size(), wanted.size());
        for (std::size_t i = 0; i < found.size(); ++i) EXPECT_NEAR(found[i], wanted[i], noiseLevels) << i;
    }

    Studio studio_{smallSize};
};

TEST_F(PacedFilms, FastFootageShowsTheMeanOfWhatPasses) {
    // Six pictures as they are, then four times as fast: the means of four each.
    expectLevels(
        levels(blending(0.2, 0.8, 4), ramp(24, 10)), {0, 10, 20, 30, 40, 50, 75, 115, 155, 195, 225});
}

TEST_F(PacedFilms, SlowFootageGoesFromPictureToPicture) {
    expectLevels(levels(blending(0, 0.1, 0.25), ramp(6, 40)),
        {0, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 110, 120, 160, 200});
}

TEST_F(PacedFilms, APictureCountsForAsLongAsItIsShown) {
    // Of the tenth of a second that a frame takes at three times the pace the first picture has a quarter.
    const ReelFootage footage = record({{0, 40}, {15, 120}, {60, 200}}, 0.2);
    expectLevels(levels(blending(0, 0.2, 3), footage), {40 * 0.25 + 120 * 0.75, 200});
}

TEST_F(PacedFilms, APictureThatStandsGivesWayAtItsEnd) {
    // A second's picture, played at half the pace, is the same until the last tenth of its second.
    const auto found = levels(blending(0, 2, 0.5), record({{0, 40}, {600, 200}}, 2));
    ASSERT_EQ(found.size(), 120u);
    for (int i = 0; i <= 54; ++i) EXPECT_NEAR(found[std::size_t(i)], 40, noiseLevels) << i;
    EXPECT_NEAR(found[57], 120, noiseLevels);
    for (int i = 60; i < 120; ++i) EXPECT_NEAR(found[std::size_t(i)], 200, noiseLevels) << i;
}

TEST_F(PacedFilms, NothingIsMixedThatNobodyAskedToMix) {
    const ReelFootage footage = ramp(24, 10);
    EffectsSpec spec = blending(0.2, 0.8, 4);
    spec.retimeFrames = RetimeFrames::pick;
    expectLevels(levels(spec, footage), {0, 10, 20, 30, 40, 50, 60, 100, 140, 180, 220});
    // A pace of its own is no pace.
    expectLevels(levels(blending(0, 0.2, 1), ramp(6, 40)), {0, 40, 80, 120, 160, 200});
}

TEST_F(PacedFilms, MixesComeInAnyOrder) {
    const ReelFootage footage = ramp(24, 10);
    const EffectsSpec spec = blending(0, 0.8, 2);
    const auto inOrder = levels(spec, footage);
    ReelFilm film(spec, footage, studio_.folder.path(), studio_.evaluator, {});
    for (const int frame : {11, 3, 4, 0, 7})
        EXPECT_EQ(Picture(film.frame(frame / 30.0), smallSize).at(20, 20).g, inOrder[std::size_t(frame)]);
}

}   // namespace
}   // namespace tavix
