// Laws of drawing: what comes out depends on the graph alone.
#include "TavixPlatform/Imaging/Evaluator.h"

#include "TavixPlatform/Imaging/FrameSurface.h"
#include "TavixPlatform/Imaging/Node.h"
#include "TavixPlatform/Imaging/RenderContext.h"
#include "TavixPlatform/Imaging/Tests/Pictures.h"

#include <algorithm>
#include <cstring>

#include <gtest/gtest.h>

namespace tavix::imaging::tests {
namespace {

constexpr PixelRegion frame{-20, -10, 170, 140};

Words cut(const Words& all, const PixelRegion& part) {
    Words words;
    for (int y = part.y0; y < part.y1; ++y)
        for (int x = part.x0; x < part.x1; ++x)
            words.push_back(
                all[std::size_t(y - frame.y0) * std::size_t(frame.width()) + std::size_t(x - frame.x0)]);
    return words;
}

TEST(Evaluator, DrawsAPartAsThatPartOfTheWhole) {
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE(round);
        const Image image = randomImage(random, 1 + round % 4);
        Evaluator evaluator({.threadCount = 1, .comparesStructures = true});
        const Words whole = pixelsOf(evaluator, image, frame);
        const int x = frame.x0 + int(random() % 150), y = frame.y0 + int(random() % 100);
        const PixelRegion part{x, y, x + 1 + int(random() % 40), y + 1 + int(random() % 50)};
        Evaluator fresh({.threadCount = 1, .cacheBytes = 0});
        ASSERT_EQ(pixelsOf(fresh, image, part), cut(whole, part));
        ASSERT_EQ(pixelsOf(evaluator, image, part), cut(whole, part));
    }
}

Words shownBy(const BitmapPart& part) {
    Words words;
    for (int y = part.fromTopLeft.y1 - 1; y >= part.fromTopLeft.y0; --y) {
        const auto* row = reinterpret_cast<const std::uint32_t*>(part.bitmap->view().row(y));
        words.insert(words.end(), row + part.fromTopLeft.x0, row + part.fromTopLeft.x1);
    }
    return words;
}

TEST(Evaluator, GivesTheOpaquePixelsThatDrawingOverBlackGives) {
    std::mt19937 random(11);
    Evaluator evaluator({.threadCount = 1});
    int shared = 0;
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE(round);
        const auto upTo = [&](int most) { return int(random() % unsigned(most)); };
        const BitmapRef pixels = noiseBitmap({40 + upTo(60), 40 + upTo(60)}, unsigned(round), round % 3 > 0);
        const Image whole = Image::bitmap(pixels, {double(upTo(30)), double(-upTo(9))});
        const Image image = round % 5 ? whole.cropped({double(upTo(40)), 3, 50, 60}) : randomImage(random, 2);
        const int x = upTo(60), y = upTo(40);
        const PixelRegion region{x, y, x + 1 + upTo(30), y + 1 + upTo(30)};
        const BitmapPart part = evaluator.opaquePixels(image, region);
        shared += part.bitmap == pixels;
        ASSERT_EQ(shownBy(part), pixelsOf(evaluator, image.over(Image::solid(Color::black())), region));
    }
    EXPECT_GT(shared, 30);   // and often without drawing them
}

TEST(Bitmap, KnowsWhereItsInkIs) {
    std::mt19937 random(5);
    for (int round = 0; round < 200; ++round) {
        SCOPED_TRACE(round);
        const Size size{1 + int(random() % 150), 1 + int(random() % 100)};
        Bitmap bitmap(size);
        PixelRegion ink{size.width, size.height, 0, 0};
        for (int dots = round % 4; dots > 0; --dots) {
            const int x = int(random() % unsigned(size.width)), y = int(random() % unsigned(size.height));
            bitmap.view().row(y)[4 * x + 3] = 1;
            ink = {
                std::min(ink.x0, x), std::min(ink.y0, y), std::max(ink.x1, x + 1), std::max(ink.y1, y + 1)};
        }
        bitmap.indexCoverage();
        EXPECT_EQ(bitmap.inkBounds(), ink.isEmpty() ? PixelRegion{} : ink);
    }
}

TEST(Evaluator, DoesNotDependOnThreadsOrOnWhatWasDrawnBefore) {
    std::mt19937 random(11);
    Evaluator one({.threadCount = 1, .cacheBytes = 0}), two({.threadCount = 2, .comparesStructures = true}),
        seven({.threadCount = 7, .cacheBytes = 1 << 18});
    for (int round = 0; round < 150; ++round) {
        SCOPED_TRACE(round);
        const Image image = randomImage(random, 1 + round % 5);
        const Words expected = pixelsOf(one, image, frame);
        ASSERT_EQ(pixelsOf(two, image, frame), expected);
        ASSERT_EQ(pixelsOf(seven, image, frame), expected);
        ASSERT_EQ(pixelsOf(two, image, frame), expected);   // now from the cache
    }
}

