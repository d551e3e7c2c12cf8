// What each operation of an image means.
#include "TavixPlatform/Imaging/Tests/Pictures.h"

#include <cmath>
#include <cstring>

#include <gtest/gtest.h>

namespace tavix::imaging::tests {
namespace {

struct Drawn {
    PixelRegion region;
    Words words;
    std::uint32_t at(int x, int y) const {
        return words[std::size_t(y - region.y0) * std::size_t(region.width()) + std::size_t(x - region.x0)];
    }
    double sum(int c) const {
        double total = 0;
        for (const std::uint32_t w : words) total += channel(w, c);
        return total;
    }
};
Drawn drawn(const Image& image, const PixelRegion& region) {
    Evaluator evaluator;
    return {region, pixelsOf(evaluator, image, region)};
}
Image noise(int width, int height, bool isOpaque = false) {
    return Image::bitmap(noiseBitmap({width, height}, 31, isOpaque));
}

TEST(Transform, MovesWholePixelsExactly) {
    const Image image = noise(37, 23);
    const Drawn before = drawn(image, {0, 0, 37, 23}),
                after = drawn(image.translated(-5, 8), {-5, 8, 32, 31});
    EXPECT_EQ(before.words, after.words);
    // Also through the general sampler: the picture of a crop is no bitmap.
    const Image cut = noise(37, 23).cropped({3, 2, 30, 20});
    EXPECT_EQ(drawn(cut, {3, 2, 33, 22}).words, drawn(cut.translated(11, 4), {14, 6, 44, 26}).words);
}

TEST(Transform, KeepsAConstantAndItsAreaUnderAnyTransform) {
    const Image square = Image::bitmap(filledBitmap({40, 40}, 0xFFFFFFFFu));
    for (int i = 0; i < 40; ++i) {
        const double scale = 0.1 + 0.07 * i;
        const Affine map = Affine::rotation(0.37 * i)
                               .then(Affine::scaling(scale, scale))
                               .then(Affine::translation(100.3, 99.7));
        const Drawn d = drawn(square.transformed(map), {-150, -150, 350, 350});
        const double area = 1600 * scale * scale;
        EXPECT_NEAR(d.sum(3) / 255, area, 0.02 * area + 0.5) << i;
        const Point middle = map.apply({20, 20});
        if (scale * 40 > 6) {
            EXPECT_EQ(d.at(int(middle.x), int(middle.y)), 0xFFFFFFFFu) << i;
        }
    }
}

TEST(Transform, AntialiasesAnEdgeByTheCoveredPart) {
    const Image square = Image::bitmap(filledBitmap({10, 10}, 0xFFFFFFFFu));
    const Drawn d = drawn(square.translated(0.25, 0), {0, 0, 11, 10});
    EXPECT_NEAR(channel(d.at(0, 5), 3), 0.75 * 255, 1);
    EXPECT_EQ(channel(d.at(5, 5), 3), 255);
    EXPECT_NEAR(channel(d.at(10, 5), 3), 0.25 * 255, 1);
}

TEST(Transform, ComposesIntoOne) {
    const Image image = noise(50, 50, true);
    const Image twice = image.transformed(Affine::rotation(0.3)).transformed(Affine::rotation(-0.3));
    EXPECT_LE(largestDifference(drawn(twice, {2, 2, 48, 48}).words, drawn(image, {2, 2, 48, 48}).words), 1);
}

TEST(Transform, ReducesByAveragingNotBySkipping) {
    auto checks = std::make_shared<Bitmap>(Size{256, 256});   // a fine check pattern must become grey
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x)
            reinterpret_cast<std::uint32_t*>(checks->view().row(y))[x] =
                (x + y) % 2 ? 0xFFFFFFFFu : 0xFF000000u;
    for (const double scale : {0.5, 0.3, 0.125, 0.06}) {
        const Drawn d =
            drawn(Image::bitmap(checks).transformed(Affine::scaling(scale, scale)), {2, 2, 12, 12});
        for (const std::uint32_t w : d.words) EXPECT_NEAR(channel(w, 0), 128, 3) << scale;
    }
}

TEST(Transform, OfHostileNumbersDrawsNothingAndDoesNotHang) {
    const double bad[] = {NAN, INFINITY, -INFINITY, 1e300, 1e-300, 0};
    for (const double v : bad) {
        drawn(noise(20, 20).transformed({v, 0, 0, 1, 0, 0}), {0, 0, 30, 30});
        drawn(noise(20, 20).transformed({1, 0, 0, 1, v, 0}), {0, 0, 30, 30});
        drawn(noise(20, 20).gaussianBlurred(v), {0, 0, 30, 30});
        drawn(noise(20, 20).placedInto({0, 0, v, 10}), {0, 0, 30, 30});
        drawn(noise(20, 20).cropped({v, 0, 10, 10}), {0, 0, 30, 30});
        drawn(noise(20, 20).withOpacity(v), {0, 0, 30, 30});
        drawn(Image::roundedRectangle({0, 0, v, 10}, v, Color::white()), {0, 0, 30, 30});
    }
}

Quad quadOf(const Rect& r) { return {{r.x, r.maxY()}, {r.maxX(), r.maxY()}, {r.x, r.y}, {r.maxX(), r.y}}; }

// What a rectangle seen upright shows, affine maps know too.
TEST(Perspective, IsTheTransformWhereThatIsOne) {
    const Image image = noise(60, 40, true);
    const Drawn same = drawn(image.inPerspective(quadOf({0, 0, 60, 40})), {0, 0, 60, 40});
    EXPECT_LE(largestDifference(same.words, drawn(image, {0, 0, 60, 40}).words), 1);
    const Rect target{-7.25, 3.5, 75, 44};
    const Affine map = Affine::scaling(75.0 / 60, 44.0 / 40).then(Affine::translation(-7.25, 3.5));
    EXPECT_LE(largestDifference(drawn(image.inPerspective(quadOf(target)), {-9, 0, 80, 60}).words,
                  drawn(image.transformed(map), {-9, 0, 80, 60}).words),
        3);
}

TEST(Perspective, KeepsAConstantItsAreaAndItsCorners) {
    const Image square = Image::bitmap(filledBitmap({50, 50}, 0xFFFFFFFFu), {5, 9});
    const Quad quads[] = {{{10, 90}, {70, 80}, {0, 5}, {95, 15}}, {{70.5, 80}, {10, 90.25}, {95, 15}, {0, 5}},
        {{40, 60}, {60, 55}, {10, 10}, {90, 12}}, {{10, 20}, {12, 20}, {10, 10}, {12, 10}}};
    for (const Quad& q : quads) {
        const Point around[] = {q.topLeft, q.topRight, q.bottomRight, q.bottomLeft};
        double doubleArea = 0;
        Point middle{};
        for (int i = 0; i < 4; ++i) {
            const Point a = around[i], b = around[(i + 1) % 4];
            doubleArea += a.x * b.y - b.x * a.y;
            middle = {middle.x + a.x / 4, middle.y + a.y / 4};
        }
        const Drawn d = drawn(square.inPerspective(q), {-5, -5, 110, 110});
        EXPECT_NEAR(d.sum(3) / 255, std::abs(doubleArea) / 2, 0.01 * std::abs(doubleArea) + 0.5);
        EXPECT_EQ(channel(d.at(int(middle.x), int(middle.y)), 3), 255);
    }
}

// Points at even distances on a receding line are seen nearer together the further they are: the cross ratio.
TEST(Perspective, ForeshortensAsAPlaneInSpaceDoes) {
    auto stripes = std::make_shared<Bitmap>(Size{300, 300});
    for (int y = 0; y < 300; ++y)
        for (int x = 0; x < 300; ++x)
            reinterpret_cast<std::uint32_t*>(stripes->view().row(y))[x] = y < 150 ? 0xFFFFFFFFu : 0xFF000000u;
    // A square that stands on its lower edge, 300 away, and leans back until its upper edge is twice as far.
    const Image leaning = Image::bitmap(stripes).inPerspective({{75, 100}, {225, 100}, {0, 0}, {300, 0}});
    // The middle of the square, at a distance of 450, stands two thirds up the picture: 1 / 450 lies two
    // thirds from 1 / 300 to 1 / 600.
    const Drawn d = drawn(leaning, {150, 0, 151, 100});
    int firstWhite = 0;
    while (channel(d.at(150, firstWhite), 0) < 128) ++firstWhite;
    EXPECT_NEAR(firstWhite, 66.7, 1);
}

TEST(Perspective, OfWhatIsFarAveragesAndDoesNotSkip) {
    auto checks = std::make_shared<Bitmap>(Size{256, 256});
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x)
            reinterpret_cast<std::uint32_t*>(checks->view().row(y))[x] =
                (x + y) % 2 ? 0xFFFFFFFFu : 0xFF000000u;
    for (const Quad& q :
        {Quad{{20, 60}, {90, 60}, {0, 0}, {110, 0}}, quadOf({0, 0, 110, 256}), quadOf({0, 0, 21, 33})}) {
        const Drawn d = drawn(Image::bitmap(checks).inPerspective(q), {12, 4, 18, 30});
        for (const std::uint32_t w : d.words) EXPECT_NEAR(channel(w, 0), 128, 24);
    }
}

