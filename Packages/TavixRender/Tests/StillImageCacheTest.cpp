#include "TavixRender/Assets/StillImageCache.h"
#include "RenderTestKit.h"
#include "TavixPlatform/Media/StillImages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

namespace tavix {
namespace {

using imaging::Image;

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
    ahead.readAhead(paths);
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
    ahead.readAhead(paths);
    EXPECT_EQ(ahead.image(*paths.rbegin())->hash(), before->hash());
}

}   // namespace
}   // namespace tavix