// Pictures of one colour each, shrunken by halves: in one frame, so that all that is halved meets in the
// cache.
TEST(Evaluator, ShowsEachOfManyShrunkenPicturesItsOwnColour) {
    constexpr int side = 256, across = 12;
    Evaluator evaluator({.comparesStructures = true});
    std::vector<Image> pictures;
    const auto colorOf = [](int i) { return 0xFF000000u | std::uint32_t(i * 1234567 + 89) % 0xFFFFFFu; };
    const auto scaleOf = [](int i) { return 0.6 / (1 << i % 6); };
    for (int i = 0; i < across * across; ++i)
        pictures.push_back(Image::bitmap(filledBitmap({side, side}, colorOf(i)))
                               .transformed(Affine::scaling(scaleOf(i), scaleOf(i)))
                               .translated(i % across * 160, i / across * 160));
    const Words words = pixelsOf(evaluator, Image::stacked(pictures), {0, 0, across * 160, across * 160});
    for (int i = 0; i < across * across; ++i) {
        const int middle = int(scaleOf(i) * side / 2), x = i % across * 160 + middle,
                  y = i / across * 160 + middle;
        ASSERT_EQ(words[std::size_t(y * across * 160 + x)], colorOf(i)) << "picture " << i;
    }
}

// A node that tells other fields than it was hashed with stands for two that meet under one key.
TEST(Evaluator, NoticesTwoPicturesThatMeetUnderOneKey) {
    class TwoFaced final : public Node {
    public:
        explicit TwoFaced(double number) : Node({0, 0, 40, 40}, {0, 0, 40, 40}), number_(number) {}
        void describe(Structure& s) const override {
            s.kind(1000).add(isHashed_ ? number_ : 0.0), isHashed_ = true;
        }
        DrawableRef prepare(
            RenderContext& context, const NodeRef&, const PixelRegion& wanted) const override {
            return context.prepare(Image::solid(Color::white()).node(), wanted);
        }

    private:
        double number_;
        mutable bool isHashed_ = false;
    };
    const Image one{makeNode<TwoFaced>(1.0)}, other{makeNode<TwoFaced>(2.0)};
    ASSERT_EQ(one.hash(), other.hash());
    const auto blurred = [](const Image& image) { return image.gaussianBlurred(1); };
    Evaluator comparing({.threadCount = 1, .comparesStructures = true}), trusting({.threadCount = 1});
    for (Evaluator* evaluator : {&comparing, &trusting}) evaluator->draw(blurred(one), frame);
    EXPECT_NO_THROW(comparing.draw(blurred(one), frame));
    EXPECT_THROW(comparing.draw(blurred(other), frame), std::logic_error);
    EXPECT_NO_THROW(trusting.draw(blurred(other), frame));
}

TEST(Evaluator, KeepsPremultipliedPixelsInOrder) {
    std::mt19937 random(13);
    Evaluator evaluator;
    for (int round = 0; round < 200; ++round) {
        SCOPED_TRACE(round);
        for (const std::uint32_t pixel : pixelsOf(evaluator, randomImage(random, 1 + round % 4), frame))
            for (int c = 0; c < 3; ++c) ASSERT_LE(channel(pixel, c), channel(pixel, 3));
    }
}

TEST(Evaluator, DrawsNothingOutsideTheExtent) {
    std::mt19937 random(17);
    Evaluator evaluator;
    for (int round = 0; round < 200; ++round) {
        SCOPED_TRACE(round);
        const Image image = randomImage(random, 1 + round % 3);
        const PixelRegion inside = pixelsCovering(image.extent());
        const Words words = pixelsOf(evaluator, image, frame);
        for (int y = frame.y0; y < frame.y1; ++y)
            for (int x = frame.x0; x < frame.x1; ++x)
                if (!inside.contains({x, y, x + 1, y + 1})) {
                    ASSERT_EQ(words[std::size_t(y - frame.y0) * std::size_t(frame.width()) +
                                    std::size_t(x - frame.x0)],
                        0u);
                }
    }
}

TEST(Evaluator, BakesAPictureIntoTheSamePicture) {
    std::mt19937 random(19);
    Evaluator evaluator;
    for (int round = 0; round < 150; ++round) {
        SCOPED_TRACE(round);
        const Image image = randomImage(random, 1 + round % 4);
        for (const Image& drawn : {evaluator.baked(image, frame), evaluator.drawnForFrame(image, frame)}) {
            ASSERT_EQ(pixelsOf(evaluator, drawn, frame), pixelsOf(evaluator, image, frame));
            if (!drawn.isEmpty()) {
                ASSERT_EQ(drawn.extent(), image.extent());
            }
        }
    }
}

TEST(Evaluator, SurvivesAStackOfAHundredThousand) {
    std::vector<Image> layers(100000, Image::solid({1, 0, 0, 0.001}).cropped({0, 0, 4, 4}));
    Evaluator evaluator;
    EXPECT_EQ(pixelsOf(evaluator, Image::stacked(layers), {0, 0, 4, 4}).size(), 16u);
}