TEST(Perspective, SeenFromTheEdgeOrInsideOutIsEmpty) {
    const Image image = noise(20, 20);
    for (const Quad& q :
        {Quad{{0, 10}, {20, 10}, {0, 10}, {20, 10}}, Quad{{0, 20}, {0, 0}, {20, 20}, {20, 0.0}},
            Quad{{0, 20}, {20, 20}, {20, 0}, {0, 0}}, Quad{{NAN, 20}, {20, 20}, {0, 0}, {20, 0}},
            Quad{{0, INFINITY}, {20, 20}, {0, 0}, {20, 0}}, Quad{{0, 1e9}, {20, 1e9}, {0, 0}, {20, 0}}}) {
        const Image seen = image.inPerspective(q);
        drawn(seen, {0, 0, 30, 30});
        EXPECT_TRUE(
            seen.isEmpty() || q.topRight == Point({0, 0}));   // mirrored about a diagonal is a picture
    }
    EXPECT_TRUE(Image::solid(Color::white()).inPerspective(quadOf({0, 0, 9, 9})).extent().isInfinite());
}

TEST(Placing, FillsItsTargetAndKeepsAConstant) {
    const Image image = Image::bitmap(filledBitmap({31, 17}, 0xFF4080C0u));
    for (const Rect& target : {Rect{3, 4, 100, 60}, Rect{-2.5, 1.25, 9.5, 7.5}, Rect{0, 0, 31, 17}}) {
        const Drawn d = drawn(image.placedInto(target), {-10, -10, 120, 80});
        EXPECT_NEAR(d.sum(3) / 255, target.width * target.height, 0.5);
        EXPECT_EQ(d.at(int(target.center().x), int(target.center().y)), 0xFF4080C0u);
    }
}

