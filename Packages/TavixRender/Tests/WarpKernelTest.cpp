#include "TavixRender/Compositor/Kernels/CrosswarpKernel.h"
#include "TavixRender/Compositor/Kernels/RippleKernel.h"

#include "TavixPlatform/Imaging/Hash.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace tavix {
namespace {

using imaging::WarpSample;

constexpr imaging::Rect rect{0, 0, 96, 54};

struct KernelCase {
    std::string name;
    std::unique_ptr<imaging::Warp> (*make)(float progress);
};

const KernelCase kernels[] = {
    {"crosswarp",
        [](float e) -> std::unique_ptr<imaging::Warp> { return std::make_unique<CrosswarpKernel>(rect, e); }},
    {"ripple",
        [](float e) -> std::unique_ptr<imaging::Warp> {
            return std::make_unique<RippleKernel>(rect, e, RippleKernel::Shape{});
        }},
    {"strong ripple",
        [](float e) -> std::unique_ptr<imaging::Warp> {
            return std::make_unique<RippleKernel>(
                rect, e, RippleKernel::Shape{.amplitude = 120, .speed = 120});
        }},
};

std::vector<WarpSample> rowOf(const imaging::Warp& warp, int y) {
    std::vector<WarpSample> row(std::size_t(rect.width));
    warp.row(0, y, int(rect.width), row.data());
    return row;
}

// Calls `check` with every sample and its pixel's centre.
template <class Check> void forEachSample(const imaging::Warp& warp, Check check) {
    for (int y = 0; y < int(rect.height); ++y) {
        const auto row = rowOf(warp, y);
        for (std::size_t x = 0; x < row.size(); ++x) check(row[x], float(x) + 0.5f, float(y) + 0.5f);
    }
}

TEST(WarpKernels, StartWithTheOutgoingAndEndWithTheIncomingPictureUntouched) {
    for (const auto& kernel : kernels) {
        SCOPED_TRACE(kernel.name);
        for (const float before : {0.0f, -0.3f, -7.0f})
            forEachSample(*kernel.make(before), [](const WarpSample& s, float x, float y) {
                ASSERT_EQ(s.mix, 0);
                ASSERT_EQ(s.fromX, x);
                ASSERT_EQ(s.fromY, y);
            });
        for (const float after : {1.0f, 1.3f, 7.0f})
            forEachSample(*kernel.make(after), [](const WarpSample& s, float x, float y) {
                ASSERT_EQ(s.mix, 1);
                ASSERT_EQ(s.toX, x);
                ASSERT_EQ(s.toY, y);
            });
    }
}

TEST(WarpKernels, AreFiniteAndMixWithinRange) {
    for (const auto& kernel : kernels) {
        SCOPED_TRACE(kernel.name);
        for (float e = -1; e <= 2; e += 0.125f)
            forEachSample(*kernel.make(e), [](const WarpSample& s, float, float) {
                ASSERT_TRUE(std::isfinite(s.fromX + s.fromY + s.toX + s.toY));
                ASSERT_GE(s.mix, 0);
                ASSERT_LE(s.mix, 1);
            });
    }
}

TEST(WarpKernels, NeverTakeTheIncomingPictureBack) {
    for (const auto& kernel : kernels) {
        SCOPED_TRACE(kernel.name);
        for (float e = 0; e < 1; e += 0.1f) {
            const auto earlier = rowOf(*kernel.make(e), 20), later = rowOf(*kernel.make(e + 0.1f), 20);
            for (std::size_t x = 0; x < earlier.size(); ++x) ASSERT_LE(earlier[x].mix, later[x].mix);
        }
    }
}

TEST(WarpKernels, MoveSmoothlyInTime) {
    constexpr float step = 1.0f / 4096;
    for (const auto& kernel : kernels) {
        SCOPED_TRACE(kernel.name);
        for (const float e : {0.0f, 0.11f, 0.5f, 0.83f, 1.0f - step}) {
            const auto now = rowOf(*kernel.make(e), 11), next = rowOf(*kernel.make(e + step), 11);
            for (std::size_t x = 0; x < now.size(); ++x) {
                ASSERT_NEAR(now[x].mix, next[x].mix, 0.002);
                ASSERT_NEAR(now[x].fromX, next[x].fromX, 0.4);
                ASSERT_NEAR(now[x].toX, next[x].toX, 0.4);
            }
        }
    }
}

TEST(WarpKernels, RunTheWayTheyShould) {
    const auto row = rowOf(*kernels[0].make(0.5f), 27);
    for (std::size_t x = 1; x < row.size(); ++x) ASSERT_LE(row[x].mix, row[x - 1].mix);
    // The wave is the same all round: what it does to the left it does mirrored to the right.
    const auto wave = rowOf(*kernels[1].make(0.4f), 27);
    for (std::size_t x = 0; x < wave.size() / 2; ++x) {
        const WarpSample &left = wave[x], &right = wave[wave.size() - 1 - x];
        ASSERT_NEAR(left.fromX + right.fromX, rect.width, 1e-3);
        ASSERT_FLOAT_EQ(left.mix, right.mix);
    }
}

TEST(WarpKernels, DescribeEveryArgument) {
    const auto digestOf = [](const imaging::Warp& warp) {
        Hash hash;
        warp.describe(hash);
        return hash.digest();
    };
    const Digest crosswarp = digestOf(CrosswarpKernel(rect, 0.5f));
    EXPECT_EQ(crosswarp, digestOf(CrosswarpKernel(rect, 0.5f)));
    EXPECT_NE(crosswarp, digestOf(CrosswarpKernel(rect, 0.25f)));
    EXPECT_NE(crosswarp, digestOf(CrosswarpKernel({0, 0, 96, 55}, 0.5f)));
    const Digest ripple = digestOf(RippleKernel(rect, 0.5f, {}));
    EXPECT_NE(ripple, crosswarp);
    EXPECT_NE(ripple, digestOf(RippleKernel(rect, 0.5f, {.amplitude = 31})));
    EXPECT_NE(ripple, digestOf(RippleKernel(rect, 0.5f, {.speed = 31})));
}

}   // namespace
}   // namespace tavix
