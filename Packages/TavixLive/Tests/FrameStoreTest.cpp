#include "TavixLive/Stage/FrameStore.h"

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <random>

namespace tavix {
namespace {

using imaging::Bitmap;

Bitmap noise(imaging::Size size, unsigned seed) {
    std::mt19937 random(seed);
    Bitmap bitmap(size);
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x) {
            std::uint8_t* pixel = bitmap.view().row(y) + 4 * x;
            for (int c = 0; c < 3; ++c) pixel[c] = static_cast<std::uint8_t>(random());
            pixel[3] = 255;
        }
    return bitmap;
}

bool areSame(const Bitmap& a, const Bitmap& b) {
    for (int y = 0; y < a.size().height; ++y)
        if (std::memcmp(a.view().row(y), b.view().row(y), std::size_t(a.size().width) * 4) != 0) return false;
    return true;
}

// Frames of any size come back as they were, or not at all, and never more than the memory that is allowed.
TEST(FrameStore, GivesBackWhatWasPutInOrNothing) {
    for (const imaging::Size size : {imaging::Size{130, 70}, {64, 64}, {1, 200}, {63, 65}}) {
        const std::size_t oneFrame = std::size_t(size.width * size.height) * 3;
        FrameStore store(size, 6 * oneFrame);
        std::map<unsigned, Bitmap> put;
        std::mt19937 random(9);
        int found = 0;
        for (int i = 0; i < 200; ++i) {
            const unsigned key = unsigned(random() % 12) + 1;
            const Digest digest{key * 77, key};
            Bitmap frame(size);
            if (store.restore(digest, frame.view())) {
                ++found;
                ASSERT_TRUE(areSame(frame, put.at(key)));
            } else {
                EXPECT_FALSE(store.has(digest));
                put.insert_or_assign(key, noise(size, key));
                store.keep(digest, put.at(key).view());
            }
            EXPECT_LE(store.byteCount(), 6 * oneFrame);
        }
        EXPECT_GT(found, 30);
    }
}

TEST(FrameStore, KeepsWhatFramesShareOnce) {
    const imaging::Size size{256, 256};
    FrameStore store(size, 1u << 30);
    Bitmap frame = noise(size, 1);
    store.keep({1, 1}, frame.view());
    const std::size_t first = store.byteCount();
    for (unsigned i = 2; i < 50; ++i) {
        frame.view().row(int(i))[4] ^= 1;   // a dot that moves
        store.keep({i, i}, frame.view());
    }
    EXPECT_EQ(store.frameCount(), 49u);
    EXPECT_LT(store.byteCount(), 5 * first);
}

TEST(FrameStore, DropsWhatWasNotUsedTheLongest) {
    const imaging::Size size{64, 64};
    FrameStore store(size, 3 * 64 * 64 * 3 + 200);
    for (unsigned i = 1; i <= 3; ++i) store.keep({i, i}, noise(size, i).view());
    Bitmap into(size);
    ASSERT_TRUE(store.restore({1, 1}, into.view()));
    store.keep({4, 4}, noise(size, 4).view());
    EXPECT_TRUE(store.has({1, 1}));
    EXPECT_FALSE(store.has({2, 2}));
}

}   // namespace
}   // namespace tavix