TEST(Placing, LooksTheSameWhateverIsKnownToBeClear) {
    const BitmapRef ink = noiseBitmap({21, 13}, 7, false);
    auto padded = std::make_shared<Bitmap>(Size{300, 200});
    for (int y = 0; y < 13; ++y)
        std::memcpy(padded->view().row(80 + y) + 4 * 140, ink->view().row(y), 4 * 21);
    // The same pixels, once in a border that is known to be clear.
    const Image lean = Image::bitmap(ink, {140, 200 - 80 - 13}).over(Image::solid(Color::clear()));
    const Image known = lean.cropped({0, 0, 300, 200}), unknown = Image::bitmap(padded);
    for (const Rect& target : {Rect{0, 0, 150, 100}, Rect{3.5, 2.25, 71, 40}, Rect{0, 0, 420, 280}}) {
        const PixelRegion all{-5, -5, 430, 290};
        EXPECT_EQ(drawn(known.placedInto(target), all).words, drawn(unknown.placedInto(target), all).words);
    }
}

TEST(Blur, IsAGaussianOfThatStandardDeviation) {
    for (const double sigma : {0.7, 1.5, 2.9, 3.1, 5.0, 8.0, 13.0, 26.0, 57.0}) {
        const int reach = int(sigma * 4) + 8, side = 2 * reach + 1;
        // A white line of 5 pixels stands out of rounding better than a point; its own variance is 2.
        const Image line = Image::solid(Color::white()).cropped({-2, -400, 5, 800});
        const Drawn d = drawn(line.gaussianBlurred(sigma), {-reach, 0, reach + 1, 1});
        double total = 0, second = 0, first = 0;
        for (int x = -reach; x <= reach; ++x) {
            const double a = channel(d.at(x, 0), 3);
            total += a;
            first += a * x;
            second += a * x * x;
        }
        EXPECT_NEAR(total / 255, 5, 0.25 + 0.01 * sigma) << sigma;
        EXPECT_NEAR(first / total, 0, 0.15) << sigma;
        const double expected = sigma * sigma + 2;
        EXPECT_NEAR(second / total, expected, (sigma < 10 ? 0.06 : 0.12) * expected) << sigma << " " << side;
    }
}

