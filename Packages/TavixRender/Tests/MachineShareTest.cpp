// What a render may keep follows from the memory that it is given, and its pictures do not.
#include "TavixRender/Export/MachineShare.h"
#include "RenderTestKit.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixRender/Export/CompositionExport.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

constexpr std::size_t megabyte = std::size_t{1} << 20;

std::size_t keptBytes(std::size_t memory, int workers) {
    const RenderRoom room = MachineShare::roomOf(memory, workers);
    return room.decoderBytes + room.pictureBytes + MachineShare::evaluation({}, memory, workers).cacheBytes;
}

TEST(MachineShare, WorkersTogetherKeepLessThanTheyWereGiven) {
    for (const int workers : {1, 2, 7, 32})
        for (const std::size_t each : {200 * megabyte, 500 * megabyte, 4000 * megabyte}) {
            const std::size_t memory = each * std::size_t(workers);
            EXPECT_LT(keptBytes(memory, workers) * std::size_t(workers), memory * 6 / 10)
                << workers << ' ' << each;
        }
}

TEST(MachineShare, LessMemoryAndMoreWorkersMeanLessOfEverything) {
    RenderRoom before = MachineShare::roomOf(megabyte, 1);
    for (std::size_t memory = 2 * megabyte; memory <= 65536 * megabyte; memory *= 2) {
        const RenderRoom room = MachineShare::roomOf(memory, 1), shared = MachineShare::roomOf(memory, 4);
        EXPECT_GE(room.decoderBytes, before.decoderBytes);
        EXPECT_GE(room.pictureBytes, before.pictureBytes);
        EXPECT_LE(shared.decoderBytes, room.decoderBytes);
        EXPECT_LE(shared.pictureBytes, room.pictureBytes);
        before = room;
    }
    EXPECT_LT(MachineShare::roomOf(megabyte, 1).pictureBytes, megabyte / 8)
        << "it shrinks to next to nothing";
    EXPECT_EQ(before.pictureBytes, RenderRoom().pictureBytes)
        << "and with much memory no more is kept than pays";
}

// Pictures that come again after others have pushed them out, in two sizes and under an effect.
TEST(MachineShare, FilmHasTheSameBytesWithAnyMemory) {
    const testsupport::TemporaryFolder folder;
    imaging::Evaluator evaluator;
    CompositionSpec spec = testing::specOf({64, 48}, 10, {});
    const auto shown = [&](int number, double heightFraction) {
        const auto file = folder / ("picture" + std::to_string(number) + ".png");
        if (!std::filesystem::exists(file))
            media::writePng(file,
                evaluator.draw(testing::testCard({600, 400}, unsigned(number)), {0, 0, 600, 400}).view());
        CompositionLayer layer;
        ImageContent content;
        content.path = file.string();
        content.heightFraction = heightFraction;
        layer.content = content;
        layer.position = {32, 24};
        return layer;
    };
    for (const int round : {0, 1})
        for (int i = 0; i < 4; ++i)
            spec.scenes.push_back(
                testing::sceneOf(0.3, {shown(i, 0.9 - 0.3 * round), shown((i + 1) % 4, 0.2)}));
    CompositionRenderer::Config config;
    config.spec = spec;
    std::vector<std::string> films;
    for (const std::size_t memory : {std::size_t{1}, 20 * megabyte, 4000 * megabyte}) {
        config.memoryBytes = memory;
        config.output = folder / "film.mp4";
        CompositionExport::write(config, {});
        films.push_back(readBytes(config.output));
    }
    EXPECT_TRUE(films[0] == films[1]);
    EXPECT_TRUE(films[1] == films[2]);
}

}   // namespace
}   // namespace tavix
