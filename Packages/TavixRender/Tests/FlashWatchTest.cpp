// Films of plain colours against the thresholds of WCAG 2, success criterion 2.3.1: just below, at and above.
#include "TavixRender/Judge/FlashWatch.h"

#include "TavixRender/Judge/Contrast.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace tavix {
namespace {

constexpr imaging::Size screen{256, 192};   // a quarter of 1024 x 768 each way
constexpr double fps = 60;

struct Colour {
    std::uint8_t r, g, b;
};
constexpr Colour black{0, 0, 0}, white{255, 255, 255};

// The byte whose relative luminance, as a grey, is the nearest at or above.
std::uint8_t greyOf(double luminance) {
    int level = 0;
    while (level < 255 && Contrast::linear(level / 255.0) < luminance) ++level;
    return std::uint8_t(level);
}

void fill(imaging::Bitmap& frame, Colour colour, int x0 = 0, int y0 = 0, int x1 = screen.width,
    int y1 = screen.height) {
    for (int y = y0; y < y1; ++y)
        for (int x = x0; x < x1; ++x) {
            std::uint8_t* pixel = frame.view().row(y) + 4 * x;
            pixel[0] = colour.b, pixel[1] = colour.g, pixel[2] = colour.r, pixel[3] = 255;
        }
}

FlashWatch watched(double seconds, const std::function<void(imaging::Bitmap&, double sec)>& paint,
    double framesPerSec = fps) {
    FlashWatch watch(screen, framesPerSec);
    imaging::Bitmap frame(screen);
    for (int i = 0; i < int(seconds * framesPerSec); ++i) {
        fill(frame, black);
        paint(frame, i / framesPerSec);
        watch.take(frame.view());
    }
    return watch;
}

// Two colours in turn over a part of the screen.
FlashWatch flashing(double perSec, Colour dark, Colour light, int width = screen.width,
    int height = screen.height, double framesPerSec = fps) {
    return watched(
        3,
        [&](imaging::Bitmap& frame, double sec) {
            const bool isLight = std::fmod(sec * perSec + 1e-9, 1.0) >= 0.5;
            fill(frame, isLight ? light : dark, 0, 0, width, height);
        },
        framesPerSec);
}

bool generalIn(const FlashWatch& watch) { return !watch.general().empty(); }
bool redIn(const FlashWatch& watch) { return !watch.red().empty(); }

TEST(FlashWatch, AllowsThreeFlashesInAnySecond) {
    EXPECT_FALSE(generalIn(flashing(2, black, white)));
    EXPECT_FALSE(generalIn(flashing(3, black, white)));
    EXPECT_TRUE(generalIn(flashing(4, black, white)));
    EXPECT_TRUE(generalIn(flashing(10, black, white)));
    EXPECT_TRUE(generalIn(flashing(10, black, white, screen.width, screen.height, 24)));
    EXPECT_FALSE(generalIn(flashing(3, black, white, screen.width, screen.height, 25)));
}

TEST(FlashWatch, CountsFlashesWithinASecondAndNotInTheWholeFilm) {
    const auto bursts = [](int flashes) {   // every two seconds from 0.5 on, a twelfth of a second each
        return watched(6, [=](imaging::Bitmap& frame, double sec) {
            const double since = std::fmod(sec + 1.5, 2);
            if (since < flashes / 6.0 && std::fmod(since * 6 + 1e-9, 1.0) < 0.5) fill(frame, white);
        });
    };
    EXPECT_FALSE(generalIn(bursts(3)));
    const FlashWatch four = bursts(4);
    ASSERT_EQ(four.general().size(), 3u);
    EXPECT_LE(four.general()[1].fromSec, 2.5);   // the burst lasts from 2.5 to 3.1
    EXPECT_GE(four.general()[1].fromSec, 2.0);
    EXPECT_NEAR(four.general()[1].toSec, 3.4, 0.4);
}

TEST(FlashWatch, NeedsATenthOfTheLuminanceAndADarkState) {
    const auto greys = [](double darker, double lighter) {
        return flashing(5, {greyOf(darker), greyOf(darker), greyOf(darker)},
            {greyOf(lighter), greyOf(lighter), greyOf(lighter)});
    };
    EXPECT_TRUE(generalIn(greys(0, 0.1)));
    EXPECT_TRUE(generalIn(greys(0.4, 0.51)));
    EXPECT_FALSE(generalIn(greys(0.4, 0.49)));
    EXPECT_FALSE(generalIn(greys(0, 0.09)));
    EXPECT_TRUE(generalIn(greys(0.78, 0.9)));
    EXPECT_FALSE(generalIn(greys(0.81, 1)));   // the darker state is too light
}

TEST(FlashWatch, LooksAtAQuarterOfTenDegreesOfTheEye) {
    // 341 x 256 at 1024 x 768 is 85.25 x 64 here, and a quarter of it 1364 pixels.
    EXPECT_FALSE(generalIn(flashing(5, black, white, 31, 44)));   // 1364
    EXPECT_TRUE(generalIn(flashing(5, black, white, 35, 39)));    // 1365
    // As much in lines that lie apart is spread over more than one field.
    const auto lines = [](int apart) {
        return watched(3, [=](imaging::Bitmap& frame, double sec) {
            if (std::fmod(sec * 5, 1.0) < 0.5) return;
            for (int y = 0; y < screen.height; y += apart) fill(frame, white, 0, y, screen.width, y + 1);
        });
    };
    EXPECT_TRUE(generalIn(lines(3)));    // a third of every field
    EXPECT_FALSE(generalIn(lines(5)));   // a fifth
}

TEST(FlashWatch, SeesThroughSlowChanges) {
    const auto sine = [](double perSec, double depth) {
        return watched(4, [=](imaging::Bitmap& frame, double sec) {
            const std::uint8_t grey = greyOf(0.3 + depth / 2 * std::sin(2 * 3.14159265358979 * perSec * sec));
            fill(frame, {grey, grey, grey});
        });
    };
    EXPECT_TRUE(generalIn(sine(5, 0.2)));   // no step of it is a tenth
    EXPECT_FALSE(generalIn(sine(5, 0.08)));
    EXPECT_FALSE(generalIn(sine(2, 0.5)));
    const FlashWatch fade = watched(4, [](imaging::Bitmap& frame, double sec) {
        const std::uint8_t grey = std::uint8_t(sec / 4 * 255);
        fill(frame, {grey, grey, grey});
    });
    EXPECT_FALSE(generalIn(fade));
}

TEST(FlashWatch, FindsSaturatedRedBelowTheGeneralThreshold) {
    // Red of 150 has a luminance of 0.065: no general flash. (R - G - B) x 320 is 97.
    const FlashWatch dark = flashing(5, black, {150, 0, 0});
    EXPECT_FALSE(generalIn(dark));
    EXPECT_TRUE(redIn(dark));
    EXPECT_FALSE(redIn(flashing(3, black, {150, 0, 0})));
    // (R - G - B) x 320 of 69 is 19.0, of 71 it is 20.2; more than 20 is needed.
    EXPECT_FALSE(redIn(flashing(5, black, {69, 0, 0})));
    EXPECT_TRUE(redIn(flashing(5, black, {71, 0, 0})));
    // R / (R + G + B) of 0.8: with green of 128 (0.2159) a red of 240 (0.8714) has 0.801, of 238 less.
    EXPECT_TRUE(redIn(flashing(5, black, {240, 128, 0})));
    EXPECT_FALSE(redIn(flashing(5, black, {238, 128, 0})));
    // From one saturated red to another, and not between colours that are none.
    EXPECT_TRUE(redIn(flashing(5, {120, 0, 0}, {200, 0, 0})));
    EXPECT_FALSE(redIn(flashing(5, black, {0, 0, 255})));
    EXPECT_FALSE(redIn(flashing(5, black, white)));
}

// Bars that scroll: every place flashes, each at its own time. On a third of the screen that is what lists of
// phones do, and nothing flashes with anything else.
TEST(FlashWatch, CountsWhatFlashesAtTheSameTime) {
    const auto bars = [](double perSec, double width, bool isScrolled) {
        constexpr int pitchPx = 24;
        return watched(3, [=](imaging::Bitmap& frame, double sec) {
            const double along =
                isScrolled ? sec * perSec * pitchPx : std::floor(sec * perSec * 2) * pitchPx / 2;
            for (int y = 0; y < screen.height; ++y)
                if (std::fmod(y + along, pitchPx) < pitchPx / 2.0)
                    fill(frame, white, 0, y, int(width * screen.width), y + 1);
        });
    };
    // 85 pixels wide and 64 high is a field: 28 of them are a third of it.
    for (const double perSec : {4.5, 6.0, 9.0}) {
        SCOPED_TRACE(perSec);
        EXPECT_FALSE(generalIn(bars(perSec, 28.0 / screen.width, true)));
        EXPECT_TRUE(generalIn(bars(perSec, 28.0 / screen.width, false))) << "black for white, all at once";
        EXPECT_TRUE(generalIn(bars(perSec, 1, true))) << "too much even so";
    }
    EXPECT_FALSE(generalIn(bars(2.5, 1, false)));
}

TEST(FlashWatch, NeedsOpposingChangesAtOnePlace) {
    // A bright ball that passes lights each place once.
    const FlashWatch passing = watched(3, [](imaging::Bitmap& frame, double sec) {
        const int x = int(sec * 200) % (screen.width - 90);
        fill(frame, white, x, 20, x + 90, 180);
    });
    EXPECT_FALSE(generalIn(passing));
    const FlashWatch stairs = watched(2, [](imaging::Bitmap& frame, double sec) {
        const std::uint8_t grey = greyOf(std::min(std::floor(sec * 8) * 0.12, 1.0));   // up, and only up
        fill(frame, {grey, grey, grey});
    });
    EXPECT_FALSE(generalIn(stairs));
}

}   // namespace
}   // namespace tavix