TEST(Blur, OfAStepFollowsTheErrorFunction) {
    for (const double sigma : {2.5, 4.0, 7.0, 20.0, 60.0}) {
        const Image half = Image::solid(Color::white()).cropped({0, -1000, 3000, 2000});
        const Drawn d = drawn(half.gaussianBlurred(sigma), {-200, 0, 200, 1});
        for (int x = -200; x < 200; ++x) {
            const double expected = 255 * 0.5 * std::erfc(-(x + 0.5) / (sigma * std::sqrt(2.0)));
            const bool isCut = x < -3 * sigma;
            EXPECT_NEAR(channel(d.at(x, 0), 3), isCut ? 0 : expected, 1.6) << "sigma " << sigma << " x " << x;
        }
    }
}

TEST(Blur, OfAContinuedConstantChangesNothing) {
    const Image flat = Image::bitmap(filledBitmap({60, 50}, 0x80204060u));
    for (const double sigma : {1.0, 4.0, 19.0})
        for (const std::uint32_t w :
            drawn(flat.clampedToExtent().gaussianBlurred(sigma), {-40, -40, 90, 90}).words)
            ASSERT_EQ(w, 0x80204060u) << sigma;
}

TEST(Stack, FollowsSourceOver) {
    const struct {
        Color top, bottom;
        double r, a;
    } cases[] = {
        {{1, 0, 0, 1}, {0, 1, 0, 1}, 1, 1},
        {{1, 0, 0, 0.5}, {0, 0, 0, 1}, 0.5, 1},
        {{1, 0, 0, 0.5}, {1, 0, 0, 0.5}, 0.75, 0.75},
        {{1, 0, 0, 0}, {0.2, 0, 0, 1}, 0.2, 1},
    };
    for (const auto& c : cases) {
        const std::uint32_t pixel =
            drawn(Image::solid(c.top).over(Image::solid(c.bottom)), {0, 0, 1, 1}).at(0, 0);
        EXPECT_NEAR(channel(pixel, 2) / 255.0, c.r, 1 / 255.0);
        EXPECT_NEAR(channel(pixel, 3) / 255.0, c.a, 1 / 255.0);
    }
}

TEST(Stack, FadesAGroupAsOnePicture) {
    const Image group = Image::solid({1, 0, 0, 1})
                            .cropped({0, 0, 10, 10})
                            .over(Image::solid({0, 0, 1, 1}).cropped({0, 0, 10, 10}));
    const std::uint32_t pixel =
        drawn(group.withOpacity(0.5).over(Image::solid(Color::black())), {5, 5, 6, 6}).at(5, 5);
    EXPECT_NEAR(channel(pixel, 2), 128, 1);
    EXPECT_EQ(channel(pixel, 0), 0);   // nothing of the blue below shines through
}

