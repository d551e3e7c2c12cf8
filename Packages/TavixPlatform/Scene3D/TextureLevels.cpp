#include "TavixPlatform/Scene3D/TextureLevels.h"

#include "TavixPlatform/Imaging/ScratchLoop.h"
#include "TavixPlatform/Scene3D/Kernels/SceneKernels.h"
#include "TavixPlatform/Scene3D/TransferCurve.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace tavix::scene3d {

namespace {

// A job decodes this many rows and makes of them what it can while they are at hand: as many levels as the
// number can be halved.
constexpr int halvingsOfJob = 5, rowsPerJob = 1 << halvingsOfJob;

// What each byte becomes, at the place of each channel in a texel.
struct RootsOfBytes {
    std::array<std::uint32_t, 256> blue, green, red;
};
const RootsOfBytes& rootsOfBytes() {
    static const auto table = [] {
        RootsOfBytes roots{};
        for (std::size_t i = 0; i < 256; ++i) {
            roots.blue[i] =
                std::uint32_t(std::lround(std::sqrt(linearOfBytes()[i]) * TextureLevels::mostRoot));
            roots.green[i] = roots.blue[i] << TextureLevels::rootBits;
            roots.red[i] = roots.green[i] << TextureLevels::rootBits;
        }
        return roots;
    }();
    return table;
}

std::uint32_t* rowOf(TextureLevels& texture, int level, int y) {
    return texture.texels.data() + texture.firstTexel[level] + std::ptrdiff_t(y) * texture.width[level];
}

void decodeRow(TextureLevels& texture, int y) {
    const RootsOfBytes& roots = rootsOfBytes();
    const std::uint8_t* from =
        std::as_const(*texture.bitmap).view().row(texture.part.y0 + y) + std::ptrdiff_t(texture.part.x0) * 4;
    std::uint32_t* to = rowOf(texture, 0, y);
    for (int x = 0; x < texture.width[0]; ++x, from += 4) {
        const std::uint32_t pixel =
            std::uint32_t(from[0]) | std::uint32_t(from[1]) << 8 | std::uint32_t(from[2]) << 16;
        to[x] = roots.blue[pixel & 255] | roots.green[pixel >> 8 & 255] | roots.red[pixel >> 16];
    }
}

// Where a side is odd its last column or row counts twice.
void halveRow(TextureLevels& texture, int level, int y, const SceneKernels& kernels) {
    const imaging::Size from{texture.width[level - 1], texture.height[level - 1]};
    const std::uint32_t* row0 = rowOf(texture, level - 1, 2 * y);
    const std::uint32_t* row1 = rowOf(texture, level - 1, std::min(2 * y + 1, from.height - 1));
    std::uint32_t* to = rowOf(texture, level, y);
    kernels.halveTexels(to, row0, row1, std::size_t(from.width / 2));
    if (const int last = from.width - 1; from.width % 2) {
        const std::uint32_t pair0[2] = {row0[last], row0[last]}, pair1[2] = {row1[last], row1[last]};
        kernels.halveTexels(to + last / 2, pair0, pair1, 1);
    }
}

}   // namespace

void makeLevels(TextureLevels& texture, const SceneKernels& kernels, imaging::ScratchLoop& loop) {
    if (texture.isMade || texture.count == 0) return;
    const int levelsOfJobs = std::min(texture.count, halvingsOfJob + 1);
    const auto job = [&texture, &kernels, levelsOfJobs](int index) {
        for (int level = 0, rows = rowsPerJob; level < levelsOfJobs; ++level, rows /= 2) {
            const int end = std::min((index + 1) * rows, texture.height[level]);
            for (int y = index * rows; y < end; ++y)
                level == 0 ? decodeRow(texture, y) : halveRow(texture, level, y, kernels);
        }
    };
    loop.run((texture.height[0] + rowsPerJob - 1) / rowsPerJob,
        [&job](int index, imaging::Scratch&) { job(index); });
    for (int level = levelsOfJobs; level < texture.count; ++level)
        for (int y = 0; y < texture.height[level]; ++y) halveRow(texture, level, y, kernels);
    texture.isMade = true;
    texture.bitmap.reset();   // the levels hold all of it
}

}   // namespace tavix::scene3d
