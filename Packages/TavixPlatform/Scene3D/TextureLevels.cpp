#include "TavixPlatform/Scene3D/TextureLevels.h"

#include "TavixPlatform/Imaging/Workshop.h"
#include "TavixPlatform/Scene3D/TransferCurve.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace tavix::scene3d {

namespace {

constexpr int rowsPerJob = 32;

const std::array<std::uint32_t, 256>& wordsOfBytes() {
    static const auto table = [] {
        std::array<std::uint32_t, 256> words{};
        for (std::size_t i = 0; i < words.size(); ++i)
            words[i] = std::uint32_t(std::lround(linearOfBytes()[i] * 65535));
        return words;
    }();
    return table;
}

// The mean of two by two texels, the last column counted twice where the width is odd.
void halveBytes(std::uint16_t* dst, const std::uint8_t* row0, const std::uint8_t* row1, int width) {
    const auto& words = wordsOfBytes();
    for (int x = 0; x < (width + 1) / 2; ++x) {
        const int left = 8 * x, right = 4 * std::min(2 * x + 1, width - 1);
        for (int c = 0; c < 3; ++c)
            dst[4 * x + c] = std::uint16_t((words[row0[left + c]] + words[row0[right + c]] +
                                               words[row1[left + c]] + words[row1[right + c]] + 2) /
                                           4);
        dst[4 * x + 3] = 0;
    }
}

void halveWords(std::uint16_t* dst, const std::uint16_t* row0, const std::uint16_t* row1, int width) {
    for (int x = 0; x < (width + 1) / 2; ++x) {
        const int left = 8 * x, right = 4 * std::min(2 * x + 1, width - 1);
        for (int c = 0; c < 4; ++c)
            dst[4 * x + c] =
                std::uint16_t((row0[left + c] + row0[right + c] + row1[left + c] + row1[right + c] + 2) / 4);
    }
}

void makeRow(TextureLevels& texture, int level, int y) {
    const TextureLevels::Level &to = texture.level[level], &from = texture.level[level - 1];
    std::uint16_t* dst =
        texture.texels.data() + (to.firstTexel + std::size_t(y) * std::size_t(to.size.width)) * 4;
    const int y0 = 2 * y, y1 = std::min(2 * y + 1, from.size.height - 1);
    if (level == 1) {
        const imaging::ConstBitmapView view = std::as_const(*texture.bitmap).view();
        halveBytes(dst, view.row(y0), view.row(y1), from.size.width);
        return;
    }
    const auto row = [&](int at) {
        return texture.texels.data() + (from.firstTexel + std::size_t(at) * std::size_t(from.size.width)) * 4;
    };
    halveWords(dst, row(y0), row(y1), from.size.width);
}

}   // namespace

void makeSmallerLevels(TextureLevels& texture, imaging::Workshop& workshop) {
    if (texture.isMade || texture.count == 0) return;
    for (int level = 1; level < texture.count; ++level) {
        const int rows = texture.level[level].size.height;
        workshop.forEach((rows + rowsPerJob - 1) / rowsPerJob, [&texture, level](int job, imaging::Scratch&) {
            const int end = std::min((job + 1) * rowsPerJob, texture.level[level].size.height);
            for (int y = job * rowsPerJob; y < end; ++y) makeRow(texture, level, y);
        });
    }
    texture.isMade = true;
}

}   // namespace tavix::scene3d