TEST(Colors, LeaveAPictureAloneWhenNeutral) {
    const Image image = noise(64, 64);
    const PixelRegion all{0, 0, 64, 64};
    const Words before = drawn(image, all).words;
    const ColorMatrix nearly{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 0.999999f}};
    EXPECT_LE(largestDifference(drawn(image.withColorMatrix(nearly), all).words, before), 0);
    EXPECT_LE(largestDifference(drawn(image.withColorControls(0, 1.0000001, 1), all).words, before), 0);
    EXPECT_LE(largestDifference(drawn(image.withMonochrome({1, 0, 0, 1}, 0), all).words, before), 0);
    EXPECT_EQ(drawn(image.withVignette(0, 1, image.extent()), all).words, before);
    EXPECT_EQ(drawn(image.bloomed(0, 4), all).words, before);
    EXPECT_EQ(drawn(image.pixellated({0, 0}, 1), all).words, before);
}

TEST(Colors, MeanWhatTheyAreNamed) {
    const auto of = [](const Image& image) { return drawn(image, {8, 8, 9, 9}).at(8, 8); };
    const Image grey = Image::solid({0.5, 0.5, 0.5, 1}).cropped({0, 0, 17, 17}),
                red = Image::solid({1, 0, 0, 1}).cropped({0, 0, 17, 17});
    EXPECT_NEAR(channel(of(grey.withColorControls(0.2, 1, 1)), 0), 179, 1);   // brightness adds
    EXPECT_NEAR(channel(of(grey.withColorControls(0, 3, 1)), 0), 128, 1);   // contrast turns about the middle
    EXPECT_NEAR(channel(of(red.withColorControls(0, 1, 0)), 1), 54, 1);     // no saturation leaves the luma
    EXPECT_NEAR(channel(of(red.withMonochrome({0, 1, 0, 1}, 1)), 1), 54, 1);
    EXPECT_NEAR(channel(of(grey.withFalseColor({0, 0, 0, 1}, {1, 0, 0, 1})), 2), 128, 1);
    EXPECT_NEAR(channel(of(red.withVignette(1, 1, red.extent())), 2), 255, 1);   // the middle stays
    EXPECT_LT(channel(drawn(red.withVignette(1, 1, red.extent()), {0, 0, 1, 1}).at(0, 0), 2), 10);
}

TEST(Pixellate, ShowsTheMeanOfEachSquare) {
    const Image image = noise(64, 64, true);
    const Drawn before = drawn(image, {0, 0, 64, 64}),
                after = drawn(image.pixellated({16, 32}, 8), {0, 0, 64, 64});
    for (int j = 0; j < 8; ++j)
        for (int i = 0; i < 8; ++i) {
            int sum = 0;
            for (int y = 0; y < 8; ++y)
                for (int x = 0; x < 8; ++x) {
                    sum += channel(before.at(i * 8 + x, j * 8 + y), 1);
                    ASSERT_EQ(after.at(i * 8 + x, j * 8 + y), after.at(i * 8, j * 8));
                }
            EXPECT_NEAR(channel(after.at(i * 8, j * 8), 1), sum / 64.0, 0.6);
        }
}

TEST(Mask, ShowsTheFrontByItsLuminance) {
    const Image white = Image::solid(Color::white()), black = Image::solid(Color::black());
    for (const double level : {0.0, 0.25, 1.0}) {
        const Image mask = Image::solid({level, level, level, 1});
        EXPECT_NEAR(
            channel(drawn(white.blendedWithMask(black, mask), {0, 0, 1, 1}).at(0, 0), 0), level * 255, 1);
        const Image clear = Image::solid({1, 1, 1, level});   // premultiplied, so clear hides
        EXPECT_NEAR(
            channel(drawn(white.blendedWithMask(black, clear), {0, 0, 1, 1}).at(0, 0), 0), level * 255, 1);
    }
}

