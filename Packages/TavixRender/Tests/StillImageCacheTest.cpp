#include "TavixRender/Assets/StillImageCache.h"
#include "RenderTestKit.h"
#include "TavixPlatform/Media/StillImages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

namespace tavix {
namespace {

using imaging::Image;

constexpr std::size_t plenty = 1u << 20;

void write(const std::filesystem::path& path, const imaging::Size& size) {
    const Image grey = Image::solid({0.5, 0.5, 0.5, 1});
    media::writePng(path, imaging::Evaluator().draw(grey, {0, 0, size.width, size.height}).view());
}

TEST(StillImageCache, ReadsAheadWhatItWouldReadOneByOne) {
    const testing::TemporaryFolder folder;
    imaging::Evaluator drawing;
    std::set<std::filesystem::path> paths;
    for (int i = 0; i < 6; ++i) {
        const auto path = folder.path() / ("picture" + std::to_string(i) + ".png");
        const Image picture = Image::solid({0.1 * i, 0.5, 1, 1}).cropped({0, 0, 40.0 + i, 30});
        media::writePng(path, drawing.draw(picture, {0, 0, 40 + i, 30}).view());
        paths.insert(path);
    }
    const auto broken = folder.path() / "broken.png";
    std::ofstream(broken) << "no picture";
    paths.insert(broken);
    paths.insert(folder.path() / "gone.png");
    std::vector<std::string> log;
    StillImageCache ahead(testing::messagesTo(log)), byOne({});
    ahead.readAhead(paths, plenty);
    EXPECT_THAT(log, ::testing::IsEmpty()) << "nobody has asked for them";
    for (const auto& path : paths) {
        const auto one = ahead.image(path), other = byOne.image(path);
        ASSERT_EQ(one.has_value(), other.has_value()) << path;
        if (!one) continue;
        const imaging::Size size{int(one->extent().width), int(one->extent().height)};
        EXPECT_EQ(testing::Picture(*one, size), testing::Picture(*other, size)) << path;
    }
    EXPECT_EQ(log.size(), 2u);
    // What is read once is not read again.
    const auto before = ahead.image(*paths.rbegin());
    ahead.readAhead(paths, plenty);
    EXPECT_EQ(ahead.image(*paths.rbegin())->hash(), before->hash());
}

// What is read ahead is there although its file has gone since.
TEST(StillImageCache, ReadsNoMoreAheadThanTheMemoryHolds) {
    const testing::TemporaryFolder folder;
    std::set<std::filesystem::path> paths;
    for (const char* name : {"a.png", "b.png", "c.png", "d.png"}) {
        paths.insert(folder.path() / name);
        write(folder.path() / name, {100, 50});
    }
    for (const std::size_t holds : {0u, 1u, 3u, 4u}) {
        std::vector<std::string> log;
        StillImageCache images(testing::messagesTo(log));
        images.readAhead(paths, holds * 100 * 50 * 4);
        std::size_t there = 0;
        for (const auto& path : paths) {
            const auto hidden = path.string() + ".hidden";
            std::filesystem::rename(path, hidden);
            there += images.image(path).has_value();
            std::filesystem::rename(hidden, path);
        }
        EXPECT_EQ(there, holds);
    }
}

TEST(StillImageCache, TellsTheSizeOfTheFileAsItIsNow) {
    const testing::TemporaryFolder folder;
    const auto path = folder.path() / "picture.png";
    std::vector<std::string> log;
    StillImageCache images(testing::messagesTo(log));
    EXPECT_EQ(images.size(path), std::nullopt);
    write(path, {30, 20});
    EXPECT_EQ(images.size(path), (imaging::Size{30, 20}));
    EXPECT_EQ(images.size(path), (imaging::Size{30, 20}));
    write(path, {7, 90});
    EXPECT_EQ(images.size(path), (imaging::Size{7, 90}));
    std::filesystem::remove(path);
    EXPECT_EQ(images.size(path), std::nullopt);
    EXPECT_THAT(log, ::testing::IsEmpty()) << "who draws it is told";
}

}   // namespace
}   // namespace tavix
