#include "TavixRender/Composition2D/CompositionSourceCrop.h"
#include "RenderTestKit.h"
#include "TavixRender/Assets/CompositionAssets.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

using imaging::Rect;
using testing::Picture;

constexpr imaging::Size size{1000, 500};

TEST(SourceCrop, CutsInFractionsFromTheTopLeft) {
    const imaging::Image card = testing::testCard(size, 6);
    const Picture whole(card, size);
    const struct {
        NormalizedRect rect;
        int left, top, width, height;   // pixels from the top left of the source
    } cases[] = {
        {{0, 0, 1, 1}, 0, 0, 1000, 500}, {{0.1, 0.2, 0.3, 0.4}, 100, 100, 300, 200},
        {{0.5, 0, 0.5, 0.5}, 500, 0, 500, 250},
        {{0.9, 0.8, 0.5, 0.5}, 900, 400, 100, 100},   // held inside the picture
        {{-3, -3, 0.5, 0.5}, 0, 0, 500, 250},
        {{0.2, 0.2, -1, 0}, 200, 100, 1, 1},   // 0.001 of the width; half a pixel of the height
    };
    for (const auto& c : cases) {
        const imaging::Image cut = CompositionSourceCrop::apply(card, c.rect);
        EXPECT_EQ(cut.extent(), (Rect{0, 0, double(c.width), double(c.height)}));
        const Picture part(cut, {c.width, c.height});
        EXPECT_EQ(part.at(0, 0), whole.at(c.left, c.top));
        EXPECT_EQ(part.at(c.width - 1, c.height - 1), whole.at(c.left + c.width - 1, c.top + c.height - 1));
    }
}

TEST(SourceCrop, LeavesAPictureAloneWithoutARectangle) {
    const imaging::Image card = testing::testCard(size, 6);
    EXPECT_EQ(CompositionSourceCrop::apply(card, std::nullopt).hash(), card.hash());
}

TEST(SourceCrop, KeepsNothingBeyondTheFarCorner) {
    const imaging::Image cut =
        CompositionSourceCrop::apply(testing::testCard({10, 10}, 1), NormalizedRect{1, 1, 1, 1});
    EXPECT_TRUE(cut.isEmpty());
}

TEST(CompositionAssets, JoinRelativePathsToTheRoot) {
    const std::filesystem::path root = "/bundle";
    EXPECT_EQ(CompositionAssets::resolved("a/b.png", root), "/bundle/a/b.png");
    EXPECT_EQ(CompositionAssets::resolved("/a/b.png", root), "/a/b.png");
    EXPECT_EQ(CompositionAssets::resolved("a/b.png", std::nullopt), "a/b.png");
    EXPECT_EQ(CompositionAssets::resolved("~/b.png", root), "/bundle/~/b.png");
}

TEST(CompositionAssets, MakeOnlyPicturePathsAbsolute) {
    const std::filesystem::path root = "/bundle";
    const auto absolutized = [&](std::optional<std::string> path) {
        const BackgroundFill fill = BackgroundImage{std::move(path), "aurora"};
        return std::get<BackgroundImage>(CompositionAssets::absolutized(fill, root));
    };
    EXPECT_EQ(absolutized("p.jpg"), (BackgroundImage{"/bundle/p.jpg", "aurora"}));
    for (const auto& unchanged : {std::optional<std::string>(), std::optional<std::string>(""),
             std::optional<std::string>("/p.jpg"), std::optional<std::string>("~/p.jpg")})
        EXPECT_EQ(absolutized(unchanged).path, unchanged);
    const BackgroundFill colour = RGBAColor{1, 0, 0, 1};
    EXPECT_EQ(CompositionAssets::absolutized(colour, root), colour);
}

}   // namespace
}   // namespace tavix
