#include "TavixPlatform/Imaging/StopScope.h"

#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Imaging/ParallelLoop.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace tavix::imaging {
namespace {

bool stops() {
    try {
        checkStop();
        return false;
    } catch (const WorkStopped&) {
        return true;
    }
}

TEST(StopScope, HoldsWhileItLivesAndInThisThreadOnly) {
    std::stop_source asked, quiet;
    asked.request_stop();
    EXPECT_FALSE(stops());
    {
        const StopScope outer(asked.get_token());
        EXPECT_TRUE(stops());
        bool elsewhere = true;
        std::thread([&] { elsewhere = stops(); }).join();
        EXPECT_FALSE(elsewhere);
        std::thread([&, stop = StopScope::current()] {
            const StopScope scope(stop);
            elsewhere = stops();
        }).join();
        EXPECT_TRUE(elsewhere) << "handed over";
        {
            const StopScope inner(quiet.get_token());
            EXPECT_FALSE(stops());
            quiet.request_stop();
            EXPECT_TRUE(stops());
        }
        const StopScope nobodyAsks{std::stop_token()};
        EXPECT_TRUE(stops()) << "the one around it holds";
    }
    EXPECT_FALSE(stops());
}

// However many turns and threads there are: after the request no turn begins but those that were about to.
TEST(StopScope, EndsLoopsAtTheNextTurn) {
    for (const int threads : {1, 2, 5})
        for (const int count : {2, 7, 1000}) {
            SCOPED_TRACE(std::to_string(threads) + " threads, " + std::to_string(count) + " turns");
            ParallelLoop loop(threads);
            for (const int asking : {0, count / 2, count - 1}) {
                std::stop_source source;
                std::atomic<int> begunAfter = 0;
                const StopScope scope(source.get_token());
                const auto run = [&] {
                    loop.run(count, [&](int i) {
                        if (source.stop_requested()) ++begunAfter;
                        if (i == asking) source.request_stop();
                        loop.run(3, [](int) {});   // from within, as nodes do
                    });
                };
                EXPECT_THROW(run(), WorkStopped);
                EXPECT_LE(begunAfter, threads);
            }
            int turns = 0;
            ParallelLoop alone(1);
            alone.run(count, [&](int) { ++turns; });
            EXPECT_EQ(turns, count) << "nothing stays of the scopes before";
        }
}

// A drawing that was stopped leaves nothing behind: the next one is what it would have been.
TEST(StopScope, StopsADrawingBetweenTiles) {
    const PixelRegion region{0, 0, 700, 500};
    const Image picture = Image::roundedRectangle({50, 60, 500, 300}, 80, Color{0.9, 0.4, 0.1, 1})
                              .gaussianBlurred(12)
                              .over(Image::solid(Color{0.1, 0.2, 0.4, 1}));
    Evaluator fresh, stopped;
    const Bitmap wanted = fresh.draw(picture, region);
    {
        std::stop_source source;
        source.request_stop();
        const StopScope scope(source.get_token());
        EXPECT_THROW(stopped.draw(picture, region), WorkStopped);
    }
    const Bitmap got = stopped.draw(picture, region);
    for (int y = 0; y < region.height(); ++y)
        ASSERT_TRUE(
            std::equal(got.view().row(y), got.view().row(y) + 4 * region.width(), wanted.view().row(y)));
}

}   // namespace
}   // namespace tavix::imaging