TEST(FrameSurface, ShowsWhatAFreshDrawingShows) {
    std::mt19937 random(23);
    Evaluator evaluator({.comparesStructures = true}), fresh({.cacheBytes = 0});
    const Size size{300, 200};
    FrameSurface surface(evaluator, size);
    Image still = randomImage(random, 3).over(Image::solid({0.2, 0.3, 0.4, 1}));
    for (int i = 0; i < 80; ++i) {
        SCOPED_TRACE(i);
        if (i % 20 == 19) still = randomImage(random, 3);
        const Image moving = randomImage(random, 2);
        const Image picture = moving.translated(i * 3 % 250, i % 70).over(still);
        surface.update(picture);
        const Bitmap expected = fresh.draw(picture, {0, 0, size.width, size.height});
        for (int y = 0; y < size.height; ++y)
            ASSERT_EQ(
                std::memcmp(surface.pixels().row(y), expected.view().row(y), std::size_t(size.width) * 4), 0)
                << y;
    }
}

TEST(FrameSurface, DrawsOnlyTilesThatChanged) {
    Evaluator evaluator;
    FrameSurface surface(evaluator, {1280, 640});
    const Image back = Image::bitmap(noiseBitmap({1280, 640}, 3, true));
    const Image card = Image::bitmap(noiseBitmap({60, 40}, 4, true));
    EXPECT_EQ(surface.update(back), 100);
    EXPECT_EQ(surface.update(back), 0);
    EXPECT_EQ(surface.update(card.translated(10, 10).over(back)), 1);
    EXPECT_EQ(surface.update(card.translated(12.5, 10).over(back)), 1);
    EXPECT_EQ(surface.update(card.translated(400, 10).over(back)), 2);   // where it was and where it is
    EXPECT_EQ(surface.update(back.over(card)), 1);                       // hidden: as the back alone
    EXPECT_EQ(surface.update(back), 0);
}

TEST(FrameSurface, WritesPlanesAsIfAllWereWritten) {
    Evaluator evaluator;
    const Size size{300, 202};
    FrameSurface surface(evaluator, size);
    struct Planes {
        std::vector<std::uint8_t> bytes = std::vector<std::uint8_t>(300 * 202 * 2, 0);
        std::uint64_t stamp = 0;
        PlanarView view() {
            return {PlanarFormat::yuv420p8, {300, 202},
                {bytes.data(), bytes.data() + 300 * 202, bytes.data() + 300 * 202 + 150 * 101, nullptr},
                {300, 150, 150, 0}};
        }
    } slots[3];
    std::mt19937 random(29);
    for (int i = 0; i < 40; ++i) {
        const Image picture =
            randomImage(random, 1).translated(i * 5, i).over(Image::solid({0, 0.4, 0.9, 1}));
        Planes& slot = slots[random() % 3];
        surface.update(picture, {slot.view(), slot.stamp});
        Planes all;
        surface.update(picture, {all.view(), all.stamp});
        ASSERT_EQ(slot.bytes, all.bytes) << i;
    }
}

TEST(FrameSurface, WritesTheChromaThatLooksAcrossATilesEdge) {
    Evaluator evaluator;
    FrameSurface surface(evaluator, {256, 64});
    std::vector<std::uint8_t> kept(256 * 64 * 3 / 2), fresh(kept);
    const auto planes = [](std::vector<std::uint8_t>& bytes) {
        std::uint8_t* first = bytes.data();
        return PlanarView{PlanarFormat::yuv420p8, {256, 64},
            {first, first + 256 * 64, first + 256 * 64 * 5 / 4, nullptr}, {256, 128, 128, 0}};
    };
    const Image back = Image::solid(Color::black());
    const Image lastColumn = Image::solid({1, 0, 0, 1}).cropped({tileWidthPx - 1, 0, 1, 64});
    std::uint64_t stamp = 0, none = 0;
    surface.update(back, {planes(kept), stamp});
    surface.update(lastColumn.over(back), {planes(kept), stamp});   // changes the first tile alone
    surface.update(lastColumn.over(back), {planes(fresh), none});
    EXPECT_EQ(kept, fresh);
}

TEST(FrameSurface, AsksForNoNewMemoryOnceItRuns) {
    Evaluator evaluator({.threadCount = 2, .cacheBytes = 8 << 20});
    FrameSurface surface(evaluator, {640, 480});
    const Image card = Image::bitmap(noiseBitmap({200, 300}, 5));
    const auto frameAt = [&](int i) {
        const Image turned = card.transformed(Affine::rotation(i * 0.02).then(Affine::translation(200, 100)));
        return turned.gaussianBlurred(4 + i % 3).withOpacity(0.9).over(Image::solid(Color::white()));
    };
    for (int i = 0; i < 10; ++i) surface.update(frameAt(i));
    const BytePool& pool = *evaluator.impl().context.pool();
    const std::size_t after = pool.allocationCount();
    for (int i = 10; i < 60; ++i) surface.update(frameAt(i % 10));
    EXPECT_EQ(pool.allocationCount(), after);
}

}   // namespace
}   // namespace tavix::imaging::tests