TEST(MotionBlur, SpreadsAPointEvenlyAlongItsLineAndKeepsItsLight) {
    // 200 grey levels on one pixel: enough that its smear of 11 pixels can be counted.
    const Image point = Image::bitmap(filledBitmap({1, 1}, 0xFFC8C8C8u), {50, 50});
    const struct {
        double angleRad;
        int dx, dy;
    } cases[] = {{0, 1, 0}, {M_PI / 2, 0, 1}, {M_PI / 4, 1, 1}, {-M_PI / 4, 1, -1}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.angleRad);
        const double radius = 5.5 * std::hypot(c.dx, c.dy);
        const Drawn d = drawn(point.motionBlurred(radius, c.angleRad), {30, 30, 71, 71});
        EXPECT_NEAR(d.sum(0), 200, 12) << "rounded to bytes";
        for (int i = -5; i <= 5; ++i)
            EXPECT_NEAR(channel(d.at(50 + i * c.dx, 50 + i * c.dy), 3), 255.0 / 11, 1.5) << i;
        EXPECT_EQ(channel(d.at(50 + 7 * c.dx, 50 + 7 * c.dy), 3), 0);
    }
}

TEST(MotionBlur, GrowsWithoutAJumpAndLeavesAConstantAlone) {
    const Image square = Image::bitmap(filledBitmap({40, 40}, 0xFF8040C0u), {20, 20});
    Words before = drawn(square, {0, 0, 80, 80}).words;
    for (double radius = 0.25; radius < 8; radius += 0.25) {
        const Drawn d = drawn(square.motionBlurred(radius, 0.7), {0, 0, 80, 80});
        EXPECT_LE(largestDifference(d.words, before), 64) << radius;
        EXPECT_EQ(d.at(40, 40), 0xFF8040C0u) << radius;
        before = d.words;
    }
}

TEST(RoundedRectangle, HasTheAreaOfOne) {
    for (const double radius : {0.0, 4.0, 15.0, 500.0}) {
        const double r = std::min(radius, 20.0), area = 60 * 40 - (4 - M_PI) * r * r;
        const Drawn d =
            drawn(Image::roundedRectangle({5.5, 5.25, 60, 40}, radius, Color::white()), {0, 0, 80, 60});
        EXPECT_NEAR(d.sum(3) / 255, area, 3) << radius;
    }
}

// A pixel is covered by as much as its middle lies inside, from half a pixel without to half a pixel within.
TEST(RoundedRectangle, CoversPixelsByTheirDistanceFromItsOutline) {
    const Rect boxes[] = {{5.5, 5.25, 60, 40}, {3, 4, 50, 50}, {10.3, 7.8, 0.6, 30}, {20.2, 20.7, 9.5, 8.1}};
    for (const Rect& box : boxes)
        for (const double part : {0.0, 0.01, 0.3, 0.99, 1.0}) {
            const double radius = part * std::min(box.width, box.height) / 2;
            const Drawn d = drawn(Image::roundedRectangle(box, radius, Color::white()), {-3, -3, 80, 60});
            for (int y = -3; y < 60; ++y)
                for (int x = -3; x < 80; ++x) {
                    const double px = x + 0.5, py = y + 0.5;
                    // With the largest radius these two bounds are one, but for rounding.
                    const double nearX = std::max(box.x + radius, std::min(px, box.maxX() - radius));
                    const double nearY = std::max(box.y + radius, std::min(py, box.maxY() - radius));
                    const double toSide =
                        std::min({px - box.x, box.maxX() - px, py - box.y, box.maxY() - py});
                    const double outside = std::hypot(px - nearX, py - nearY);
                    const double inside = outside > 0 ? radius - outside : toSide;
                    EXPECT_NEAR(d.at(x, y) >> 24, 255 * std::clamp(0.5 + inside, 0.0, 1.0), 0.51)
                        << x << " " << y << " " << radius << " " << box.x;
                }
        }
}

}   // namespace
}   // namespace tavix::imaging::tests
